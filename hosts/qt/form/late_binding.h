// Properties of widgets by name, for late-bound programs.
#pragma once

#include <QWidget>

#include "tessaria/variant.h"

namespace tessaria::qt {

/// Names are not case-sensitive: those of the object model come first (Caption, Text, Visible,
/// ForeColor, ...), then those of Qt, including dynamic ones. For a control of this library, its
/// own properties come before both. Errors: 438 if the widget does not have the property, 394 if
/// it can only be written.
Variant getLate(const QWidget& widget, const String& property);
/// Errors: 438 no such property, 13 a value that it cannot take, 383 read-only.
void letLate(QWidget& widget, const String& property, const Variant& value);

}  // namespace tessaria::qt
