// The library's error box.
#pragma once

#include "tessaria/string.h"

namespace tessaria::mdlError {

/// Shows the pending error of the thread (`Err()`) in a box without an owner: its description,
/// under a title with its number and the procedure that it stopped.
void MostraErro(const String& strProcedimento, const String& strModulo);

}  // namespace tessaria::mdlError
