// The list of volumes of a dialog.
#pragma once

#include <QComboBox>

#include "hosts/qt/widgets/dialog_item.h"
#include "hosts/qt/widgets/volumes.h"

namespace tessaria::qt {

/// An entry is the folder that a volume is mounted on; the box also shows its label. The box lists
/// the mounted volumes when it is created, when it is asked for a drive, and when it shows.
class DriveListItem final : public DialogItemOf<host::DriveList> {
 public:
  DriveListItem(QComboBox& box, const DialogGate& gate);

  String Drive() const override;
  void Drive(const String& path) override;
  std::vector<String> List() const override;
  void aboutToShow() override { fill(listVolumes()); }

 private:
  /// Keeps the selected entry while it exists.
  void fill(const QList<Volume>& volumes);

  QComboBox& box_;
};

}  // namespace tessaria::qt
