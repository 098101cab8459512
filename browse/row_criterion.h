// The criteria with which the list finds a row in its record set.
#pragma once

#include "tessaria/host/data.h"
#include "tessaria/variant.h"

namespace tessaria::mdlObjTxt {

/// The criterion for rows whose field begins with a text. "*" or "%" at the start of the text
/// matches anything.
String StartCriterion(const String& name, StringView text);
/// Goes from the current row to the first row whose first field begins with a text, in which
/// wildcards match themselves; past the last row when there is none.
void FindStart(host::Recordset& rows, StringView text);
/// The criterion for rows whose field equals a value that is not a text. A number is written with
/// enough digits to identify it. Errors: 94 for Null, 13 for an object.
String EqualityCriterion(const String& name, const Variant& value);

}  // namespace tessaria::mdlObjTxt
