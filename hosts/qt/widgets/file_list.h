// The list of files of a dialog.
#pragma once

#include <QListWidget>

#include "hosts/qt/widgets/dialog_item.h"
#include "hosts/qt/widgets/folders.h"

namespace tessaria::qt {

/// The files of one folder that match a pattern; nothing before the first `open`.
class FileNames final : public QListWidget {
  Q_OBJECT

 public:
  using QListWidget::QListWidget;

  const QString& path() const { return path_; }
  /// Error 76 when the folder cannot be read.
  void open(const QString& path);
  const QString& pattern() const { return pattern_; }
  void setPattern(const QString& pattern);
  /// Keeps the selected file when it is still listed.
  void listHidden(Hidden hidden);
  QString selected() const;

 protected:
  /// A file is selected when the list is entered by the keyboard.
  void focusInEvent(QFocusEvent* event) override;

 private:
  void fill();

  QString path_;
  QString pattern_ = QStringLiteral("*.*");
  Hidden hidden_ = Hidden::Skipped;
};

class FileListItem final : public DialogItemOf<host::FileList> {
 public:
  FileListItem(FileNames& list, const DialogGate& gate);

  String Path() const override;
  void Path(const String& path) override;
  String Pattern() const override;
  void Pattern(const String& pattern) override;
  std::vector<String> List() const override;
  String FileName() const override;
  void Select(Long position) override;

 private:
  FileNames& list_;
};

}  // namespace tessaria::qt
