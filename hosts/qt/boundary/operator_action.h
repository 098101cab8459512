// Which action of the operator the program is working on.
#pragma once

#include <QObject>
#include <vector>

#include "tessaria/string.h"

namespace tessaria::qt {

/// The number of the present action; 0 for the work of timers and of sockets. A key or a mouse
/// button with its release, a turn of the wheel, a drop, a text of an input method and the closing
/// of a window by its frame are one action each, and so is what they queue. An action lasts through
/// the event loops that run in it.
Long presentAction();

/// During its lifetime the present action is another one, which may be 0.
class DuringAction {
 public:
  explicit DuringAction(Long action);
  DuringAction(const DuringAction&) = delete;
  DuringAction& operator=(const DuringAction&) = delete;
  ~DuringAction();

 private:
  std::vector<Long> before_;
};

/// Follows the events of the program. It must see them before anything works on them.
class ActionWatch final : public QObject {
 public:
  explicit ActionWatch(QObject* parent);

 protected:
  bool eventFilter(QObject* receiver, QEvent* event) override;
};

}  // namespace tessaria::qt
