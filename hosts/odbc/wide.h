// Conversion between SQLWCHAR and our text.
#pragma once

#include <sql.h>

namespace tessaria::odbc {

static_assert(sizeof(SQLWCHAR) == sizeof(char16_t), "wide calls must take UTF-16");

/// Text as the wide calls take it; they never write through an input pointer.
inline SQLWCHAR* Wide(const char16_t* text) {
  return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text));
}
inline SQLWCHAR* Wide(char16_t* buffer) { return reinterpret_cast<SQLWCHAR*>(buffer); }

}  // namespace tessaria::odbc
