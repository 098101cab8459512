// Shared by the tests of the pickers: a program and a desktop in memory, and a field's box.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessaria/memory/application.h"
#include "tessaria/memory/text_box.h"
#include "tessaria/thread_state.h"
#include "tests/support/printers.h"
#include "tests/support/test_desktop.h"

namespace tessaria::test {

class PickerTest : public testing::Test {
 protected:
  using Script = memory::ModalScript::Script;
  using Box = memory::MessageBoxRecord;

  memory::Application app;
  TestDesktop desktop;
  memory::TextBox box;
};

}  // namespace tessaria::test
