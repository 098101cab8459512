// The first row of a short answer, as texts.
#pragma once

#include <optional>
#include <vector>

#include "hosts/sql/driver/link.h"

namespace tessaria::sql {

/// Cells as the parameters of a statement take them; nothing for Null.
using TextRow = std::vector<std::optional<String>>;

/// Of the present result; empty when it has no row.
TextRow FirstRow(Statement& statement);

/// The first column of the first row of a statement's last result that has rows; nothing for Null
/// and where there is none.
std::optional<String> LastText(Statement& statement);

}  // namespace tessaria::sql
