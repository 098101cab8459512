// SQL dialects: which family the open connection speaks, and the fragments of its SQL.
// Nothing is cached: the connection is asked each time.
#pragma once

#include "tessaria/export.h"
#include "tessaria/host/data.h"
#include "tessaria/string.h"

namespace tessaria {

/// The families of databases that SQL is written for.
enum class FamiliaSql { Desconhecida, Access, SqlServer, PostgreSQL };

/// Codes of the fragments that `TraduzSQL` gives.
namespace fragmento {
inline constexpr Long Substring = 0;    ///< name of the substring function
inline constexpr Long Condicional = 1;  ///< conditional expression, with optional alias
inline constexpr Long Data = 2;         ///< date literal
inline constexpr Long Inteiro = 3;      ///< integer cast
inline constexpr Long Trim = 4;         ///< name of the trim function
inline constexpr Long Concatena = 6;    ///< concatenation operator
inline constexpr Long Like = 7;         ///< LIKE keyword
}  // namespace fragmento

/// The thread's connection. Error 91 when there is none.
host::ConnectionPtr ConexaoAtual();

/// The provider's name of its database, in upper case.
String NomeDialeto(const host::Connection& conexao);
/// The family of a dialect name, which is in upper case.
TESSARIA_HOST_API FamiliaSql FamiliaDoDialeto(StringView strDialeto);
/// The two-way rule: PostgreSQL or not.
bool EhPostgreSQL(const host::Connection& conexao);

/// The release of a PostgreSQL server as a number made of its digits: 9.5.3 is 953, 8.4.22 is
/// 8422. Error 13 when the version text cuts to anything but digits and blanks behind them, 6
/// when they are too many for 16 bits.
Integer VersaoPostgreSQL(const host::Connection& conexao);

/// How a statement is told to give one row: the words at its start and at its end.
struct UmaLinha {
  StringView Select;  ///< with a blank behind
  StringView Limite;  ///< with a blank in front, or empty
};
UmaLinha SelecionaUmaLinha(bool blnPostgreSQL);

/// The text with every apostrophe doubled, and nothing else changed. For a statement's text see
/// `ConteudoDeTexto`.
String DobraAspas(StringView strTexto);

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
