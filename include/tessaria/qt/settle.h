// Settling fields in a program's own code.
#pragma once

#include <QString>

#include "tessaria/export.h"

class QWidget;

namespace tessaria::qt {

/// Settles the field of the widget's window that holds the focus, as if it were left.
///
/// The host does so by itself ahead of what the operator starts without moving the focus: tool
/// buttons and other buttons without a focus policy, entries of menus, shortcuts of `QAction` and
/// `QShortcut`, and closing the window by its frame. The rest calls this first: handlers reached
/// through a native menu bar, clicks on widgets of the program's own, links, `QAction::trigger()`.
///
/// While the field is settled a command button of the name `action` counts as the form's active
/// control, so that a required field may not be blank; without a name it is the field itself.
///
/// False when the field refuses its text or its value could not be taken; it has then told the
/// operator why.
TESSARIA_QT_API bool settle(QWidget* widget, const QString& action = {});

/// Settles now a field of the widget's window that the focus has left, as `QWidget::setFocus` makes
/// it do: otherwise that waits for the event loop. The field may take the focus back, so look where
/// the focus is afterwards. False when the field refuses its text or its value could not be taken.
TESSARIA_QT_API bool settleLeftField(QWidget* widget);

/// Enters the field of the widget's window that holds the focus anew: the program has shown
/// another row in it. Nothing happens while a field waits to be settled.
TESSARIA_QT_API void enterAgain(QWidget* widget);

}  // namespace tessaria::qt
