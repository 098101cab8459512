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
#include "hosts/qt/keys/edit_history.h"
#include "tessaria/string.h"

class QInputMethodEvent;

namespace tessaria::qt {

/// Where a key ended.
enum class KeyFate { LeftAlone, TakenBySurface, TakenByBox };

/// The mask that the edit works under; empty for none.
struct MaskInUse {
  String mask;
  String items;
  String prompt;
  bool isEmpty() const { return mask.empty(); }
};

/// How far a key goes.
enum class KeyReach { Box, SurfaceOnly };

/// Who got the press of a key that is released.
enum class PressedIn { Box, Elsewhere };

/// What an edit tells the outside. Any of them may destroy the edit.
class EditEvents {
 public:
  virtual ~EditEvents() = default;
  virtual void changed() = 0;
  /// The operator has put in the very text that the edit held.
  virtual void sameText() = 0;
  virtual KeyFate keyDown(Integer code, Integer shift, KeyReach reach) = 0;
  /// `code` may come back changed.
  virtual KeyFate keyPress(Integer& code) = 0;
  virtual void keyUp(Integer code, Integer shift, PressedIn where) = 0;
  virtual void gotFocus() = 0;
  virtual void lostFocus() = 0;
  virtual MaskInUse maskInUse() const = 0;
  /// What stands behind the box: the typed text, which a password hides, and whether it counts.
  /// Restoring it may write the box too.
  virtual Typing typing() const = 0;
  virtual void restoreTyping(const Typing& typing) = 0;
};

/// Order of a key: key-down, key-press per character, edit, change, key-up; the handlers are
/// asked before the edit acts. Releases made by auto-repeat are none. Changes are told after Qt's
/// own work on the event is done, so that a handler may destroy the edit.
class LineEdit final : public QLineEdit, public FocusedEdit {
  Q_OBJECT

 public:
  explicit LineEdit(QWidget* parent = nullptr);

  /// Not owned; nullptr for none.
  void setEvents(EditEvents* events) { events_ = events; }
  MaskInUse maskInUse() const;

  /// Assigns the text whole: caret at 0, nothing selected.
  void assignText(const QString& text);
  /// Replaces the selection by the whole text; the caret ends behind it.
  void replaceSelection(const QString& text);
  /// The selection stands while the focus is elsewhere, though it is not shown.
  int selStart() const;
  int selLength() const;
  QString selText() const { return text().mid(selStart(), selLength()); }
  void setSelStart(int position);
  void setSelLength(int length);
  /// Most characters that the operator may bring the text to; 0 is no limit.
  int limit() const { return limit_; }
  void setLimit(int characters) { limit_ = std::max(characters, 0); }

  /// Sends a character the way of a typed one, key-press and edit. False when the edit is gone.
  bool typeCharacter(const QString& unit);
  /// The same, without the edit of the box itself when no handler took the character.
  bool offerCharacter(const QString& unit);
  /// Sends Delete as the key does. False when the edit is gone.
  bool typeDelete();
  /// Runs `body`; what it changes is told once, at the end. When it returns false all is taken
  /// back, and so is the result.
  bool attempt(const std::function<bool()>& body);
  /// One key-up of code 0: text came without a key.
  void reportTextWithoutKey();

  QWidget& widget() override { return *this; }
  void deliverGotFocus() override;
  void deliverLostFocus() override;
  void keepSelectionOverClick() override;

  bool hasUndo() const;
  bool hasRedo() const;

 public slots:  // NOLINT: Qt's own names, so that callers by name come here
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
  class Work;                      ///< a stretch in which changes are kept back
  class Step;                      ///< what one undo takes back

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
  QHash<quint64, Integer> held_;  ///< codes of the keys whose release is awaited, by `keyOf`
  QString known_;                 ///< the text as last told
  int limit_ = 0;
  int working_ = 0;       ///< depth of `Work`
  int typing_ = 0;        ///< depth of `Work` whose text went through the handlers
  bool trusted_ = false;  ///< the text not told yet came that way
  bool edited_ = false;   ///< the operator did something to it
  bool withoutKey_ = false;
  bool byKey_ = false;  ///< a key has its own key-up
  EditHistory history_;
  int steps_ = 0;                ///< depth of `Step`
  bool stepsInHistory_ = false;  ///< the present one moves in the history

  struct Selection {
    int start = 0;
    int length = 0;
  };
  std::optional<Selection> hidden_;   ///< stands without the focus
  std::optional<Selection> entered_;  ///< to come back when the mouse is released
};

/// What changes meanwhile is told at the end of the outermost one.
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

/// The outermost one counts.
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
