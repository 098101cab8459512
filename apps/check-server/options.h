// What the command line of the check says.
#pragma once

#include <string>
#include <vector>

namespace tessaria::check {

struct Options {
  std::string connection;  ///< the connection string
  std::string driver = "odbc";
  std::string schema;
  bool help = false;
};

extern const char* const kUsage;

/// Throws std::invalid_argument, whose text says what is wrong.
Options ParseOptions(const std::vector<std::string>& arguments);

}  // namespace tessaria::check
