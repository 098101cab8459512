// Windows stay alive while the program waits for a database server.
#pragma once

#include <QPointer>
#include <exception>
#include <memory>
#include <vector>

#include "tessaria/host/waiting.h"

class QLabel;

namespace tessaria::qt {

class WaitInput;

/// The view of a Qt program. During a wait windows repaint and the pointer shows it; after two
/// seconds a line in the window in front says what is awaited, for how long, and how many rows
/// came. Of the keys only Escape is read, which gives up. Other keys wait for the end of the wait
/// and are then delivered, and so is the closing of a window; the mouse presses nothing.
class WaitView final : public host::WaitView {
 public:
  WaitView();
  ~WaitView() override;

  bool Pass(const host::Wait& wait) override;
  void Over() override;

 private:
  void letEventsIn() noexcept;
  void tellWhatWasThrown();
  void showLine(const host::Wait& wait);

  // Of the waits under way, the innermost last: what runs during a wait on one connection may wait
  // on another.
  std::vector<std::unique_ptr<WaitInput>> inputs_;
  std::size_t passing_ = 0;  // calls of Pass that have not returned
  std::exception_ptr thrown_;
  QPointer<QLabel> line_;
};

}  // namespace tessaria::qt
