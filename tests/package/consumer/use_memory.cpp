// The host for tests from outside: a record set over vectors, seen through the ports, and an error
// of the host that the program catches.
#include <tessaria/error.h>
#include <tessaria/memory/connection.h>

#include <iostream>
#include <memory>

#include "own_headers.h"

int main() {
  namespace host = tessaria::host;
  const auto connection = tessaria::memory::Connection::CreateOpen();
  connection->AddTable(u"uf", {{u"sigla", host::type::VarWChar, 2}}, {{u"SP"}, {u"RJ"}});
  const auto rows = connection->Execute(u"Select * From uf");
  const tessaria::ObjectPtr object = rows;
  if (!std::dynamic_pointer_cast<host::Recordset>(object) || rows->RecordCount() != 2) {
    std::cerr << "the rows are not those of the table\n";
    return 1;
  }
  try {
    connection->Execute(u"Select * From cidade");
  } catch (const tessaria::HostError&) {
    return 0;
  }
  std::cerr << "a table that does not exist was read\n";
  return 1;
}
