// A path as its picker takes it apart.
#pragma once

#include "tessaria/string.h"

namespace tessaria {

struct SplitPath {
  String Folder;
  String File;
};

/// Folder and file of a path. With `separator` at the end of neither. In file mode the text
/// behind the last separator ahead of the last "." is the file; without a "." all is folder, as
/// it always is in folder mode. Error 5 for a "." with no separator ahead of it.
SplitPath SplitForPicker(const String& path, bool fileMode, char16_t separator);

}  // namespace tessaria
