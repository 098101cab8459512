// Ends the program in good order when the system asks it to end.
#pragma once

class QCoreApplication;

namespace tessaria::demo {

/// From now on SIGINT, SIGTERM and SIGHUP leave the event loop, with 128 and the signal's number
/// as result, so that the program's own server is stopped.
void quitOnSignals(QCoreApplication& application);

}  // namespace tessaria::demo
