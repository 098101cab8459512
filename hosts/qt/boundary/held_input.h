// Holds back the operator's input while events are processed.
#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <memory>
#include <vector>

namespace tessaria::qt {

/// During its lifetime, keys and texts of input methods that are delivered to a widget are held
/// back; its destructor posts them to the widget again, in order. Input that the window system has
/// still queued is not affected: it stays in the queue. A window that is opened meanwhile, in an
/// event loop of its own, receives its keys.
class HeldInput final : public QObject {
 public:
  HeldInput();
  ~HeldInput() override;

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;

 private:
  struct Kept {
    QPointer<QObject> receiver;
    std::unique_ptr<QEvent> event;
  };
  std::vector<Kept> kept_;
  int loopLevel_;  ///< of the loop that processes the events
};

}  // namespace tessaria::qt
