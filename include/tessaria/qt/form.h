// A form and the controls on it, seen through the ports.
#pragma once

#include <QWidget>

#include "tessaria/export.h"
#include "tessaria/host/data.h"
#include "tessaria/host/form.h"

namespace tessaria::qt {

/// The form as its controls see it. `dbForm` is the dynamic property of that name, a QVariant of
/// a `host::ConnectionPtr`.
TESSARIA_QT_API host::FormPtr makeForm(QWidget& form);

/// Gives a form its connection, as its property `dbForm`: the lookups of its fields use it, and so
/// do the data controls on it that are given no other. To be called before the form is shown for
/// the first time. A program that works with Qt's SQL module gives its own database, with its
/// session and its transaction, by one call:
///
///   tessaria::qt::setConnection(form, tessaria::qtsql::Adopt(database));
TESSARIA_QT_API void setConnection(QWidget& form, const host::ConnectionPtr& connection);

/// The connection that the form was given; null for none.
TESSARIA_QT_API host::ConnectionPtr connectionOf(const QWidget& form);

/// Any widget as its form sees it. Its type name depends on its kind: TsText is "tsText", Adodc
/// "Adodc", QLabel "Label", QTabWidget "SSTab", check boxes "CheckBox", radio buttons
/// "OptionButton", every other button "CommandButton", a form "Form"; all others by their class
/// name.
TESSARIA_QT_API host::WidgetPtr makeWidget(QWidget& widget);

}  // namespace tessaria::qt
