// Shows a statement that the database refused.
#pragma once

#include "tessaria/string.h"

namespace tessaria::mdlObjTxt {

/// Shows the pending error of the thread and the statement, laid out for reading, and copies the
/// statement to the clipboard when the operator answers yes. `flags` as in `ExibeMensagem`.
void OfferStatement(const String& statement, const String& title, Long flags, Long owner);

}  // namespace tessaria::mdlObjTxt
