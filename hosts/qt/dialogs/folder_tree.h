// The folders of a volume as a tree.
#pragma once

#include <QTreeWidget>
#include <functional>

#include "hosts/qt/dialogs/folders.h"

namespace tessaria::qt {

/// The folder that stands selected is the one chosen. Folders are read as they are opened; those
/// that cannot be read say so and cannot be selected.
class FolderTree final : public QTreeWidget {
  Q_OBJECT

 public:
  explicit FolderTree(QWidget* parent);

  /// Without a separator at its end, unless it is a root; empty before the first `open`.
  const QString& path() const { return path_; }
  /// Shows and selects a folder, whatever its place. Error 76 when it cannot be read.
  void open(const QString& path);
  void listHidden(Hidden hidden);

  /// Told when the operator selects another folder. Must not throw.
  std::function<void()> chosen;
  /// Told when the operator selects one that cannot be read any more: the selection goes back. Must
  /// not throw.
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
