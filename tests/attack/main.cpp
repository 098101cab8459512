// Runs an attack and prints what it counted.
#include <gtest/gtest.h>

#include "tests/attack/run.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  tessaria::attack::ReadSettings(argc, argv);
  const int status = RUN_ALL_TESTS();
  tessaria::attack::PrintCounts();
  return status;
}
