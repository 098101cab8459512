#include "apps/check/options.h"

#include <stdexcept>

namespace tessaria::formcheck {
namespace {

/// Takes `NAME=VALUE`, or `NAME` with the next argument as its value.
bool TakeValue(const std::vector<std::string>& arguments, std::size_t& at, const std::string& name,
               std::string& value) {
  const std::string& argument = arguments[at];
  if (argument.rfind(name + "=", 0) == 0) {
    value = argument.substr(name.size() + 1);
  } else if (argument == name) {
    if (at + 1 == arguments.size()) throw std::invalid_argument(name + " needs a value");
    value = arguments[++at];
  } else {
    return false;
  }
  if (value.empty()) throw std::invalid_argument(name + " needs a value");
  return true;
}

bool TakeFlag(const std::string& argument, Options& options) {
  if (argument == "--json") return options.json = true;
  if (argument == "--no-warnings") {
    options.warnings = false;
    return true;
  }
  if (argument == "--help" || argument == "-h") return options.help = true;
  if (argument == "--version") return options.version = true;
  return false;
}

}  // namespace

const char* const kUsage =
    R"(Usage: tessaria-check [OPTION]... FORM.ui...

Tells what will not work in the fields of form files, before the program runs.

  --connection=TEXT  also asks the database of this connection string for the tables, columns and
                     statements of the forms; nothing is changed there
  --driver=odbc      for --connection: unixODBC with the driver that the string names (default)
  --driver=postgres  PostgreSQL's own client library
  --json             writes each finding as one line of JSON
  --no-warnings      leaves out what works when the program does its part
  --help             this text
  --version          the version

Each line of the output is a finding: FILE:LINE: error or warning: FIELD: MESSAGE [KIND]. A warning
works when the program does its part. The exit code is 0 without any finding, 1 with
some, and 2 when a file cannot be opened or the check cannot be made.
)";

Options ParseOptions(const std::vector<std::string>& arguments) {
  Options options;
  bool areFiles = false;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string& argument = arguments[i];
    if (!areFiles && argument == "--") {
      areFiles = true;
    } else if (areFiles || argument.rfind('-', 0) != 0) {
      options.files.push_back(argument);
    } else if (!TakeFlag(argument, options) &&
               !TakeValue(arguments, i, "--connection", options.connection) &&
               !TakeValue(arguments, i, "--driver", options.driver)) {
      throw std::invalid_argument("unknown option " + argument);
    }
    if (options.help || options.version) return options;
  }
  if (options.files.empty()) throw std::invalid_argument("no form file");
  if (options.driver != "odbc" && options.driver != "postgres")
    throw std::invalid_argument("no driver is called '" + options.driver + "'");
  return options;
}

}  // namespace tessaria::formcheck
