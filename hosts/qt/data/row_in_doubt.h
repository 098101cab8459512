// Rows in doubt, which may or may not have been stored: what the operator is told about them.
#pragma once

#include "tessaria/host/data.h"

namespace tessaria::qt {

/// Writes the pending edit. A new row that may already be stored under an unknown key is not
/// written: the rows are read again with the new row still pending, and error -2147217663 tells
/// which of them has its values. The operator then decides: `Update` stores the row, `CancelUpdate`
/// drops it.
void writeOrLookFor(host::Recordset& rows);

/// Reads the rows again around a new row that may already be stored under an unknown key, and
/// raises error -2147217663 as above.
[[noreturn]] void lookForNewRow(host::Recordset& rows);

/// Raises error -2147217663 for a row in doubt that was given up. The message names the edit, or
/// the deletion if there was no edit.
[[noreturn]] void tellGivenUpInDoubt(host::EditMode edit);

}  // namespace tessaria::qt
