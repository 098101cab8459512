// Queries whose dates PostgreSQL sends as plain texts.
#pragma once

#include "hosts/odbc/values/column.h"

namespace tessaria::odbc {

/// The driver reads dates itself and loses what its own kind cannot hold: it drops "BC", cuts a
/// year of five digits and takes an infinite moment for the last second of 9999. As texts they
/// arrive as the server writes them.
bool HasDates(const Columns& columns);

/// What stands for a column in a list of columns, so that a date arrives as text.
String AsArrivingText(const Column& column, const String& name);

/// The query with the dates of its columns as texts. Its columns are named by `TextColumnName`.
String WithDatesAsTexts(const Columns& columns, const String& query);
String TextColumnName(std::size_t column);

}  // namespace tessaria::odbc
