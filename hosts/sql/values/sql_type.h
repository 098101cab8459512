// The numbers by which drivers report the types of columns: those of the SQL call-level interface.
#pragma once

#include "tessaria/variant.h"

namespace tessaria::sql::sql_type {

inline constexpr Long Char = 1;
inline constexpr Long Numeric = 2;
inline constexpr Long Decimal = 3;
inline constexpr Long Integer = 4;
inline constexpr Long SmallInt = 5;
inline constexpr Long Float = 6;
inline constexpr Long Real = 7;
inline constexpr Long Double = 8;
inline constexpr Long VarChar = 12;
inline constexpr Long Date = 91;
inline constexpr Long Time = 92;
inline constexpr Long Timestamp = 93;
inline constexpr Long LongVarChar = -1;
inline constexpr Long Binary = -2;
inline constexpr Long VarBinary = -3;
inline constexpr Long LongVarBinary = -4;
inline constexpr Long BigInt = -5;
inline constexpr Long TinyInt = -6;
inline constexpr Long Bit = -7;
inline constexpr Long WChar = -8;
inline constexpr Long WVarChar = -9;
inline constexpr Long WLongVarChar = -10;
inline constexpr Long Guid = -11;

}  // namespace tessaria::sql::sql_type
