#include "hosts/qt/widgets/drive_list.h"

#include "hosts/qt/conversion/drawn_icon.h"
#include "tessaria/error.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {
namespace {

QString textOf(const Volume& volume) {
  return volume.label.isEmpty() ? volume.root
                                : QStringLiteral("%1 [%2]").arg(volume.root, volume.label);
}

}  // namespace

DriveListItem::DriveListItem(QComboBox& box, const DialogGate& gate)
    : DialogItemOf(box, gate), box_(box) {
  fill(listVolumes());
  QObject::connect(&box, &QComboBox::activated, &box, [this] { this->gate().raise(OnChange); });
}

void DriveListItem::fill(const QList<Volume>& volumes) {
  const QVariant kept = box_.currentData();
  const QIcon icon = drawnIcon(DrawnShape::Drive);
  box_.clear();
  for (const Volume& volume : volumes) box_.addItem(icon, textOf(volume), volume.root);
  if (const int entry = box_.findData(kept); entry >= 0) box_.setCurrentIndex(entry);
}

String DriveListItem::Drive() const { return fromQt(box_.currentData().toString()); }

void DriveListItem::Drive(const String& path) {
  const QList<Volume> volumes = listVolumes();
  fill(volumes);
  const int entry = box_.findData(volumeOf(toQt(path), volumes));
  if (entry < 0) throw HostError(errors::DeviceUnavailable);
  box_.setCurrentIndex(entry);
}

std::vector<String> DriveListItem::List() const {
  std::vector<String> entries;
  for (const Volume& volume : listVolumes()) entries.push_back(fromQt(volume.root));
  return entries;
}

}  // namespace tessaria::qt
