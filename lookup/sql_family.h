// The family of databases that a connection belongs to.
// Nothing is cached: each call asks the connection.
#pragma once

#include "tessaria/export.h"
#include "tessaria/host/data.h"
#include "tessaria/string.h"

namespace tessaria {

/// The families of databases that SQL is written for.
enum class SqlFamily { Unknown, Access, SqlServer, PostgreSQL };

/// The thread's connection. Error 91 when there is none.
host::ConnectionPtr CurrentConnection();

/// The provider's name for its database, in upper case.
String DialectName(const host::Connection& connection);
/// The family of a dialect name, which must be in upper case.
TESSARIA_HOST_API SqlFamily FamilyOfDialect(StringView dialect);
/// Whether the connection's family is PostgreSQL.
bool IsPostgreSQL(const host::Connection& connection);

/// The release of a PostgreSQL server as a number made of its digits: 9.5.3 is 953, 8.4.22 is
/// 8422. Error 13 when the relevant part of the version text contains anything but digits and
/// trailing blanks, 6 when the number does not fit in 16 bits.
Integer PostgreSQLVersion(const host::Connection& connection);

}  // namespace tessaria
