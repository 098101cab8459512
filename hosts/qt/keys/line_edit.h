// The edit of a control: a QLineEdit whose keys pass through handlers first.
#pragma once

#include <QClipboard>
#include <QLineEdit>
#include <QPointer>
#include <functional>
#include <optional>
#include <utility>

#include "hosts/qt/keys/edit_commands.h"
#include "hosts/qt/keys/edit_history.h"
#include "hosts/qt/keys/text_edit.h"

class QInputMethodEvent;

namespace tessaria::qt {

/// Order of a key: key-down, key-press per character, edit, change, key-up; the handlers are
/// called before the edit acts. Releases made by auto-repeat are ignored. Changes are reported
/// after Qt has finished handling the event, so that a handler may destroy the edit.
class LineEdit final : public QLineEdit, public TextEdit {
  Q_OBJECT

 public:
  explicit LineEdit(QWidget* parent = nullptr);

  MaskInUse maskInUse() const;

  QString boxText() const override { return text(); }
  void assignText(const QString& text) override;
  void replaceSelection(const QString& text) override;
  /// The selection is kept while the focus is elsewhere, though it is not shown.
  int selStart() const override;
  int selLength() const override;
  void setSelStart(int position) override;
  void setSelLength(int length) override;
  bool isAlignedRight() const override { return alignment().testFlag(Qt::AlignRight); }
  void alignRight(bool right) override;
  void hideText(bool hidden) override { setEchoMode(hidden ? Password : Normal); }
  void showPlaceholder(const QString& text) override { setPlaceholderText(text); }
  bool hasSeveralLines() const override { return false; }
  QSize boxHint() const override { return sizeHint(); }
  QSize leastBoxHint() const override { return minimumSizeHint(); }

  /// Sends a character as if typed: key-press and edit. Returns false if the edit is gone.
  bool typeCharacter(const QString& unit);
  /// The same, but does not edit the box if no handler has taken the character.
  bool offerCharacter(const QString& unit);
  /// Does what the Delete key does. Returns false if the edit is gone.
  bool typeDelete();
  /// Runs `body` and returns its result; its changes are reported once, at the end. If it returns
  /// false, all of them are undone.
  bool attempt(const std::function<bool()>& body);
  /// Raises one key-up of code 0, for text that came without a key.
  void reportTextWithoutKey();

  QWidget& widget() override { return *this; }
  void deliverGotFocus() override;
  void keepSelectionOverClick() override;

  bool hasUndo() const;
  bool hasRedo() const;

 public slots:  // NOLINT: the names of Qt, so that calls by name come here
  void paste();
  void cut();
  void undo();
  void redo();

 protected:
  bool event(QEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  enum class By { Handlers, Qt };  ///< who changes the text
  class Work;                      ///< a scope in which changes are held back
  class Step;                      ///< a scope that one undo reverts

  void handleKeyPress(QKeyEvent* event);
  void handleInputMethod(QInputMethodEvent* event);
  void pressCharacters(QKeyEvent* event, const QStringList& units);
  void editCommand(QKeyEvent* event);
  void act(QKeyEvent* event);
  void run(EditCommand command);
  bool keepsHistory() const;
  EditState state() const;
  void restore(const EditState& state);
  void stepThroughHistory(EditState (EditHistory::*step)(const EditState&));
  void insertTyped(const QString& typed);
  bool hasRoomFor(const QString& text) const { return fitting(text).size() == text.size(); }
  QString fitting(const QString& text) const;
  void insertFitting(const QString& text);
  void pasteFrom(QClipboard::Mode mode);
  bool takesTextWithoutKey(QEvent* event);
  bool handleMouseRelease(QEvent* event);
  void showHiddenSelection();
  bool takesBackForeignText();
  void edited();
  void flush();

  QString known_;         ///< the text as last reported
  int working_ = 0;       ///< depth of `Work`
  int typing_ = 0;        ///< depth of `Work` whose text went through the handlers
  bool trusted_ = false;  ///< the text that is not yet reported came through the handlers
  bool edited_ = false;   ///< the operator has edited it
  bool withoutKey_ = false;
  bool byKey_ = false;  ///< a key has its own key-up
  EditHistory history_;
  int steps_ = 0;                ///< depth of `Step`
  bool stepsInHistory_ = false;  ///< the present step moves in the history

  struct Selection {
    int start = 0;
    int length = 0;
  };
  std::optional<Selection> hidden_;   ///< the selection without the focus
  std::optional<Selection> entered_;  ///< to be restored when the mouse is released
};

/// Changes made meanwhile are reported at the end of the outermost one.
class LineEdit::Work {
 public:
  Work(LineEdit* edit, By by) : edit_(edit), byHandlers_(by == By::Handlers) {
    ++edit->working_;
    if (byHandlers_) ++edit->typing_;
  }
  Work(const Work&) = delete;
  Work& operator=(const Work&) = delete;
  ~Work() {
    if (!edit_) return;
    --edit_->working_;
    if (byHandlers_) {
      --edit_->typing_;
      edit_->trusted_ = true;
    }
    edit_->flush();
  }

 private:
  QPointer<LineEdit> edit_;
  const bool byHandlers_;
};

/// Only the outermost one counts.
class LineEdit::Step {
 public:
  explicit Step(LineEdit* edit) : edit_(edit) {
    if (edit->steps_++ == 0 && edit->keepsHistory()) before_ = edit->state();
  }
  Step(const Step&) = delete;
  Step& operator=(const Step&) = delete;
  ~Step() {
    if (!edit_ || --edit_->steps_ > 0) return;
    const bool inHistory = std::exchange(edit_->stepsInHistory_, false);
    if (before_ && !inHistory && !edit_->state().hasTextOf(*before_))
      edit_->history_.changed(*before_);
  }

 private:
  QPointer<LineEdit> edit_;
  std::optional<EditState> before_;
};

}  // namespace tessaria::qt
