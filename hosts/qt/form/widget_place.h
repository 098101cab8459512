// How a widget is called and where it lies, as its form sees it.
#pragma once

#include <QWidget>

#include "tessaria/string.h"

namespace tessaria::qt {

String nameOf(const QWidget& widget);
String typeNameOf(const QWidget& widget);
Long leftOf(const QWidget& widget);
Long topOf(const QWidget& widget);
Long heightOf(const QWidget& widget);
/// The page, frame or form around the widget, past the parts that Qt puts between; nullptr for a
/// form.
QWidget* containerOf(const QWidget& widget);

}  // namespace tessaria::qt
