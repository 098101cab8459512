// Numbers with leading zeros.
#pragma once

#include "tessaria/host/widgets.h"
#include "tessaria/variant.h"

namespace tessaria::mdlObjTxt {

/// The value as digits with leading zeros and an implied decimal mark: 12.5 with length 6 and
/// 2 decimals is "001250". A sign counts in the length; "*" throughout when it does not fit.
/// "" and "." are 0; halves round to even. All digits of a text count, those of a double as far as
/// its text shows them. Errors of CDbl.
String StrZero(const Variant& value, Integer length, Integer decimals);

/// Zero-fills the box of a mask that holds a "0". `TipoStrZero` 1 pads the bare text as one
/// number and leaves the box without its literals; any other value pads each run of "0" that
/// has something typed in it.
void PreencheZeros(host::TextBox& box, const String& mask, const String& items,
                   const String& promptChar, Long TipoStrZero);

}  // namespace tessaria::mdlObjTxt
