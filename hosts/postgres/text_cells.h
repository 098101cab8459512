// Cells in the server's text form, as columns keep them.
#pragma once

#include <libpq-fe.h>

#include <string_view>

#include "hosts/sql/values/arrived_text.h"

namespace tessaria::postgres {

/// Appends a cell of the server's type `type`, in UTF-8. What the column's storage cannot hold is
/// kept as the text. A moment with a zone loses the zone: it is in that of the connection.
void AppendTextCell(sql::ColumnStore& store, std::size_t column, const sql::ArrivingForm& form,
                    Oid type, std::string_view text);

}  // namespace tessaria::postgres
