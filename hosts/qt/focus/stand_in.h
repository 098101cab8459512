// What counts as the active control while a field is settled for an action.
#pragma once

#include <QStringList>
#include <QWidget>

#include "tessaria/host/form.h"

class QAction;

namespace tessaria::qt {

/// An action takes no focus, so that the field it finds is settled where it stands.
struct StandIn {
  host::WidgetPtr control;  ///< nothing: the field itself stays the active control
  QStringList names;        ///< a field whose `ObjetoCancelar` is one of them is left alone
};

/// A command button of that name on the form, whatever it is in Qt.
host::WidgetPtr makeActionPort(const QString& name, QWidget& form);

/// An entry of a menu, or a shortcut: a command button of its object name.
StandIn standInOf(const QObject& action, QWidget& form);
/// A widget that takes no focus by the mouse. A button counts as a command button; it may be named
/// by its action too.
StandIn standInOf(QWidget& widget);

}  // namespace tessaria::qt
