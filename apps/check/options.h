// What the command line of the check says.
#pragma once

#include <string>
#include <vector>

namespace tessaria::formcheck {

struct Options {
  std::vector<std::string> files;
  std::string connection;  ///< empty to look at the files alone
  std::string driver = "odbc";
  bool json = false;
  bool warnings = true;
  bool help = false;
  bool version = false;
};

extern const char* const kUsage;

/// Throws std::invalid_argument, whose text says what is wrong.
Options ParseOptions(const std::vector<std::string>& arguments);

}  // namespace tessaria::formcheck
