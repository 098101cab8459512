// Cells that arrive as texts, kept as their columns keep them.
#pragma once

#include "hosts/sql/values/column.h"
#include "hosts/sql/values/column_store.h"

namespace tessaria::sql {

/// What a text stands for.
struct ArrivingForm {
  Storage storage = Storage::Text;
  bool padded = false;     ///< as in `Column`
  bool lowerCase = false;  ///< as in `Column`
};

/// Appends the value of a text: money, a day (yyyy-mm-dd), a time (hh:mm:ss[.f]), a moment (both
/// with a blank between), an exact number or a plain text. What the column's storage cannot hold is
/// kept as the text.
TESSARIA_SQL_API void AppendArrived(ColumnStore& store, std::size_t column,
                                    const ArrivingForm& form, StringView text);

}  // namespace tessaria::sql
