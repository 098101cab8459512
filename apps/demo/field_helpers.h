// Small things that the forms do with their fields.
#pragma once

#include <QString>

#include "tessaria/variant.h"

namespace tessaria::qt {
class TsText;
}

namespace tessaria::demo {

/// Enter goes on to the next field as Tab does.
void moveOnWithEnter(qt::TsText* field);

/// What a lookup's return field held in the row that the code's last lookup found.
Variant returned(const qt::TsText* code, const char16_t* field);

/// Gives a code to a pair as if it had been chosen: its description follows.
void giveCode(qt::TsText* code, const Variant& value);

/// A value as text; empty for Null.
QString textOf(const Variant& value);

/// The field's value as text; empty for Null.
QString codeIn(const qt::TsText* field);

}  // namespace tessaria::demo
