#include "apps/demo/quit_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QSocketNotifier>
#include <csignal>

namespace tessaria::demo {
namespace {

int pipeEnds[2] = {-1, -1};
int received = 0;

/// A signal handler may call very little, so it notifies the event loop through a pipe.
void tellLoop(int signal) {
  const auto number = static_cast<unsigned char>(signal);
  [[maybe_unused]] const auto written = write(pipeEnds[1], &number, 1);
}

}  // namespace

void quitOnSignals(QApplication& application) {
  if (pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0) return;
  auto* notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, &application);
  QObject::connect(notifier, &QSocketNotifier::activated, &application, [] {
    unsigned char number = 0;
    if (read(pipeEnds[0], &number, 1) != 1) return;
    received = number;
    QCoreApplication::exit();
  });
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, tellLoop);
}

/// A signal may have come before the event loop ran.
int runUntilSignal() {
  const int result = received ? 0 : QApplication::exec();
  return received ? 128 + received : result;
}

}  // namespace tessaria::demo
