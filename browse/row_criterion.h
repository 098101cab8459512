// The criteria by which the list seeks a row in its record set.
#pragma once

#include "tessaria/string.h"
#include "tessaria/variant.h"

namespace tessaria::mdlObjTxt {

/// The rows whose field begins with a text. A name that would not end where it should, one with a
/// blank or a comparison sign in it, stands in brackets.
String CriterioDeInicio(const String& nome, StringView texto);
/// The rows whose field equals a value that is no text. A number has as many digits as tell it
/// from its neighbours. Errors: 94 for Null, 13 for an object.
String CriterioDeIgualdade(const String& nome, const Variant& valor);

}  // namespace tessaria::mdlObjTxt
