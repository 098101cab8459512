// The name and the position of a widget, as its form sees them.
#pragma once

#include <QWidget>

#include "tessaria/string.h"

namespace tessaria::qt {

String nameOf(const QWidget& widget);
String typeNameOf(const QWidget& widget);
Long leftOf(const QWidget& widget);
Long topOf(const QWidget& widget);
Long heightOf(const QWidget& widget);
/// The page, frame or form around the widget, without the widgets that Qt inserts between them;
/// nullptr for a form.
QWidget* containerOf(const QWidget& widget);

}  // namespace tessaria::qt
