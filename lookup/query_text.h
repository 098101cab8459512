// Fields of a select list and their names.
#pragma once

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria::mdlObjTxt {

/// A select field without its alias: the text up to and including the first blank of the first
/// " as " (lower case only). Without one the text is returned unchanged.
TESSARIA_HOST_API String TiraAlias(const String& strCampo);

/// The name that a field of a select list has in the record set: the alias when there is one
/// (" as " in any case), else the name without its qualifiers; without quotes (", `, []) in both
/// cases.
String ColumnName(const String& strCampo);

}  // namespace tessaria::mdlObjTxt
