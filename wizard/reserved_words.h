// The words that each database keeps for itself.
#pragma once

#include "lookup/sql_family.h"
#include "tessaria/string.h"

namespace tessaria::wizard {

/// Whether a name, in letters of any case and without blanks, is such a word. An unknown database
/// is taken for PostgreSQL.
bool IsReserved(SqlFamily family, const String& word);

}  // namespace tessaria::wizard
