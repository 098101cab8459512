// Whether a stored value is the result of writing a given value to a column.
#pragma once

#include "tessaria/export.h"
#include "tessaria/host/data.h"

namespace tessaria {

/// The properties of a column that affect its values, as `host::Field` reports them.
struct ColumnShape {
  Long Type = 0;  ///< one of `host::type`
  Long DefinedSize = 0;
  Long NumericScale = 0;
};

/// Whether `stored` is `given`, or what the column keeps of it: a number at the column's scale, a
/// text without the blanks that the column drops, a date or a time alone, to the second. Null is
/// stored as Null.
TESSARIA_CORE_API bool IsStoredFrom(const Variant& given, const Variant& stored,
                                    const ColumnShape& column);

}  // namespace tessaria
