// An operator who is asked whether to connect again.
#pragma once

#include <functional>

#include "tessaria/host/reconnecting.h"
#include "tessaria/thread_state.h"

namespace tessaria::sql::test {

/// The operator's actions and answers, the thread's for as long as it lives.
class FakeOperator final : public host::ReconnectView {
 public:
  FakeOperator() { State().reconnecting = this; }
  ~FakeOperator() override { State().reconnecting = nullptr; }

  /// The next action begins.
  void Act() { ++action; }

  Long action = 1;
  bool says = true;
  int asked = 0;
  std::function<void()> whileAsked = [] {};

  Long Action() override { return action; }
  bool Allows() override {
    ++asked;
    whileAsked();
    return says;
  }
};

}  // namespace tessaria::sql::test
