// The list of folders of a dialog.
#pragma once

#include "hosts/qt/widgets/dialog_item.h"
#include "hosts/qt/widgets/folder_tree.h"

namespace tessaria::qt {

class FolderListItem final : public DialogItemOf<host::FolderList> {
 public:
  FolderListItem(FolderTree& tree, const DialogGate& gate);

  String Path() const override;
  void Path(const String& path) override;

 private:
  FolderTree& tree_;
};

}  // namespace tessaria::qt
