// The date test of a field.
#pragma once

#include "tessaria/host/widgets.h"

namespace tessaria::mdlObjTxt {

/// Whether the box contains a date that fits its mask, or nothing. A valid date is written back
/// with a four-digit year, whatever the mask; an invalid one is left unchanged.
/// Years: one digit is 200x, up to 40 is 20xx, above is 19xx. Every fourth year is a leap year.
/// Masks: exactly "dd/mm/yyyy", "dd/mm/yy", "mm/yyyy", "mm/yy"; with any other mask only an empty
/// date is valid.
bool ChecaData(host::TextBox& box, const String& mask, const String& items);

}  // namespace tessaria::mdlObjTxt
