// What a designer of forms tells the controls: which of them are being designed, and on which form.
#pragma once

#include <QWidget>

#include "tessaria/export.h"

namespace tessaria::qt {

/// Returns the form under design that a widget is on; nullptr for a widget that is not being
/// designed, such as one in a preview.
using FormFinder = QWidget* (*)(QWidget* widget);

/// Makes the program a designer of forms; nullptr ends that. A designer calls this before it
/// creates the first control. From then on:
///
/// - A control on a form under design is in design mode, and belongs to that form alone.
/// - Showing such a form opens no connection. Its fields read their surroundings once the events
///   that are due have been processed; each data control is tried once, and what fails shows no
///   box: see `tsText::DesignTimeError` and `Adodc::designError`.
/// - `install()` leaves the language of the program alone.
TESSARIA_QT_API void setDesigner(FormFinder find);
/// Whether the program is a designer of forms.
TESSARIA_QT_API bool isDesigner();
/// The form under design that a widget is on; nullptr for none.
TESSARIA_QT_API QWidget* formUnderDesign(const QWidget* widget);

}  // namespace tessaria::qt
