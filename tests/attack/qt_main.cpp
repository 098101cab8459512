// Runs an attack on windows and prints what it counted.
#include <gtest/gtest.h>

#include <QApplication>

#include "tests/attack/run.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  tessaria::attack::ReadSettings(argc, argv);
  const QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("fusion"));
  const int status = RUN_ALL_TESTS();
  tessaria::attack::PrintCounts();
  return status;
}
