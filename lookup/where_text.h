// Where conditions with the values of a form's controls.
#pragma once

#include "tessaria/host/form.h"

namespace tessaria::mdlObjTxt {

/// Replaces each @name@ in a where condition with the `Value` of that control, as
/// `ExpandeParametros` does, so that each value is one token of the statement on the thread's
/// connection:
/// - Between apostrophes the value's apostrophes are doubled, and its backslashes where they
///   escape.
/// - Between double quotes its double quotes are doubled.
/// - Between "#" or brackets it must not contain the closing character.
/// - Elsewhere it is empty or a number, as `SqlNumber` takes it, that is not adjacent to a word. In
///   the list of an "in" it must not contain a comma, which could also mean two numbers. A blank is
///   written before its sign after another sign, and in place of an empty value between two tokens
///   that would otherwise join.
///
/// Errors: 13 for a value that does not meet these rules, and for a parameter where none is
/// accepted (comments, dollar quotes, texts of bits and of Unicode escapes); 5 for a value that is
/// not well formed; 730 for an unknown control and 91 without a form, as in `ExpandeParametros`.
String ExpandCondition(const host::FormPtr& form, const String& text);

}  // namespace tessaria::mdlObjTxt
