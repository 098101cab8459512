// Reading dates from texts.
#pragma once

#include <optional>

#include "tessaria/string.h"
#include "tessaria/variant.h"

namespace tessaria {

/// The date, time or both that the whole text is, in the forms that `CDate` lists.
std::optional<Date> ReadDate(StringView text);

}  // namespace tessaria
