// The fragments of SQL that differ from dialect to dialect.
#pragma once

#include "tessaria/string.h"

namespace tessaria {

/// Codes of the fragments that `TraduzSQL` gives.
namespace sql_fragment {
inline constexpr Long Substring = 0;    ///< name of the substring function
inline constexpr Long Conditional = 1;  ///< conditional expression, with optional alias
inline constexpr Long Date = 2;         ///< date literal
inline constexpr Long IntegerCast = 3;  ///< integer cast
inline constexpr Long Trim = 4;         ///< name of the trim function
inline constexpr Long Concatenate = 6;  ///< concatenation operator
inline constexpr Long Like = 7;         ///< LIKE keyword
}  // namespace sql_fragment

/// How a statement is told to give one row: the words at its start and at its end.
struct RowLimit {
  StringView Select;  ///< with a blank behind
  StringView Limit;   ///< with a blank in front, or empty
};
RowLimit LimitToOneRow(bool postgres);

namespace mdlComum {

/// A fragment in the dialect of the thread's connection. Arguments that the code does not use
/// are ignored; an unknown code or an unknown family gives "". `strData` is not checked to be a
/// date; it stays one text. `intTipoInteiro`: 0 for 32 bits, 1 for 16. Errors: 91 with no
/// connection, the provider's own.
String TraduzSQL(Long intTipo, const String& strCondicao = {}, const String& strEntao = {},
                 const String& strSenao = {}, const String& strAlias = {},
                 const String& strData = {}, Long intTipoInteiro = 0,
                 const String& strExpressao = {});

}  // namespace mdlComum

namespace mdlObjTxt {

/// The word for "sqlSubstring" or "sqlConcat" in a named dialect, both in any case. "MS JET" is
/// no name here. Unknown arguments give "".
String sqlFuncao(const String& strDbms, const String& strFuncao);

}  // namespace mdlObjTxt
}  // namespace tessaria
