// Where a widget lies: its control and its form.
#pragma once

#include <QWidget>

#include "tessaria/qt/surface.h"

namespace tessaria::qt {

/// The field that the widget is, or lies inside of; nullptr for none.
Surface* surfaceOf(QWidget* widget);

/// A window, or a widget with the property "dbForm".
bool isForm(const QWidget* widget);
/// The nearest form around a widget, or the widget itself when it is a window.
QWidget* formOf(QWidget* widget);

/// Whether a program knows the widget as a control: it has a name of its own and is no part of
/// another control.
bool isControl(const QWidget* widget);
/// The control that the widget is or is a part of; the form at last.
QWidget* controlOf(QWidget* widget);
/// All controls of a form in order of creation; those of forms inside it are not among them.
QList<QWidget*> controlsOf(const QWidget* form);

}  // namespace tessaria::qt
