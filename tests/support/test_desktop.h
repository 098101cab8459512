// A memory desktop whose faults fail the test.
#pragma once

#include <gtest/gtest.h>

#include "tessaria/memory/dialogs/desktop.h"
#include "tessaria/text.h"

namespace tessaria::test {

class TestDesktop {
 public:
  memory::Desktop* operator->() { return &desktop_; }
  memory::Desktop& operator*() { return desktop_; }

 private:
  memory::Desktop desktop_{[](const String& message) { ADD_FAILURE() << ToUtf8(message); }};
};

}  // namespace tessaria::test
