// Keeps what the operator types out of a pumping of events.
#pragma once

#include <QEvent>
#include <QObject>
#include <QPointer>
#include <memory>
#include <vector>

namespace tessaria::qt {

/// While it lives, keys and texts of input methods that are delivered to a widget are kept back;
/// at its end they are posted to it again, in their order. What the window system has still
/// queued is none of its business: a pumping leaves that where it is. A window that is opened
/// inside the pumping, in a loop of its own, takes its keys.
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
  int loopLevel_;  ///< of the pumping
};

}  // namespace tessaria::qt
