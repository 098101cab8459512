#include "tessaria/odbc/data_sources.h"

#include <sql.h>
#include <sqlext.h>

#include <algorithm>
#include <array>

#include "hosts/odbc/diagnostics.h"
#include "hosts/odbc/handles.h"
#include "hosts/odbc/wide.h"

namespace tessaria::odbc {
namespace {

using Buffer = std::array<char16_t, 1024>;

bool IsAscii(char16_t c) { return c < 0x80; }

// The driver manager for Unix reads its files byte by byte: a letter outside ASCII comes as several
// characters, under which drivers find no entry.
bool CanBeNamed(StringView name) {
  return !name.empty() && name.size() <= SQL_MAX_DSN_LENGTH && !name.starts_with(u'{') &&
         name.find(u';') == StringView::npos && std::ranges::all_of(name, IsAscii);
}

}  // namespace

// A name may be the user's and the system's; the user's is the one that is opened.
std::vector<String> DataSourceNames() {
  const Environment environment;
  std::vector<String> names;
  Buffer name{}, driver{};
  for (SQLUSMALLINT next = SQL_FETCH_FIRST;; next = SQL_FETCH_NEXT) {
    SQLSMALLINT nameLength = 0, driverLength = 0;
    const SQLRETURN result =
        SQLDataSourcesW(environment.get(), next, Wide(name.data()), name.size(), &nameLength,
                        Wide(driver.data()), driver.size(), &driverLength);
    Check(result, SQL_HANDLE_ENV, environment.get());
    if (result == SQL_NO_DATA) return names;
    const StringView found = name.data();
    const bool isNew = std::ranges::find(names, found) == names.end();
    if (driverLength > 0 && isNew && CanBeNamed(found)) names.emplace_back(found);
  }
}

}  // namespace tessaria::odbc
