// Queries whose dates PostgreSQL sends as plain texts.
#pragma once

#include "hosts/odbc/values/column.h"

namespace tessaria::odbc {

/// Whether there are columns of dates. The driver parses dates itself and loses what its own type
/// cannot hold: it drops "BC", cuts a year of five digits and turns an infinite moment into the
/// last second of 9999. As texts, dates arrive as the server writes them.
bool HasDates(const Columns& columns);

/// The expression for a column in a list of columns that makes a date arrive as text.
String AsArrivingText(const Column& column, const String& name);

/// The query with the dates of its columns as texts. Its columns are named by `TextColumnName`.
String WithDatesAsTexts(const Columns& columns, const String& query);
String TextColumnName(std::size_t column);

}  // namespace tessaria::odbc
