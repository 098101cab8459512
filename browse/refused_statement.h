// A statement of a lookup that the database refused.
#pragma once

#include "tessaria/string.h"

namespace tessaria::mdlObjTxt {

/// Shows the pending error of the thread and the statement, laid out for reading, and puts the
/// statement on the clipboard when the operator says yes. Flags as `ExibeMensagem` takes them.
void OfferStatement(const String& statement, const String& title, Long flags, Long owner);

}  // namespace tessaria::mdlObjTxt
