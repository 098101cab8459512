// The window of a dialog and its modal loop.
#pragma once

#include <QDialog>
#include <QPointer>
#include <functional>

class QEventLoop;

namespace tessaria::qt {

/// No widget owns the window, so that it outlives the form that it opened over: when the form is
/// hidden or destroyed, the window hides and its loop returns.
/// Each show begins where the first one did: the focus returns there when the window hides.
/// Enter presses the default button; Escape the one with the property "Cancel", or hides.
class DialogWindow final : public QDialog {
  Q_OBJECT

 public:
  explicit DialogWindow(const QString& title);

  /// Shows the window over the active one, calls `shown`, and returns when it is hidden.
  void run(const std::function<void()>& shown);
  /// Widens the window to the size hint of its widgets.
  void widenToHint();
  bool isRunning() const { return running_; }
  /// Called when the operator closes the window by its frame: returns true if it has handled that.
  std::function<bool()> closeByFrame;
  /// Called with each new size. Must not throw.
  std::function<void()> sizeChanged;
  /// Called when the window becomes active again. Must not throw.
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
  QPointer<QWidget> first_;  ///< had the focus when the window showed for the first time
  bool running_ = false;
  bool wasLeft_ = false;  ///< another window has become the active one
};

}  // namespace tessaria::qt
