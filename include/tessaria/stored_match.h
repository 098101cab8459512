// Whether a stored value is what a column makes of a value that was given to it.
#pragma once

#include "tessaria/export.h"
#include "tessaria/host/data.h"

namespace tessaria {

/// What a column does to its values, as `host::Field` tells it.
struct ColumnShape {
  Long Type = 0;  ///< one of `host::type`
  Long DefinedSize = 0;
  Long NumericScale = 0;
};

/// Whether `stored` is `given`, or what is left of it in the column: a number at the column's
/// scale, a text without the blanks that the column does not keep, a date or a time alone, to the
/// second. Null is stored as Null.
TESSARIA_CORE_API bool IsStoredFrom(const Variant& given, const Variant& stored,
                                    const ColumnShape& column);

}  // namespace tessaria
