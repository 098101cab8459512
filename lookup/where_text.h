// Where texts with the values of a form's controls in them.
#pragma once

#include "tessaria/host/form.h"

namespace tessaria::mdlObjTxt {

/// Replaces each @name@ of a where text by the `Value` of that control, as `ExpandeParametros`
/// does, so that each value is one token of the statement on the thread's connection. Between
/// apostrophes a value's apostrophes are doubled (its backslashes too, where they escape),
/// between double quotes its double quotes. Between "#" or brackets it must hold no closing one.
/// Elsewhere it is nothing or a number, as `SqlNumber` takes it, that touches no other word (in the
/// list of an "in" without a comma, which would stand for two numbers as well); a blank keeps its
/// sign from another sign, and keeps apart what nothing would join. Errors: 13 for a value that is
/// none of this, and for a parameter where none is accepted (comments, dollar quotes, texts of bits
/// and of Unicode escapes); 5 for a value that is not well formed; 730 for an unknown control, 91
/// for no form, as there.
String ExpandCondition(const host::FormPtr& form, const String& text);

}  // namespace tessaria::mdlObjTxt
