// The list of folders of a dialog.
#pragma once

#include "hosts/qt/dialogs/dialog_item.h"
#include "hosts/qt/dialogs/folder_tree.h"

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
