// Preparation of query text.
#pragma once

#include "tessaria/string.h"

namespace tessaria::mdlObjTxt {

/// A select field without its alias: all up to and including the blank in front of the first
/// " as " (lower case only). A text without one comes back unchanged.
String TiraAlias(const String& strCampo);

/// The name under which a record set has a field of a select list: the alias when there is one
/// (" as " in any case), else the name without its qualifiers; without quotes (", `, []) either
/// way.
String ColumnName(const String& strCampo);

}  // namespace tessaria::mdlObjTxt
