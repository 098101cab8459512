// Queries of which some columns are asked for as texts.
#pragma once

#include "hosts/sql/values/column.h"

namespace tessaria::sql {

/// Whether a driver would harm a column (`Column::asText`): what a driver reads itself loses what
/// its own kind cannot hold. As texts such columns arrive as the server writes them.
bool AnyAsText(const Columns& columns);

/// What stands for a column in a list of columns, so that it arrives unharmed.
String AsArrivingText(const Column& column, const String& name);

/// The query with such columns as texts. Its columns are named by `TextColumnName`.
String WithColumnsAsTexts(const Columns& columns, const String& query);
String TextColumnName(std::size_t column);

}  // namespace tessaria::sql
