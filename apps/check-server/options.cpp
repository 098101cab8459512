#include "apps/check-server/options.h"

#include <algorithm>
#include <stdexcept>

namespace tessaria::check {
namespace {

// Names that need no quotation marks on any server.
bool IsPlainName(const std::string& name) {
  const auto isPart = [](char c) {
    return c == '_' || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
  };
  const bool isDigit = !name.empty() && name[0] >= '0' && name[0] <= '9';
  return !name.empty() && name.size() <= 63 && !isDigit &&
         std::all_of(name.begin(), name.end(), isPart);
}

bool TakeValue(const std::string& argument, const std::string& name, std::string& value) {
  if (argument.rfind(name, 0) != 0) return false;
  value = argument.substr(name.size());
  return true;
}

void RequireWhole(const Options& options) {
  if (options.connection.empty()) throw std::invalid_argument("no connection string");
  if (options.driver != "odbc" && options.driver != "postgres") {
    throw std::invalid_argument("no driver is called '" + options.driver + "'");
  }
  if (options.schema.empty()) throw std::invalid_argument("--schema=NAME is missing");
  if (!IsPlainName(options.schema)) {
    throw std::invalid_argument("a schema's name here has small letters, digits and '_' only");
  }
}

}  // namespace

const char* const kUsage =
    R"(Usage: tessaria-check-server [--driver=odbc|postgres] --schema=NAME CONNECTION-STRING

Tells which guarantees of Tessaria's data layer a server keeps, with its driver and whatever stands
between them: a pooler, a proxy, an engine that speaks a known protocol.

  --driver=odbc      unixODBC with the driver that the connection string names (default)
  --driver=postgres  PostgreSQL's own client library
  --schema=NAME      a schema that does not exist; it is created for the check and dropped after it
  --help             this text

The login needs the right to create a schema. Each line of the output is a guarantee: "kept", "NOT
kept" or "cannot tell", and why. The exit code is 0 when all are kept, 1 when not, and 2 when the
check could not be made.
)";

Options ParseOptions(const std::vector<std::string>& arguments) {
  Options options;
  for (const std::string& argument : arguments) {
    if (argument == "--help" || argument == "-h") {
      options.help = true;
      return options;
    }
    if (TakeValue(argument, "--driver=", options.driver)) continue;
    if (TakeValue(argument, "--schema=", options.schema)) continue;
    if (argument.rfind("--", 0) == 0) throw std::invalid_argument("unknown option " + argument);
    if (!options.connection.empty()) {
      throw std::invalid_argument("more than one connection string: put it between apostrophes");
    }
    options.connection = argument;
  }
  RequireWhole(options);
  return options;
}

}  // namespace tessaria::check
