// Splits a path for the folder picker.
#pragma once

#include "tessaria/string.h"

namespace tessaria {

struct SplitPath {
  String Folder;
  String File;
};

/// Folder and file of a path, both without `separator` at the end. In file mode the file is the
/// text after the last separator before the last "."; without a ".", and in folder mode, the whole
/// path is the folder. Error 5 for a "." with no separator before it.
SplitPath SplitForPicker(const String& path, bool fileMode, char16_t separator);

}  // namespace tessaria
