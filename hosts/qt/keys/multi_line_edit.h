// The edit of a box with several lines, whose keys pass through handlers first.
#pragma once

#include <QPlainTextEdit>

#include "hosts/qt/keys/text_edit.h"

namespace tessaria::qt {

/// Order of a key: key-down, key-press per character, edit, change, key-up, as in a `LineEdit`. The
/// Tab key moves the focus. Lines end as in the text that was assigned: with "\n" when it had only
/// those, otherwise with "\r\n", both of whose characters count; a position between the two counts
/// as the end of the line. A text that nobody has edited stays as it was assigned, whatever its
/// ends. A hidden text is not possible here.
class MultiLineEdit final : public QPlainTextEdit, public TextEdit {
  Q_OBJECT

 public:
  explicit MultiLineEdit(QWidget* parent = nullptr);

  QString boxText() const override;
  void assignText(const QString& text) override;
  void replaceSelection(const QString& text) override;
  int selStart() const override;
  int selLength() const override;
  void setSelStart(int position) override { select(position, 0); }
  void setSelLength(int length) override { select(selStart(), length); }
  bool isAlignedRight() const override;
  void alignRight(bool right) override;
  void hideText(bool) override {}
  void showPlaceholder(const QString& text) override { setPlaceholderText(text); }
  bool hasSeveralLines() const override { return true; }
  QSize boxHint() const override { return hintFor(4); }
  QSize leastBoxHint() const override { return hintFor(2); }

  QWidget& widget() override { return *this; }
  void keepSelectionOverClick() override {}

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void keyReleaseEvent(QKeyEvent* event) override;
  void inputMethodEvent(QInputMethodEvent* event) override;
  void insertFromMimeData(const QMimeData* source) override;
  void dropEvent(QDropEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  class Work;  ///< a scope in which changes are held back

  void pressCharacters(QKeyEvent* event, const QStringList& units);
  void select(int start, int length);
  int lengthOf(const QString& text) const;
  int fromBox(const QString& text, int position) const;
  QString fitting(const QString& text) const;
  void insertFitting(const QString& text);
  QSize hintFor(int lines) const;
  void flush();

  QString known_;              ///< the text as last reported
  QString assigned_;           ///< the text as it was assigned
  int assignedRevision_ = -1;  ///< of the document then
  QString lineEnd_ = QStringLiteral("\r\n");
  int working_ = 0;      ///< depth of `Work`
  int handledKeys_ = 0;  ///< keys under way, which have a key-up of their own
  bool edited_ = false;  ///< the operator has changed something
};

}  // namespace tessaria::qt
