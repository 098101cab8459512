// Second statements that no semicolon separates, as SQL Server takes them.
#pragma once

#include "hosts/sql/statements/statement_pieces.h"

namespace tessaria::sql {

/// Whether a Select, in parentheses or not, a Values, Table, With, Insert, Update or Delete is
/// followed by another statement, or by something that cannot be distinguished from one with
/// certainty. Returns false for any other statement, which is a program's own, not a lookup's, and
/// may be a batch.
bool HoldsHiddenStatement(const Pieces& pieces);

}  // namespace tessaria::sql
