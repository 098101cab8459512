#include "tests/support/database_driver.h"

#include <cstdlib>
#include <stdexcept>
#include <string_view>

#include "tessaria/odbc/connection.h"
#include "tessaria/postgres/connection.h"

namespace tessaria::test {
namespace {

struct Driver {
  const char* name;
  host::ConnectionPtr (*create)();
};

constexpr Driver kDrivers[] = {{"odbc", odbc::CreateConnection},
                               {"postgres", postgres::CreateConnection}};

const Driver& ChosenDriver() {
  const char* const name = std::getenv("TESSARIA_DRIVER");
  if (name == nullptr || *name == '\0') return kDrivers[0];
  for (const Driver& driver : kDrivers) {
    if (std::string_view(name) == driver.name) return driver;
  }
  throw std::runtime_error(std::string("TESSARIA_DRIVER names no driver: ") + name);
}

}  // namespace

const char* DriverName() { return ChosenDriver().name; }

host::ConnectionPtr NewConnectionOfTheDriver() { return ChosenDriver().create(); }

}  // namespace tessaria::test
