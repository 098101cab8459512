// A session that plays by itself, with pictures, and the proof of what it left.
#pragma once

#include <QString>

namespace tessaria::demo {

/// Plays on a server of its own in a temporary folder. Pictures go into `folder`, which is made;
/// an empty one makes none. Gives the program's result: 0 when the database holds what was typed
/// and every step went as expected. Raises `Failure` when there can be no session.
int play(const QString& folder);

}  // namespace tessaria::demo
