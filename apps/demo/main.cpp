// The order desk of a small trading company.
#include <QApplication>
#include <QPalette>
#include <cstdio>
#include <memory>

#include "apps/demo/cluster.h"
#include "apps/demo/dark_palette.h"
#include "apps/demo/database.h"
#include "apps/demo/failure.h"
#include "apps/demo/main_window.h"
#include "apps/demo/messages.h"
#include "apps/demo/options.h"
#include "apps/demo/play/play.h"
#include "apps/demo/quit_signals.h"
#include "tessaria/comforts.h"
#include "tessaria/qt/host.h"

namespace tessaria::demo {
namespace {

int runDesk(const Options& options) {
  std::unique_ptr<Cluster> server;
  QString connection = options.connectionString;
  if (connection.isEmpty()) {
    server = std::make_unique<Cluster>(options.dataFolder);
    server->start();
    connection = server->connectionString();
  }
  Database database(connection, server.get(), options.driver);
  database.open();
  MainWindow window(database);
  window.show();
  return runUntilSignal();
}

/// Prints the failure to the error output, and shows it in a box if asked to.
int report(const Failure& failure, bool inABox) {
  std::fprintf(stderr, "%s\n", qPrintable(failure.text()));
  if (inABox) warn(failure.text());
  return EXIT_FAILURE;
}

/// A window without a screen passes on no size hints, is not raised and grabs no keyboard, and Qt
/// warns about this each time.
void dropKnownNoise(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (text.startsWith(QLatin1String("This plugin does not support"))) return;
  std::fprintf(stderr, "%s\n", qPrintable(qFormatLogMessage(type, context, text)));
}

bool hasScreen() { return QGuiApplication::platformName() != QLatin1String("offscreen"); }

int run(int argc, char** argv) {
  qInstallMessageHandler(dropKnownNoise);
  QApplication application(argc, argv);
  QCoreApplication::setOrganizationName(QStringLiteral("Tessaria"));
  QCoreApplication::setApplicationName(QStringLiteral("tessaria-demo"));
  QGuiApplication::setApplicationDisplayName(QStringLiteral("Tessaria"));
  setComforts(Comforts::All());
  qt::install();
  quitOnSignals(application);
  Options options;
  try {
    options = readOptions(QCoreApplication::arguments());
    if (options.isDark) QApplication::setPalette(darkPalette());
    if (!options.playFolder.isEmpty()) return play(options.playFolder, options.driver);
    return runDesk(options);
  } catch (const Failure& failure) {
    return report(failure, options.playFolder.isEmpty() && hasScreen());
  }
}

}  // namespace
}  // namespace tessaria::demo

int main(int argc, char** argv) { return tessaria::demo::run(argc, argv); }
