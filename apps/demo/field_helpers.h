// Helper functions that the forms use with their fields.
#pragma once

#include <QString>

#include "tessaria/variant.h"

namespace tessaria::qt {
class TsText;
}

namespace tessaria::demo {

/// The value of a lookup's return field in the row that the code's last lookup found.
Variant returned(const qt::TsText* code, const char16_t* field);

/// Assigns a code to a pair as if it had been chosen, and fetches its description.
void giveCode(qt::TsText* code, const Variant& value);

/// A value as text; empty for Null.
QString textOf(const Variant& value);

/// The field's value as text; empty for Null.
QString codeIn(const qt::TsText* field);

}  // namespace tessaria::demo
