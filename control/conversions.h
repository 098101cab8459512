// Conversion of an assigned value to the type of its field.
#pragma once

#include "control/members.h"
#include "control/type_codes.h"

namespace tessaria {

/// For a field without a column, by its `TipoDado`. Errors: those of CDbl and CDate.
Variant ConvertUnbound(const Variant& v, Long TipoDado, const MaskSettings& mask);

/// For a column of that family. A blank that the column does not accept as Null is Empty, or 0.
/// Errors: those of CStr, CDbl and CDate.
Variant ConvertBound(const Variant& v, FieldFamily family, bool acceptsNull,
                     const MaskSettings& mask);

}  // namespace tessaria
