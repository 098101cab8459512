// Conversion of money from and to the texts of a server.
#pragma once

#include <cstdint>
#include <optional>

#include "tessaria/string.h"

namespace tessaria::sql {

/// Ten-thousandths of a money text in any country's style: "$1,234.50", "-R$ 1.234,50", "(12.00)".
/// The last point or comma is the decimal mark when one or two digits follow it, or four. Nothing
/// when the amount does not fit into 64 bits.
std::optional<std::int64_t> MoneyFromText(StringView text);
/// The same as a plain decimal text with any number of digits: "-1234.50".
String PlainMoneyText(StringView text);

/// The plain decimal text: "-1234.5000".
String MoneyText(std::int64_t tenThousandths);

}  // namespace tessaria::sql
