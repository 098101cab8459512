// What the check of a form reports, and how it is written.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace tessaria::formcheck {

/// A mistake will not work; a doubt may be meant, or made good by the program.
enum class Severity { Mistake, Doubt };

struct Finding {
  std::string file;
  int line = 0;       ///< from 1; 0 for the whole file
  std::string field;  ///< the object name; empty for the form itself
  std::string kind;   ///< a word that does not change, for programs
  Severity severity = Severity::Mistake;
  std::string message;
};

/// "FILE:LINE: error: FIELD: message", as compilers write it.
void WriteText(const Finding& finding, std::ostream& out);
/// One JSON object in a line.
void WriteJson(const Finding& finding, std::ostream& out);

}  // namespace tessaria::formcheck
