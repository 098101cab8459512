// Whether a record set has an edit that is not written.
#pragma once

#include "tessaria/host/data.h"

namespace tessaria::qt {

/// True for an edited row and for a new one, not for a deleted one.
inline bool hasEdit(const host::Recordset& rows) {
  return rows.EditMode() == host::EditMode::InProgress || rows.EditMode() == host::EditMode::Add;
}

}  // namespace tessaria::qt
