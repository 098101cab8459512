// The criteria by which the list seeks a row in its record set.
#pragma once

#include "tessaria/host/data.h"
#include "tessaria/variant.h"

namespace tessaria::mdlObjTxt {

/// The rows whose field begins with a text. "*" or "%" at the text's start stands for anything.
String StartCriterion(const String& name, StringView text);
/// Goes from the current row to the first one whose first field begins with a text, wildcards
/// taken as they stand; behind the last row when there is none.
void FindStart(host::Recordset& rows, StringView text);
/// The rows whose field equals a value that is no text. A number has as many digits as tell it
/// from its neighbours. Errors: 94 for Null, 13 for an object.
String EqualityCriterion(const String& name, const Variant& value);

}  // namespace tessaria::mdlObjTxt
