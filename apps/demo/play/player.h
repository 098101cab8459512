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

/// A text of the session.
inline QString s(const char* text) { return QString::fromUtf8(text); }

/// Every step acts on what has the focus, as an operator's hands do, and then waits until the
/// program is at rest. A step that does not find what it expects notes a failure, and so does a
/// window that was not announced; nothing is done after the first one. Names are looked for in
/// the window in front, and among forms on the one that shows.
class Player final : public QObject {
  Q_OBJECT

 public:
  /// Pictures go into `pictures`; with an empty one none are made. `window` is shown.
  Player(QWidget& window, const QString& pictures);

  /// Names the steps that follow, for the listing and in failures.
  void stage(const QString& title);

  // Hands
  /// Types characters: accents that are composed with a dead key come as an input method's text.
  void type(const QString& text);
  /// A key, or several with modifiers: "Tab", "Alt+S".
  void press(const QString& keys);
  void press(const QString& keys, int times);
  void click(const QString& name);
  /// Tab until the focus is on the widget of that name.
  void tabTo(const QString& name);
  /// The mouse on the caption of a column of the list in front.
  void clickHeader(int column);

  // Eyes
  // Windows that are announced one after the other come one after the other.
  /// The next step must bring up a box with exactly this text; it is answered with the key.
  void expectBox(const QString& text, const QString& picture = {},
                 const QString& answer = QStringLiteral("Return"));
  /// The same with a box whose text begins so: what follows is the database's own.
  void expectRefusal(const QString& beginning, const QString& picture, const QString& answer);
  /// The next step must bring up this dialog, or with an empty name a menu. `work` plays in it
  /// and closes it with its last step.
  void expectWindow(const QString& name, std::function<void()> work);
  void expectFocus(const QString& name);
  void expectText(const QString& field, const QString& text);
  /// What a label or the status bar shows.
  void expectShown(const QString& name, const QString& text);
  /// The list in front has so many rows (or any number, with -1), and this text in a cell of its
  /// first one.
  void expectList(int rows, int column, const QString& first);
  void expect(bool holds, const QString& what);
  void picture(const QString& name);

  /// Everything that was not as expected.
  const QStringList& failures() const { return failures_; }

 private:
  /// A window that is to come: a box, which is answered, or one that is worked.
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
  qsizetype later_ = 0;           ///< the last of them, which come when the window in front is gone
  QList<QPointer<QWidget>> met_;  ///< windows that came and may still be open, in order
  QStringList failures_;
};

}  // namespace tessaria::demo
