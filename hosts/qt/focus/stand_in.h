// The control that counts as active while a field is settled for an action.
#pragma once

#include <QStringList>
#include <QWidget>

#include "tessaria/host/form.h"

class QAction;

namespace tessaria::qt {

/// An action does not take the focus, so the field in focus is settled in place.
struct StandIn {
  host::WidgetPtr control;  ///< null: the field itself stays the active control
  QStringList names;        ///< a field whose `ObjetoCancelar` is one of them is not settled
};

/// A command button of that name on the form, whatever its type in Qt.
host::WidgetPtr makeActionPort(const QString& name, QWidget& form);

/// For a menu entry or a shortcut: a command button with its object name.
StandIn standInOf(const QObject& action, QWidget& form);
/// For a widget that does not take the focus when clicked. A button counts as a command button; the
/// name of its action counts too.
StandIn standInOf(QWidget& widget);

}  // namespace tessaria::qt
