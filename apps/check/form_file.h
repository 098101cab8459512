// A form file: its widgets with their settings, and the line of each.
#pragma once

#include <map>
#include <vector>

#include "apps/check/finding.h"

class QIODevice;

namespace tessaria::formcheck {

struct Line {
  int number = 0;
  String text;
};

struct FormWidget {
  String className;
  String name;
  int line = 0;
  int parent = -1;               ///< position in `FormFile::widgets`; -1 for the form itself
  int page = 0;                  ///< position among the widgets of its parent, from 0
  int children = 0;              ///< how many widgets have this one as their parent
  std::map<String, Line> texts;  ///< properties that are a text
  std::vector<Line> properties;  ///< the names of all of them
  bool hasSettings = false;
  std::vector<Line> settings;
};

struct CustomWidget {
  int line = 0;
  String className, extends, header;
};

struct FormFile {
  std::vector<FormWidget> widgets;       ///< the form first
  std::map<String, std::size_t> byName;  ///< their positions, by names in small letters
  std::vector<String> actions;
  std::vector<CustomWidget> customWidgets;

  /// Without regard to case; null when there is none.
  const FormWidget* Named(StringView name) const;
  const CustomWidget* Custom(StringView className) const;
  /// Whether the class of a widget, or one that it is promoted from, has that name.
  bool IsA(const FormWidget& widget, StringView className) const;
  bool IsField(const FormWidget& widget) const;
  bool IsDataControl(const FormWidget& widget) const;
  /// For "did you mean"; without `widget` itself. None on a form too large to compare names.
  std::vector<String> NamesBeside(const FormWidget& widget) const;
};

/// False when the file is no form; the reason is among the findings.
bool ReadForm(QIODevice& file, FormFile& form, Findings& findings);

}  // namespace tessaria::formcheck
