// Ends the program cleanly when the system asks it to end.
#pragma once

class QApplication;

namespace tessaria::demo {

/// Makes SIGINT, SIGTERM and SIGHUP end `runUntilSignal`, so that the program's own server is
/// stopped.
void quitOnSignals(QApplication& application);

/// Runs the event loop. Returns its result, or 128 plus the number of a signal that came since
/// `quitOnSignals`.
int runUntilSignal();

}  // namespace tessaria::demo
