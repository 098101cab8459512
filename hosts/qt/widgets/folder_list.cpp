#include "hosts/qt/widgets/folder_list.h"

#include "tessaria/qt/text.h"

namespace tessaria::qt {

FolderListItem::FolderListItem(FolderTree& tree, const DialogGate& gate)
    : DialogItemOf(tree, gate), tree_(tree) {
  tree.chosen = [this] { this->gate().raise(OnChange); };
  tree.refused = [this](const QString& path) { this->gate().enter([&] { requireFolder(path); }); };
}

String FolderListItem::Path() const { return fromQt(tree_.path()); }

void FolderListItem::Path(const String& path) {
  const QString before = tree_.path();
  tree_.open(toQt(path));
  if (tree_.path() != before) callSlot(OnChange);
}

}  // namespace tessaria::qt
