// Writes a row together with the program's own statements.
#pragma once

#include <functional>

#include "tessaria/host/data.h"

namespace tessaria::qt {

struct RowSaving {
  host::RecordsetPtr rows;
  host::ConnectionPtr connection;
  std::function<void(host::Connection&)> hook;  ///< empty for none
  String versionColumn;                         ///< empty for none
  bool isMarked = false;  ///< whether the hook has something to write, whatever the row holds
  bool wasSent = false;   ///< set once the commit is asked for: only then the hook may be stored
};

/// Writes the pending edit and runs the hook, all of it or nothing: after an error the edit is
/// pending as before. A row in doubt is looked for first; when its transaction was stored, only
/// what was typed since then is written. Does nothing without an edit and a mark. Raises what the
/// database and the hook raise.
void saveRow(RowSaving& saving);

}  // namespace tessaria::qt
