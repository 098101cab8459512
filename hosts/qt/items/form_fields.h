// The fields of a form with a data control, and their checks before a row is saved.
#pragma once

#include <QList>
#include <QWidget>

#include "tessaria/qt/adodc.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::qt {

/// The fields inside `form` that are bound to the data control or to none, in the order of the Tab
/// key.
QList<TsText*> fieldsInTabOrder(QWidget& form, const Adodc& data);

/// Settles the field with the focus as if it were left for a command button, so that a required
/// field may not be blank. False when it refuses; the operator has been told.
bool settleForSaving(QWidget& form);
/// Checks one field in the same way. When it refuses, its page comes to the front before the
/// message and it gets the focus. The field may be destroyed meanwhile.
bool checkForSaving(TsText& field);

/// Shows the page that the field is on and puts the focus there.
void bringToOperator(TsText& field);

}  // namespace tessaria::qt
