// Simulates the operator in window tests: keys, mouse, message boxes.
#pragma once

#include <QLineEdit>
#include <QPointer>
#include <QStringList>
#include <QWidget>
#include <deque>
#include <functional>
#include <vector>

#include "tessaria/qt/tstext.h"

namespace tessaria::qt::tests {

/// A box that was shown.
struct Box {
  QString text;
  QString title;
  int style = 0;
  QString owner;  ///< object name of the window that owns it
  QStringList buttons;
};

/// Answers every message box that opens and keeps its text.
class BoxKeeper final : public QObject {
 public:
  BoxKeeper();
  /// Queues the button, by its text without mnemonic, for a later box; otherwise the default one.
  void willPress(const QString& button) { answers_.push_back(button); }
  /// Runs while the next boxes are open, before they are answered.
  std::function<void()> whileOpen;
  const std::vector<Box>& boxes() const { return boxes_; }
  /// Texts of the boxes since the last call.
  QStringList takeTexts();
  int beeps() const { return beeps_; }

 private:
  void answer();

  std::vector<Box> boxes_;
  std::deque<QString> answers_;
  std::size_t taken_ = 0;
  int beeps_ = 0;
};

/// Shows the window and waits until it is active.
void showActive(QWidget& window);
/// Processes posted events until there are none.
void settleEvents();

QLineEdit* editOf(TsText& field);
/// The widget of the window that has the focus.
QWidget* focusOf(const QWidget& window);

/// Types characters into the widget that has the focus, each key pressed and released.
void type(QWidget& window, const QString& text);
void press(QWidget& window, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
/// Delivers text as a dead key or an input method does.
void commit(QWidget& window, const QString& text);
/// Asks the window to close as its frame does.
void closeByFrame(QWidget& window);
/// Presses and releases the mouse on a widget.
void click(QWidget& widget);
/// Puts a text on the clipboard and pastes it by the edit's context menu.
void pasteByMenu(QLineEdit& edit, const QString& text);
void drop(QLineEdit& edit, const QString& text, int position);
/// The entries of the edit's context menu: text without mnemonic, "-" in front when disabled.
QStringList menuOf(QLineEdit& edit);

}  // namespace tessaria::qt::tests
