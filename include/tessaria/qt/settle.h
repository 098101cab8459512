// Settling fields in a program's own code.
#pragma once

#include <QString>

#include "tessaria/export.h"

class QWidget;

namespace tessaria::qt {

/// Settles the field of the widget's window that has the focus, as if it were left.
///
/// The host does this itself before any action that the operator starts without moving the focus:
/// tool buttons and other buttons without a focus policy, entries of menus, shortcuts of `QAction`
/// and `QShortcut`, and closing the window by its frame. All other code calls this function first:
/// handlers reached through a native menu bar, clicks on widgets of the program's own, links,
/// `QAction::trigger()`.
///
/// While the field is settled a command button of the name `action` counts as the form's active
/// control, so that a required field may not be blank; without a name the field itself does.
///
/// Returns false when the field refuses its text or its value could not be taken; the operator has
/// then been told why.
TESSARIA_QT_API bool settle(QWidget* widget, const QString& action = {});

/// Settles at once a field of the widget's window that the focus has left, for example by
/// `QWidget::setFocus`; otherwise the field waits for the event loop. The field may take the focus
/// back, so check afterwards where the focus is. Returns false when the field refuses its text or
/// its value could not be taken.
TESSARIA_QT_API bool settleLeftField(QWidget* widget);

/// Enters again the field of the widget's window that has the focus, after the program has shown
/// another row in it. Does nothing while a field waits to be settled.
TESSARIA_QT_API void enterAgain(QWidget* widget);

}  // namespace tessaria::qt
