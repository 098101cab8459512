// The window of a dialog and its modal loop.
#pragma once

#include <QDialog>
#include <QPointer>
#include <functional>

class QEventLoop;

namespace tessaria::qt {

/// No widget owns the window, so that it outlives the form that it opened over: when that is
/// hidden or destroyed the window hides, and its loop returns.
/// Enter presses the default button; Escape the one with the property "Cancel", or hides.
class DialogWindow final : public QDialog {
  Q_OBJECT

 public:
  DialogWindow(const QString& name, const QString& title);

  /// Shows the window over the active one, calls `shown`, and returns when it is hidden.
  void run(const std::function<void()>& shown);
  /// Makes room for all that the widgets would like to show.
  void widenToHint();
  bool isRunning() const { return running_; }
  /// Asked when the operator closes the window by its frame: true when that is seen to.
  std::function<bool()> closeByFrame;
  /// Told of each new size. Must not throw.
  std::function<void()> sizeChanged;
  /// Told when the window is the active one again. Must not throw.
  std::function<void()> cameBack;

 protected:
  bool event(QEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void follow(QWidget* owner);
  void keepOnScreen(const QWidget* owner);
  void waitUntilHidden();

  QEventLoop* loop_ = nullptr;
  bool running_ = false;
  bool wasLeft_ = false;  ///< another window has become the active one
};

}  // namespace tessaria::qt
