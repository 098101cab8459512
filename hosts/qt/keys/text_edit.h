// What the edits of one line and of several lines have in common for the port over them.
#pragma once

#include <QSize>
#include <QString>
#include <algorithm>
#include <optional>

#include "hosts/qt/focus/focused_edit.h"
#include "hosts/qt/keys/edit_events.h"
#include "hosts/qt/keys/held_keys.h"

namespace tessaria::qt {

/// Implemented by a widget. Positions and lengths count the characters of `boxText`.
class TextEdit : public FocusedEdit {
 public:
  /// Not owned; nullptr for none.
  void setEvents(EditEvents* events) { events_ = events; }

  virtual QString boxText() const = 0;
  /// Assigns the text without any limit: caret at 0, nothing selected.
  virtual void assignText(const QString& text) = 0;
  /// Replaces the selection by the text without any limit; the caret is then after it.
  virtual void replaceSelection(const QString& text) = 0;
  virtual int selStart() const = 0;
  virtual int selLength() const = 0;
  QString selText() const { return boxText().mid(selStart(), selLength()); }
  virtual void setSelStart(int position) = 0;
  virtual void setSelLength(int length) = 0;
  /// The maximum length in characters that the operator can make the text; 0 is no limit.
  int limit() const { return limit_; }
  void setLimit(int characters) { limit_ = std::max(characters, 0); }

  virtual bool isAlignedRight() const = 0;
  virtual void alignRight(bool right) = 0;
  /// Whether the text is hidden as a password is.
  virtual void hideText(bool hidden) = 0;
  virtual void showPlaceholder(const QString& text) = 0;
  virtual bool hasSeveralLines() const = 0;
  /// The sizes that a field asks for its box.
  virtual QSize boxHint() const = 0;
  virtual QSize leastBoxHint() const = 0;

  void deliverGotFocus() override;
  void deliverLostFocus() override;

  /// Sets the description for screen readers.
  void describe(const QString& text);
  /// Another description in its place, until the text changes.
  void describeUntilChange(const QString& text);

 protected:
  ~TextEdit() = default;

  /// Calls the handlers; `typed` receives the character as they have changed it.
  KeyFate askKeyPress(const QString& unit, QString& typed);
  /// Notes a press and calls the handlers.
  KeyFate askKeyDown(const QKeyEvent& event, KeyReach reach);
  /// Whether the key has been held since it closed a dialog, for example: it must not act here.
  bool isHeldFromElsewhere(const QKeyEvent& event) const;
  void reportKeyRelease(QKeyEvent& event);
  /// The text has changed: its lasting description comes back.
  void endDescription();
  /// A drop goes where the mouse is, and takes the focus there: a field that is never entered is
  /// never left, and its text would be neither checked nor assigned. Returns false if the field did
  /// not get the focus.
  bool takesFocusForDrop();

  EditEvents* events_ = nullptr;
  HeldKeys held_;
  int limit_ = 0;

 private:
  std::optional<QString> lasting_;  ///< the description that another one stands for
};

}  // namespace tessaria::qt
