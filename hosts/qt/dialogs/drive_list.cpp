#include "hosts/qt/dialogs/drive_list.h"

#include <QStyle>

#include "hosts/qt/text.h"
#include "tessaria/error.h"

namespace tessaria::qt {
namespace {

QString textOf(const Volume& volume) {
  return volume.label.isEmpty() ? volume.root
                                : QStringLiteral("%1 [%2]").arg(volume.root, volume.label);
}

}  // namespace

DriveListItem::DriveListItem(QComboBox& box, const DialogGate& gate)
    : DialogItemOf(box, gate), box_(box) {
  const QIcon icon = box.style()->standardIcon(QStyle::SP_DriveHDIcon);
  for (const Volume& volume : volumes_) box.addItem(icon, textOf(volume), volume.root);
  QObject::connect(&box, &QComboBox::activated, &box, [this] { this->gate().raise(OnChange); });
}

String DriveListItem::Drive() const { return fromQt(box_.currentData().toString()); }

void DriveListItem::Drive(const String& path) {
  const int entry = box_.findData(volumeOf(toQt(path), volumes_));
  if (entry < 0) throw HostError(errors::DeviceUnavailable);
  box_.setCurrentIndex(entry);
}

std::vector<String> DriveListItem::List() const {
  std::vector<String> entries;
  for (const Volume& volume : volumes_) entries.push_back(fromQt(volume.root));
  return entries;
}

}  // namespace tessaria::qt
