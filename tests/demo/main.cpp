// Runs the tests of the demo application with one application object and all comforts, as the
// application itself does.

#include <gtest/gtest.h>

#include <QApplication>

#include "apps/demo/dark_palette.h"
#include "tessaria/comforts.h"
#include "tessaria/qt/host.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  tessaria::setComforts(tessaria::Comforts::All());
  tessaria::qt::install();
  if (qEnvironmentVariableIsSet("TESSARIA_DARK"))
    QApplication::setPalette(tessaria::demo::darkPalette());
  return RUN_ALL_TESTS();
}
