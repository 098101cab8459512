// Rows of which nobody knows whether they were stored, as the operator is told of them.
#pragma once

#include "tessaria/host/data.h"

namespace tessaria::qt {

/// Writes the pending edit. A new row that may be stored under a key which nobody knows is not
/// written: the rows are read again with the new row still pending, and error -2147217663 tells
/// which of them has its values. The record set then takes the operator's decision: `Update` stores
/// the row, `CancelUpdate` drops it.
void writeOrLookFor(host::Recordset& rows);

/// Error -2147217663 for a row in doubt that was given up: the edit told, or with none its
/// deletion.
[[noreturn]] void tellGivenUpInDoubt(host::EditMode edit);

}  // namespace tessaria::qt
