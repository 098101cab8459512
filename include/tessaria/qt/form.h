// A form and the controls on it, seen through the ports.
#pragma once

#include <QWidget>

#include "tessaria/export.h"
#include "tessaria/host/form.h"

namespace tessaria::qt {

/// The form as its controls see it. `dbForm` is the dynamic property of that name, a QVariant of
/// a `host::ConnectionPtr`.
TESSARIA_QT_API host::FormPtr makeForm(QWidget& form);

/// Any widget as its form sees it. Its type name depends on its kind: TsText is "tsText", Adodc
/// "Adodc", QLabel "Label", QTabWidget "SSTab", check boxes "CheckBox", radio buttons
/// "OptionButton", every other button "CommandButton", a form "Form"; all others by their class
/// name.
TESSARIA_QT_API host::WidgetPtr makeWidget(QWidget& widget);

}  // namespace tessaria::qt
