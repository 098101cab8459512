// The list of volumes of a dialog.
#pragma once

#include <QComboBox>

#include "hosts/qt/dialogs/dialog_item.h"
#include "hosts/qt/dialogs/volumes.h"

namespace tessaria::qt {

/// An entry is the folder that a volume is mounted on; the box shows its label too.
class DriveListItem final : public DialogItemOf<host::DriveList> {
 public:
  DriveListItem(QComboBox& box, const DialogGate& gate);

  String Drive() const override;
  void Drive(const String& path) override;
  std::vector<String> List() const override;

 private:
  QComboBox& box_;
  const QList<Volume> volumes_ = mountedVolumes();
};

}  // namespace tessaria::qt
