// Money as a server writes it.
#pragma once

#include <cstdint>

#include "tessaria/string.h"

namespace tessaria::odbc {

/// Ten-thousandths of a money text in any country's style: "$1,234.50", "-R$ 1.234,50",
/// "(12.00)". The last point or comma is the decimal mark when one or two digits follow it, or
/// four.
std::int64_t MoneyFromText(StringView text);

/// The plain decimal text: "-1234.5000".
String MoneyText(std::int64_t tenThousandths);

}  // namespace tessaria::odbc
