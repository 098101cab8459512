// The operator's input while the program waits for a database server.
#pragma once

#include <QEvent>
#include <QList>
#include <QObject>
#include <QPointer>
#include <QWidget>
#include <memory>
#include <vector>

namespace tessaria::qt {

/// During its lifetime Escape is read and all other input is kept from the widgets. Keys and texts
/// of input methods, the release of a mouse button that was already pressed, and the closing of
/// windows are delivered by its destructor in their order; all else of mouse, wheel, touch and drop
/// does nothing. A window that opens meanwhile, in an event loop of its own, has its input.
class WaitInput final : public QObject {
 public:
  WaitInput();
  ~WaitInput() override;

  /// Whether Escape was pressed since the last call.
  bool takeEscape();

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  struct Kept {
    QPointer<QObject> receiver;
    std::unique_ptr<QEvent> event;
  };

  bool holdKey(QObject* receiver, QEvent* event);
  bool holdClosing(QObject* receiver, QEvent* event);

  std::vector<Kept> kept_;
  QList<QPointer<QWidget>> closing_;
  bool escape_ = false;
  bool isPressed_ = false;  // a mouse button, since the wait began
  int loopLevel_;           // of the loop that waits
};

}  // namespace tessaria::qt
