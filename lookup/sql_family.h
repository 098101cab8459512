// Which family of databases a connection speaks to.
// Nothing is cached: the connection is asked each time.
#pragma once

#include "tessaria/export.h"
#include "tessaria/host/data.h"
#include "tessaria/string.h"

namespace tessaria {

/// The families of databases that SQL is written for.
enum class SqlFamily { Unknown, Access, SqlServer, PostgreSQL };

/// The thread's connection. Error 91 when there is none.
host::ConnectionPtr CurrentConnection();

/// The provider's name of its database, in upper case.
String DialectName(const host::Connection& connection);
/// The family of a dialect name, which is in upper case.
TESSARIA_HOST_API SqlFamily FamilyOfDialect(StringView dialect);
/// The two-way rule: PostgreSQL or not.
bool IsPostgreSQL(const host::Connection& connection);

/// The release of a PostgreSQL server as a number made of its digits: 9.5.3 is 953, 8.4.22 is
/// 8422. Error 13 when the version text cuts to anything but digits and blanks behind them, 6
/// when they are too many for 16 bits.
Integer PostgreSQLVersion(const host::Connection& connection);

}  // namespace tessaria
