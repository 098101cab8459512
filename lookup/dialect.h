// SQL fragments that differ between dialects.
#pragma once

#include "tessaria/host/data.h"
#include "tessaria/string.h"

namespace tessaria {

/// Codes of the fragments that `TraduzSQL` returns.
namespace sql_fragment {
inline constexpr Long Substring = 0;    ///< name of the substring function
inline constexpr Long Conditional = 1;  ///< conditional expression, with optional alias
inline constexpr Long Date = 2;         ///< date literal
inline constexpr Long IntegerCast = 3;  ///< integer cast
inline constexpr Long Trim = 4;         ///< name of the trim function
inline constexpr Long Concatenate = 6;  ///< concatenation operator
inline constexpr Long Like = 7;         ///< LIKE keyword
}  // namespace sql_fragment

/// The words at the start and the end of a statement that limit its result to one row.
struct RowLimit {
  StringView Select;  ///< with a trailing blank
  StringView Limit;   ///< with a leading blank, or empty
};
RowLimit LimitToOneRow(bool postgres);

/// The operator that joins texts, in the dialect of a connection; "" for an unknown family.
String Concatenation(const host::Connection& connection);

namespace mdlComum {

/// A fragment in the dialect of the thread's connection. Arguments that the code does not use
/// are ignored; the result is "" for an unknown code or family. `strData` does not have to be a
/// date; it stays one text. `intTipoInteiro`: 0 for 32 bits, 1 for 16. Errors: 91 without a
/// connection, and those of the provider.
String TraduzSQL(Long intTipo, const String& strCondicao = {}, const String& strEntao = {},
                 const String& strSenao = {}, const String& strAlias = {},
                 const String& strData = {}, Long intTipoInteiro = 0,
                 const String& strExpressao = {});

}  // namespace mdlComum

namespace mdlObjTxt {

/// The word for "sqlSubstring" or "sqlConcat" in a named dialect, both in any case. "MS JET" is not
/// a known name here. Returns "" for unknown arguments.
String sqlFuncao(const String& strDbms, const String& strFuncao);

}  // namespace mdlObjTxt
}  // namespace tessaria
