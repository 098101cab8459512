// The operator's input while the program waits for a database server.
#pragma once

#include <QEvent>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <memory>
#include <vector>

namespace tessaria::qt {

/// During its lifetime Escape is read and all other input is kept from the widgets. Keys and texts
/// of input methods, the release of a mouse button that was already pressed, and the closing of
/// windows are delivered by its destructor in their order; all else of mouse, wheel, touch and drop
/// does nothing. So are rules that `runLater` was asked for. A window that opens meanwhile, in an
/// event loop of its own, has its input and its rules.
class WaitInput final : public QObject {
 public:
  WaitInput();
  ~WaitInput() override;

  /// Whether Escape was pressed since the last call.
  bool takeEscape();

  /// Whether the innermost event loop waits for a server.
  static bool isUnderWay();
  /// Keeps a rule until the end of the wait that is under way.
  static void keep(QObject& context, std::function<void()> rule);

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  struct Kept {
    QPointer<QObject> receiver;
    std::unique_ptr<QEvent> event;
  };

  bool holdKey(QObject* receiver, QEvent* event);
  bool holdClosing(QObject* receiver, QEvent* event);

  struct KeptRule {
    QPointer<QObject> context;
    std::function<void()> rule;
  };
  struct Closing {
    QPointer<QWidget> window;
    bool byFrame;
  };

  std::vector<Kept> kept_;
  std::vector<KeptRule> rules_;
  std::vector<Closing> closing_;
  WaitInput* outer_;
  bool escape_ = false;
  bool isPressed_ = false;  // a mouse button, since the wait began
  int loopLevel_;           // of the loop that waits
};

/// Runs a rule of the domain from the event loop, as long as its context lives; never while the
/// program waits for a server.
void runLater(QObject* context, std::function<void()> rule);

/// Whether the window's frame asks it to close, also when that had to wait.
bool closesByFrame(const QObject& window, const QEvent& close);

}  // namespace tessaria::qt
