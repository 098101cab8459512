// A form file as the check reads it: its widgets, with the lines that they are in.
#pragma once

#include <map>
#include <stdexcept>
#include <string>
#include <vector>

#include <tessaria/string.h>

namespace tessaria::formcheck {

/// A text of the file, and the line that it begins in, from 1.
struct Text {
  String text;
  int line = 0;
};

struct Widget {
  String className;
  String name;
  int line = 0;
  std::vector<Text> settings;         ///< the stored settings of a field, the version first
  std::map<String, Text> properties;  ///< plain texts and numbers, by their names
};

struct FormFile {
  std::vector<Widget> widgets;

  /// Without regard to case; null when there is none.
  const Widget* Find(const String& name) const;
};

/// Why a file cannot be read as a form.
struct NoForm : std::runtime_error {
  NoForm(const std::string& text, int atLine) : std::runtime_error(text), line(atLine) {}
  int line;
};
/// A file that cannot be opened.
struct Unreadable : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// Raises `NoForm` and `Unreadable`.
FormFile ReadForm(const std::string& path);

extern const char16_t* const kFieldClass;
extern const char16_t* const kDataControlClass;

}  // namespace tessaria::formcheck
