// The date test of a field.
#pragma once

#include "tessaria/host/widgets.h"

namespace tessaria::mdlObjTxt {

/// Whether the box holds a date of its mask, or nothing. A valid date is written back with the
/// year in four digits, whatever the mask; an invalid one stays as it is.
/// Years: one digit is 200x, up to 40 is 20xx, above is 19xx. Every fourth year is a leap year.
/// Masks: "dd/mm/yyyy", "dd/mm/yy", "mm/yyyy", "mm/yy" exactly; with any other only an empty
/// date is valid.
bool ChecaData(host::TextBox& box, const String& mask, const String& items);

}  // namespace tessaria::mdlObjTxt
