// Runs the tests of the Qt host with one application object.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  QApplication::setStyle(QStringLiteral("fusion"));
  return RUN_ALL_TESTS();
}
