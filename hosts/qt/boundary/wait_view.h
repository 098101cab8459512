// Windows stay alive while the program waits for a database server.
#pragma once

#include <QObject>
#include <QPointer>
#include <memory>
#include <vector>

#include "tessaria/host/waiting.h"

class QLabel;
class QWidget;

namespace tessaria::qt {

class WaitInput;

/// The view of a Qt program. During a wait windows repaint and the pointer shows it; after two
/// seconds a line in the window in front says how long it has lasted and how many rows have come.
/// Of the keys only Escape is read, which gives up. Other keys wait for the end of the wait and are
/// then delivered, and so is the closing of a window; the mouse does nothing.
class WaitView final : public host::WaitView {
 public:
  WaitView();
  ~WaitView() override;

  bool Pass(const host::Wait& wait) override;
  void Over() override;

 private:
  void showLine(const host::Wait& wait);

  std::unique_ptr<WaitInput> input_;  // during a wait
  QPointer<QLabel> line_;
};

}  // namespace tessaria::qt
