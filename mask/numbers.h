// Numbers with leading zeros.
#pragma once

#include "tessaria/host/widgets.h"
#include "tessaria/variant.h"

namespace tessaria::mdlObjTxt {

/// The value as digits with leading zeros and an implied decimal mark: 12.5 with length 6 and
/// 2 decimals is "001250". A sign counts in the length; the result is all "*" when it does not fit.
/// "" and "." are 0; halves round to even. All digits of a text count, and of a double those that
/// its text shows. Raises the errors of `CDbl`.
String StrZero(const Variant& value, Integer length, Integer decimals);

/// Fills the box of a mask that contains a "0" with zeros. `TipoStrZero` 1 pads the text without
/// literals as one number and leaves the box without its literals; any other value pads each run of
/// "0" in which something is typed.
void PreencheZeros(host::TextBox& box, const String& mask, const String& items,
                   const String& promptChar, Long TipoStrZero);

}  // namespace tessaria::mdlObjTxt
