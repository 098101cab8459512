// The folders of a volume as a tree.
#pragma once

#include <QTreeWidget>
#include <functional>

#include "hosts/qt/widgets/folders.h"

namespace tessaria::qt {

/// The selected folder is the one chosen. Folders are read when they are opened; those that cannot
/// be read say so and cannot be selected.
class FolderTree final : public QTreeWidget {
  Q_OBJECT

 public:
  explicit FolderTree(QWidget* parent);

  /// Has no separator at its end unless it is a root; empty before the first `open`.
  const QString& path() const { return path_; }
  /// Shows and selects a folder anywhere. Error 76 if it cannot be read.
  void open(const QString& path);
  void listHidden(Hidden hidden);

  /// Called when the operator selects another folder. Must not throw.
  std::function<void()> chosen;
  /// Called when the operator selects a folder that can no longer be read: the selection goes back.
  /// Must not throw.
  std::function<void(const QString& path)> refused;

 private:
  QTreeWidgetItem* add(QTreeWidgetItem* parent, const QString& name);
  QTreeWidgetItem* child(QTreeWidgetItem* parent, const QString& name);
  void fill(QTreeWidgetItem* folder);
  void reveal(const QString& path);
  void select(QTreeWidgetItem* folder);

  QString path_;
  Hidden hidden_ = Hidden::Skipped;
  bool showing_ = false;  ///< the program selects, not the operator
};

}  // namespace tessaria::qt
