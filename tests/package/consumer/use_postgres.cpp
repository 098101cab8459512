// The PostgreSQL connection from outside: one that cannot be opened says why.
#include <tessaria/error.h>
#include <tessaria/postgres/connection.h>

#include <iostream>

#include "own_headers.h"

int main() {
  const auto connection = tessaria::postgres::CreateConnection();
  connection->ConnectionString(u"host=/there/is/no/such/folder");
  try {
    connection->Open();
  } catch (const tessaria::HostError& error) {
    return error.Description().empty() || connection->State() != tessaria::host::state::Closed;
  }
  std::cerr << "a server that does not exist was reached\n";
  return 1;
}
