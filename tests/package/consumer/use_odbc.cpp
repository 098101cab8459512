// The database layer from outside: a connection that cannot be opened says why.
#include <tessaria/error.h>
#include <tessaria/odbc/connection.h>

#include <iostream>

#include "own_headers.h"

int main() {
  const auto connection = tessaria::odbc::CreateConnection();
  connection->ConnectionString(u"Driver={there is no such driver};");
  try {
    connection->Open();
  } catch (const tessaria::HostError& error) {
    return error.Description().empty() || connection->State() != tessaria::host::state::Closed;
  }
  std::cerr << "a driver that does not exist was opened\n";
  return 1;
}
