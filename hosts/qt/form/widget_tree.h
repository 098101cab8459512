// The control and the form that a widget belongs to.
#pragma once

#include <QList>
#include <QWidget>

#include "tessaria/qt/surface.h"

class QLabel;

namespace tessaria::qt {

/// The field that the widget is or is inside of; nullptr for none.
Surface* surfaceOf(QWidget* widget);

/// Whether the widget is a window or has the property "dbForm".
bool isForm(const QWidget* widget);
/// The nearest form around a widget, or the widget itself when it is a window or a form under
/// design.
QWidget* formOf(QWidget* widget);

/// Whether a program knows the widget as a control: it has its own name and is not a part of
/// another control.
bool isControl(const QWidget* widget);
/// The control that the widget is or is a part of; otherwise the form.
QWidget* controlOf(QWidget* widget);
/// All controls of a form in order of creation, except those of forms inside it.
QList<QWidget*> controlsOf(const QWidget* form);
/// The labels of a form in order of creation, except those of forms inside it.
QList<QLabel*> labelsOf(const QWidget* form);

}  // namespace tessaria::qt
