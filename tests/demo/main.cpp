// Runs the tests of the demo application with one application object.

#include <gtest/gtest.h>

#include <QApplication>

#include "hosts/qt/host.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  tessaria::qt::install();
  return RUN_ALL_TESTS();
}
