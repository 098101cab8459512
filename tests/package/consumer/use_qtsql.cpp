// The adoption of Qt's connections from outside: one that is not open says why.
#include <tessaria/error.h>
#include <tessaria/qtsql/adopt.h>

#include <QSqlDatabase>
#include <iostream>

#include "own_headers.h"

int main() {
  try {
    tessaria::qtsql::Adopt(QSqlDatabase());
  } catch (const tessaria::HostError& error) {
    return error.Description().empty();
  }
  std::cerr << "a database that does not exist was adopted\n";
  return 1;
}
