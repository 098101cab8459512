#include "tessaria/odbc/connection.h"

#include "hosts/odbc/odbc_link.h"
#include "hosts/sql/sql_connection.h"

namespace tessaria::odbc {

host::ConnectionPtr CreateConnection() {
  return sql::CreateConnection([](const String& connectionString, Long timeout) {
    return std::make_shared<OdbcLink>(connectionString, timeout);
  });
}

}  // namespace tessaria::odbc
