// One finding of a check, and the list of those of a form.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tessaria/string.h"
#include "tessaria/utf8.h"

namespace tessaria::formcheck {

enum class Severity {
  Error,   ///< will not work
  Warning  ///< will not work, unless the program does its part
};

struct Finding {
  Severity severity;
  int line;
  std::string field;  ///< empty for a finding about the file
  std::string kind;   ///< a name for programs, which stays the same when the message changes
  std::string message;
};

class Findings {
 public:
  void Error(int line, const String& field, const char* kind, std::string message) {
    list_.push_back({Severity::Error, line, ToUtf8(field), kind, std::move(message)});
  }
  void Warning(int line, const String& field, const char* kind, std::string message) {
    list_.push_back({Severity::Warning, line, ToUtf8(field), kind, std::move(message)});
  }
  /// In the order of their lines.
  std::vector<Finding> InOrder() const;

 private:
  std::vector<Finding> list_;
};

/// `FILE:LINE: error: FIELD: message [kind]`, as compilers write it; "warning" for a warning.
std::string AsText(const std::string& file, const Finding& finding);
/// One JSON object in one line.
std::string AsJson(const std::string& file, const Finding& finding);

/// A text without line ends and tabs.
std::string InOneLine(std::string text);
/// A text between apostrophes, for a message.
std::string Quoted(StringView text);

}  // namespace tessaria::formcheck
