// Which family of databases a connection speaks to.
// Nothing is cached: the connection is asked each time.
#pragma once

#include "tessaria/export.h"
#include "tessaria/host/data.h"
#include "tessaria/string.h"

namespace tessaria {

/// The families of databases that SQL is written for.
enum class FamiliaSql { Desconhecida, Access, SqlServer, PostgreSQL };

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

}  // namespace tessaria
