// Preparation of query text.
#pragma once

#include "tessaria/string.h"

namespace tessaria::mdlObjTxt {

/// A select field without its alias: all up to and including the blank in front of the first
/// " as " (lower case only). A text without one comes back unchanged.
String TiraAlias(const String& strCampo);

}  // namespace tessaria::mdlObjTxt
