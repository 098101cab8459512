#include "tessaria/postgres/connection.h"

#include <utility>

#include "hosts/postgres/pg_link.h"
#include "hosts/sql/sql_connection.h"
#include "tessaria/error.h"

namespace tessaria::postgres {

host::ConnectionPtr CreateConnection() {
  return sql::CreateConnection(
      [](const String& connectionString, Long timeout, sql::SettingsScope scope) {
        return std::make_shared<PgLink>(connectionString, timeout, scope);
      });
}

host::ConnectionPtr AdoptConnection(PGconn* connection, std::function<bool()> isThere) {
  if (connection == nullptr || (isThere && !isThere()))
    throw HostError(errors::InvalidConnection, u"Não há conexão do programa para adotar.");
  return sql::AdoptConnection(std::make_shared<PgLink>(connection, std::move(isThere)));
}

}  // namespace tessaria::postgres
