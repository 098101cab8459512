#include "pickers/path_split.h"

#include "tessaria/text.h"

namespace tessaria {

SplitPath SplitForPicker(const String& path, bool fileMode, char16_t separator) {
  const Long dot = fileMode ? InStrRev(path, u".") : 0;
  if (dot == 0) return {path, String()};
  const Long p = InStrRev(Left(path, dot), String(1, separator));
  return {Left(path, p - 1), Mid(path, p + 1)};
}

}  // namespace tessaria
