// The SQL expression that shows a field with the literals of a mask.
#pragma once

#include "tessaria/string.h"

namespace tessaria::wizard {

/// `mask` has a "#" for each character of the value; all its other characters are literals that the
/// value does not have. It must end in "#": error 5, with an explanation, otherwise. An unknown
/// database, by its name, gives a text that no database accepts.
String FormatSql(const String& field, const String& mask, const String& database);

}  // namespace tessaria::wizard
