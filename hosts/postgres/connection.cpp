#include "tessaria/postgres/connection.h"

#include "hosts/postgres/pg_link.h"
#include "hosts/sql/sql_connection.h"

namespace tessaria::postgres {

host::ConnectionPtr CreateConnection() {
  return sql::CreateConnection([](const String& connectionString, Long timeout) {
    return std::make_shared<PgLink>(connectionString, timeout);
  });
}

}  // namespace tessaria::postgres
