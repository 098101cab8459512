#include "apps/check/options.h"

#include <stdexcept>

namespace tessaria::formcheck {
namespace {

bool TakeValue(const std::string& argument, const std::string& name, std::string& value) {
  if (argument.rfind(name, 0) != 0) return false;
  value = argument.substr(name.size());
  return true;
}

bool TakeFlag(const std::string& argument, Options& options) {
  if (argument == "--json") return options.json = true;
  if (argument == "--help" || argument == "-h") return options.help = true;
  if (argument == "--version") return options.version = true;
  return false;
}

}  // namespace

const char* const kUsage =
    R"(Usage: tessaria-check [--json] [--driver=odbc|postgres] [--connection=STRING] FORM.ui...

Reads form files and tells what in their fields will not work: unknown settings, masks, names that
are not on the form, pairs and lookups that do not fit together.

  --connection=STRING  asks the database too: tables, columns, conditions; nothing is changed there
  --driver=odbc        unixODBC with the driver that the connection string names (default)
  --driver=postgres    PostgreSQL's own client library
  --json               one JSON object in a line for each finding
  --version            the version of the library
  --help               this text

A line is FILE:LINE: error or warning: FIELD: what is wrong. A warning may be meant, or made good by
the program. The exit code is 0 without a finding, 1 with one, and 2 when a file could not be read or
the database not be reached.
)";

Options ParseOptions(const std::vector<std::string>& arguments) {
  Options options;
  for (const std::string& argument : arguments) {
    if (TakeFlag(argument, options)) continue;
    if (TakeValue(argument, "--driver=", options.driver)) continue;
    if (TakeValue(argument, "--connection=", options.connection)) continue;
    if (argument.rfind("--", 0) == 0) throw std::invalid_argument("unknown option " + argument);
    options.files.push_back(argument);
  }
  if (options.help || options.version) return options;
  if (options.files.empty()) throw std::invalid_argument("no form file");
  if (options.driver != "odbc" && options.driver != "postgres")
    throw std::invalid_argument("no driver is called '" + options.driver + "'");
  return options;
}

}  // namespace tessaria::formcheck
