// The text type of the whole library.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessaria {

/// Counted wide text in UTF-16 units: the unit of Qt, of ODBC's wide calls and of Windows.
using String = std::u16string;
using StringView = std::u16string_view;

/// The integer widths of the object model.
using Integer = std::int16_t;
using Long = std::int32_t;

/// A colour in the order 0x00BBGGRR. The top bit marks a system colour, by index.
using Colour = std::uint32_t;

}  // namespace tessaria
