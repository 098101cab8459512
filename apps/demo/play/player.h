// Plays an operator: real keys and clicks into real windows.
#pragma once

#include <QDir>
#include <QKeySequence>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <optional>

class QMessageBox;

namespace tessaria::demo {

/// Every step acts on what has the focus, as an operator's hands do, and then waits until the
/// program is at rest. A step that does not find what it expects notes a failure, and so does a
/// message box that was not announced; nothing is done after the first one.
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

  // Eyes
  /// The next step must bring up a box with exactly this text; it is answered with the key.
  void expectBox(const QString& text, const QString& picture = {},
                 const QString& answer = QStringLiteral("Return"));
  void expectFocus(const QString& name);
  void expectText(const QString& field, const QString& text);
  /// What a label or the status bar shows.
  void expectShown(const QString& name, const QString& text);
  void expect(bool holds, const QString& what);
  void picture(const QString& name);

  /// Everything that was not as expected.
  const QStringList& failures() const { return failures_; }

 private:
  struct ExpectedBox {
    QString text;
    QString picture;
    QString answer;
  };

  bool isPlaying() const { return failures_.isEmpty() && window_; }
  QWidget* focus() const;
  template <class Action>
  void step(Action&& action);
  void waitForRest();
  bool sees(const std::function<bool()>& condition) const;
  void sendKeys(QWidget* target, const QString& keys);
  void answerBox();
  void meet(const QMessageBox& box);
  void pictureOfBox(const QMessageBox& box, const QString& name);
  void save(const QPixmap& picture, const QString& name);
  void fail(const QString& what);

  QPointer<QWidget> window_;
  QDir pictures_;
  bool makesPictures_;
  int pictureCount_ = 0;
  QString stage_;
  std::optional<ExpectedBox> expected_;
  QPointer<QMessageBox> met_;  ///< the box that was answered last
  QTimer watch_;
  QStringList failures_;
};

}  // namespace tessaria::demo
