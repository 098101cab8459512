// A view of waits that notes them and lets a test act in them.
#pragma once

#include <functional>

#include "tessaria/host/waiting.h"
#include "tessaria/thread_state.h"

namespace tessaria::sql::test {

/// The thread's view for as long as it lives.
class Watcher final : public host::WaitView {
 public:
  Watcher() { State().waiting = this; }
  ~Watcher() override { State().waiting = nullptr; }

  std::function<bool(const host::Wait&)> onPass = [](const host::Wait&) { return false; };
  int passes = 0;
  int ends = 0;

  bool Pass(const host::Wait& wait) override {
    ++passes;
    return onPass(wait);
  }
  void Over() override { ++ends; }
};

}  // namespace tessaria::sql::test
