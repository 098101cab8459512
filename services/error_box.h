// The library's error box.
#pragma once

#include "tessaria/string.h"

namespace tessaria::mdlError {

/// Shows the pending error of the thread (`Err()`) in a box without an owner. The text is its
/// description; the title has its number and the procedure that it ended.
void MostraErro(const String& strProcedimento, const String& strModulo);

}  // namespace tessaria::mdlError
