// Plays an operator: real keys and clicks into real windows.
#pragma once

#include <QDir>
#include <QKeySequence>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QWidget>
#include <functional>

class QMessageBox;
class QTableView;

namespace tessaria::demo {

/// A literal of the session as a QString.
inline QString s(const char* text) { return QString::fromUtf8(text); }

/// Every step acts on the widget that has the focus, as an operator does, and then waits until the
/// program is idle. A step that does not find what it expects records a failure, and so does a
/// window that was not announced; nothing is done after the first failure. Names are searched in
/// the window in front, and there on the form that is shown.
class Player final : public QObject {
  Q_OBJECT

 public:
  /// Pictures go into `pictures`; with an empty name there are none. `window` is already shown.
  Player(QWidget& window, const QString& pictures);

  /// Names the steps that follow, for the listing and in failures.
  void stage(const QString& title);

  // Input
  /// Types characters: accented letters that need a dead key are sent as an input method's text.
  void type(const QString& text);
  /// A key, or several with modifiers: "Tab", "Alt+S".
  void press(const QString& keys);
  void press(const QString& keys, int times);
  void click(const QString& name);
  /// Presses Tab until the focus is on the widget of that name.
  void tabTo(const QString& name);
  /// Acts while the next step waits for the database, so many milliseconds after it began.
  void whileWaiting(int milliseconds, std::function<void()> act);
  /// A key by itself: nothing is waited for, and no window is expected.
  void key(const QString& name);
  /// Clicks the caption of a column of the list in front.
  void clickHeader(int column);

  // Checks
  // Windows must open in the order in which they are announced.
  /// The next step must bring up a box with exactly this text; it is answered with the key.
  void expectBox(const QString& text, const QString& picture = {},
                 const QString& answer = QStringLiteral("Return"));
  /// The same for a box whose text begins with `beginning`: the rest is the database's own.
  void expectRefusal(const QString& beginning, const QString& picture, const QString& answer);
  /// The next step must open this dialog, or with an empty name a menu. `work` acts in it and
  /// closes it with its last step.
  void expectWindow(const QString& name, std::function<void()> work);
  void expectFocus(const QString& name);
  void expectText(const QString& field, const QString& text);
  /// What a label or the status bar shows.
  void expectShown(const QString& name, const QString& text);
  /// The list in front must have `rows` rows (or any number, with -1), and the text `first` in that
  /// column of the first row.
  void expectList(int rows, int column, const QString& first);
  /// What the item grid of the form shows in a cell; the row counts from 1, the column from 0.
  void expectItem(int row, int column, const QString& text);
  void expect(bool holds, const QString& what);
  void picture(const QString& name);

  /// Everything that was not as expected.
  const QStringList& failures() const { return failures_; }

 private:
  /// An announced window: a box, which is answered, or a window in which `work` acts.
  struct Expected {
    QString name;
    QString text;
    QString picture;
    QString answer;
    bool isWhole;  ///< the box has no more than the text
    std::function<void()> work;
  };

  bool isPlaying() const { return failures_.isEmpty() && window_; }
  QWidget* front() const;
  QWidget* focus() const;
  QWidget* find(const QString& name) const;
  QTableView* list() const;
  template <class Action>
  void step(Action&& action);
  void waitForRest();
  bool sees(const std::function<bool()>& condition) const;
  void sendKeys(QWidget* target, const QString& keys);
  void expectNext(const Expected& expected);
  void watchSoon();
  void watch();
  void answer(QMessageBox& box, const Expected& expected);
  void workIn(QWidget& met, const Expected& expected);
  void save(const QPixmap& picture, const QString& name);
  void fail(const QString& what);

  QPointer<QWidget> window_;
  QDir pictures_;
  bool makesPictures_;
  int pictureCount_ = 0;
  QString stage_;
  QList<Expected> expected_;      ///< the next one first
  qsizetype later_ = 0;           ///< how many of them open after the window in front has closed
  QList<QPointer<QWidget>> met_;  ///< windows that have opened and may still be open, in order
  QStringList failures_;
};

}  // namespace tessaria::demo
