#include "tessaria/odbc/connection.h"

#include <utility>

#include "hosts/odbc/odbc_link.h"
#include "hosts/sql/sql_connection.h"
#include "tessaria/error.h"

namespace tessaria::odbc {

host::ConnectionPtr CreateConnection() {
  return sql::CreateConnection(
      [](const String& connectionString, Long timeout, sql::SettingsScope scope) {
        return std::make_shared<OdbcLink>(connectionString, timeout, scope);
      });
}

host::ConnectionPtr AdoptConnection(void* connection, std::function<bool()> isThere) {
  if (connection == nullptr || (isThere && !isThere()))
    throw HostError(errors::InvalidConnection, u"Não há conexão do programa para adotar.");
  return sql::AdoptConnection(std::make_shared<OdbcLink>(connection, std::move(isThere)));
}

}  // namespace tessaria::odbc
