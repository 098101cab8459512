// Properties of widgets by name, as late-bound programs reach them.
#pragma once

#include <QWidget>

#include "tessaria/variant.h"

namespace tessaria::qt {

/// Names without regard to case: those of the object model first (Caption, Text, Visible,
/// ForeColor, ...), then those of Qt, dynamic ones included. A control of ours answers with its
/// own properties ahead of both. Error 438 for a name that the widget does not have, 394 for one
/// that can only be written.
Variant getLate(const QWidget& widget, const String& property);
/// Errors: 438 no such property, 13 a value that it cannot take, 383 read-only.
void letLate(QWidget& widget, const String& property, const Variant& value);

}  // namespace tessaria::qt
