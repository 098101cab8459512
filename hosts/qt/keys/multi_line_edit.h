// The edit of a box with several lines, whose keys pass through handlers first.
#pragma once

#include <QPlainTextEdit>

#include "hosts/qt/keys/edit_events.h"

namespace tessaria::qt {

/// Order of a key: key-down, key-press per character, edit, change, key-up, as in a `LineEdit`. The
/// Tab key moves the focus. Lines are separated by "\n" here; limits count them as two characters.
class MultiLineEdit final : public QPlainTextEdit {
  Q_OBJECT

 public:
  explicit MultiLineEdit(QWidget* parent = nullptr);

  /// Not owned; nullptr for none.
  void setEvents(EditEvents* events) { events_ = events; }

  /// Assigns the text without any limit: caret at 0, nothing selected.
  void assignText(const QString& text);
  /// Replaces the selection by the text without any limit; the caret is then after it.
  void replaceSelection(const QString& text);
  /// The maximum length that the operator can make the text; 0 is no limit.
  int limit() const { return limit_; }
  void setLimit(int characters);

  /// The length of a text with two characters for each end of a line.
  static int lengthOf(const QString& text);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;

 private:
  class Work;  ///< a scope in which changes are held back

  void pressCharacters(QKeyEvent* event, const QStringList& units);
  KeyFate askKeyPress(const QString& unit, QString& typed);
  QString fitting(const QString& text) const;
  void insertFitting(const QString& text);
  void flush();

  EditEvents* events_ = nullptr;
  QString known_;  ///< the text as last reported
  int limit_ = 0;
  int working_ = 0;      ///< depth of `Work`
  bool edited_ = false;  ///< the operator has changed something
};

}  // namespace tessaria::qt
