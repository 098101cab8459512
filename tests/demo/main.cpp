// Runs the tests of the demo application with one application object and all comforts, as the
// application itself does.

#include <gtest/gtest.h>

#include <QApplication>

#include "tessaria/comforts.h"
#include "tessaria/qt/host.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  tessaria::setComforts(tessaria::Comforts::All());
  tessaria::qt::install();
  return RUN_ALL_TESTS();
}
