// Where a widget lies: its control, its form, its pages.
#pragma once

#include <QWidget>

namespace tessaria::qt {

class TsText;

/// The control that the widget is, or lies inside of; nullptr for none.
TsText* surfaceOf(QWidget* widget);

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

/// Whether nothing but pages that are not in front hides the widget.
bool isReachable(const QWidget* widget);
/// Brings all pages that the widget lies on to the front.
void showPagesOf(QWidget* widget);
/// Moves the focus on to a control of a page that is not in front, when that is the next in the
/// order of tabs. False when the next one is elsewhere.
bool focusNextPage(QWidget* window, bool next);

}  // namespace tessaria::qt
