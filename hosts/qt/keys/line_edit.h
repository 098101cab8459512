// The edit of a control: a QLineEdit whose keys pass through handlers first.
#pragma once

#include <QClipboard>
#include <QHash>
#include <QLineEdit>
#include <QPointer>
#include <algorithm>
#include <functional>
#include <optional>
#include <utility>

#include "hosts/qt/focus/focused_edit.h"
#include "hosts/qt/keys/edit_commands.h"
#include "hosts/qt/keys/edit_events.h"
#include "hosts/qt/keys/edit_history.h"
#include "tessaria/string.h"

class QInputMethodEvent;

namespace tessaria::qt {

/// Order of a key: key-down, key-press per character, edit, change, key-up; the handlers are
/// called before the edit acts. Releases made by auto-repeat are ignored. Changes are reported
/// after Qt has finished handling the event, so that a handler may destroy the edit.
class LineEdit final : public QLineEdit, public FocusedEdit {
  Q_OBJECT

 public:
  explicit LineEdit(QWidget* parent = nullptr);

  /// Not owned; nullptr for none.
  void setEvents(EditEvents* events) { events_ = events; }
  MaskInUse maskInUse() const;

  /// Assigns the text without any limit: caret at 0, nothing selected.
  void assignText(const QString& text);
  /// Replaces the selection by the text without any limit; the caret is then after it.
  void replaceSelection(const QString& text);
  /// The selection is kept while the focus is elsewhere, though it is not shown.
  int selStart() const;
  int selLength() const;
  QString selText() const { return text().mid(selStart(), selLength()); }
  void setSelStart(int position);
  void setSelLength(int length);
  /// The maximum length in characters that the operator can make the text; 0 is no limit.
  int limit() const { return limit_; }
  void setLimit(int characters) { limit_ = std::max(characters, 0); }

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
  void deliverLostFocus() override;
  void keepSelectionOverClick() override;

  /// Sets the description for screen readers.
  void describe(const QString& text);
  /// Another description in its place, until the text changes.
  void describeUntilChange(const QString& text);

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
  void handleKeyRelease(QKeyEvent* event);
  void handleInputMethod(QInputMethodEvent* event);
  void pressCharacters(QKeyEvent* event, const QStringList& units);
  void editCommand(QKeyEvent* event);
  void act(QKeyEvent* event);
  void run(EditCommand command);
  bool keepsHistory() const;
  EditState state() const;
  void restore(const EditState& state);
  void stepThroughHistory(EditState (EditHistory::*step)(const EditState&));
  KeyFate askKeyPress(const QString& unit, QString& typed);
  void insertTyped(const QString& typed);
  bool hasRoomFor(const QString& text) const { return fitting(text).size() == text.size(); }
  QString fitting(const QString& text) const;
  void insertFitting(const QString& text);
  void pasteFrom(QClipboard::Mode mode);
  bool takesTextWithoutKey(QEvent* event);
  bool takesFocusForDrop();
  bool handleMouseRelease(QEvent* event);
  void showHiddenSelection();
  bool takesBackForeignText();
  void edited();
  void flush();

  EditEvents* events_ = nullptr;
  QHash<quint64, Integer> held_;    ///< codes of the keys whose release is awaited, by `keyOf`
  QString known_;                   ///< the text as last reported
  std::optional<QString> lasting_;  ///< the description that another one stands for
  int limit_ = 0;
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
