#include "hosts/qt/widgets/folder_tree.h"

#include <QHeaderView>
#include <QScopedValueRollback>

#include "hosts/qt/conversion/drawn_icon.h"

namespace tessaria::qt {
namespace {

constexpr int kPath = Qt::UserRole;
constexpr int kIsRead = Qt::UserRole + 1;

QString pathOf(const QTreeWidgetItem* folder) { return folder->data(0, kPath).toString(); }

QString below(const QString& folder, const QString& name) {
  return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}

}  // namespace

FolderTree::FolderTree(QWidget* parent) : QTreeWidget(parent) {
  setHeaderHidden(true);
  setUniformRowHeights(true);
  header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
  header()->setStretchLastSection(false);
  connect(this, &QTreeWidget::itemExpanded, this, &FolderTree::fill);
  connect(this, &QTreeWidget::currentItemChanged, this,
          [this](QTreeWidgetItem* folder) { select(folder); });
}

void FolderTree::open(const QString& path) {
  path_ = requireFolder(path);
  reveal(path_);
}

void FolderTree::listHidden(Hidden hidden) {
  if (hidden == hidden_) return;
  hidden_ = hidden;
  clear();
  if (!path_.isEmpty()) reveal(path_);
}

// --- Showing ------------------------------------------------------------------------------------

QTreeWidgetItem* FolderTree::add(QTreeWidgetItem* parent, const QString& name) {
  const QString path = parent ? below(pathOf(parent), name) : name;
  auto* folder = parent ? new QTreeWidgetItem(parent) : new QTreeWidgetItem(this);
  folder->setText(0, name);
  folder->setIcon(0, drawnIcon(DrawnShape::Folder));
  folder->setData(0, kPath, path);
  folder->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
  if (const QString reason = whyUnreadable(path); !reason.isEmpty()) {
    folder->setText(0, QStringLiteral("%1 (sem permissão)").arg(name));
    folder->setToolTip(0, reason);
    folder->setDisabled(true);
    folder->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicator);
  }
  return folder;
}

/// A folder on the path is shown even if it is hidden or its parent cannot be listed.
QTreeWidgetItem* FolderTree::child(QTreeWidgetItem* parent, const QString& name) {
  fill(parent);
  const QString path = below(pathOf(parent), name);
  for (int i = 0; i < parent->childCount(); ++i)
    if (pathOf(parent->child(i)) == path) return parent->child(i);
  parent->setDisabled(false);
  parent->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
  return add(parent, name);
}

void FolderTree::fill(QTreeWidgetItem* folder) {
  if (folder->data(0, kIsRead).toBool()) return;
  folder->setData(0, kIsRead, true);
  for (const QString& name : foldersIn(pathOf(folder), hidden_)) add(folder, name);
  if (folder->childCount() == 0)
    folder->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicator);
}

void FolderTree::reveal(const QString& path) {
  const QScopedValueRollback echo(showing_, true);
  const QString root = rootOf(path);
  QTreeWidgetItem* folder = topLevelItem(0);
  if (!folder || pathOf(folder) != root) {
    clear();
    folder = add(nullptr, root);
  }
  for (const QString& name : path.mid(root.size()).split(QLatin1Char('/'), Qt::SkipEmptyParts)) {
    folder = child(folder, name);
    folder->parent()->setExpanded(true);
  }
  fill(folder);
  folder->setExpanded(folder->childCount() > 0);
  setCurrentItem(folder);
  scrollToItem(folder, PositionAtCenter);
}

// --- The operator -------------------------------------------------------------------------------

/// The refusal comes after the view has finished handling the click or key that caused it.
void FolderTree::select(QTreeWidgetItem* folder) {
  if (showing_ || !folder || pathOf(folder) == path_) return;
  const QString wanted = pathOf(folder);
  if (whyUnreadable(wanted).isEmpty()) {
    path_ = wanted;
    if (chosen) chosen();
    return;
  }
  QMetaObject::invokeMethod(
      this,
      [this, wanted] {
        reveal(path_);
        if (refused) refused(wanted);
      },
      Qt::QueuedConnection);
}

}  // namespace tessaria::qt
