// Ends the program in good order when the system asks it to end.
#pragma once

class QApplication;

namespace tessaria::demo {

/// From now on SIGINT, SIGTERM and SIGHUP end `runUntilSignal`, so that the program's own server
/// is stopped.
void quitOnSignals(QApplication& application);

/// Runs the event loop. Gives its result, or 128 and the number of a signal that came since
/// `quitOnSignals`.
int runUntilSignal();

}  // namespace tessaria::demo
