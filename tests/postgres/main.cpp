// Runs the tests of the PostgreSQL driver; what they share with other programs uses this driver
// too.
#include <gtest/gtest.h>

#include <cstdlib>

int main(int argc, char** argv) {
  setenv("TESSARIA_DRIVER", "postgres", 1);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
