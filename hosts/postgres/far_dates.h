// The server's counts of days and microseconds: those that a column can hold, and texts of others.
#pragma once

#include <cstdint>
#include <optional>

#include "tessaria/string.h"

namespace tessaria::postgres {

/// Days are counted from 1 January 2000, microseconds from its midnight; the greatest and the least
/// number stand for "infinity" and "-infinity".
///
/// The day or moment as columns keep it; nothing outside the years 100 to 9999.
std::optional<std::int32_t> NearDay(std::int32_t days);
std::optional<std::int64_t> NearMoment(std::int64_t micros);
/// Whether a time is before 24:00.
bool IsWithinDay(std::int64_t micros);

/// The texts that the server writes: "0044-03-15 BC", "10000-01-01 10:00:00.5", "infinity",
/// "24:00:00".
String FarDateText(std::int32_t days);
String FarMomentText(std::int64_t micros);
String FarTimeText(std::int64_t micros);

}  // namespace tessaria::postgres
