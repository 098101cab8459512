// Enter and Escape in an edit, on their way to the form's buttons.
#pragma once

#include <QAbstractButton>
#include <QKeyEvent>

namespace tessaria::qt {

/// Enter or Escape.
bool isDialogKey(const QKeyEvent& event);

/// Presses the default button (Enter) or the cancel button (Escape) of the edit's window: the
/// one with the property "Cancel". The button takes the focus first, so that the field is
/// settled, and is not pressed when the field takes the focus back. False when there is no such
/// button: the key is then the window's own.
bool pressDialogButton(QWidget* edit, int key);

/// Moves the focus to the button and settles the field that it leaves. False when the field
/// refused its text, the focus did not stay there, or the button is gone. A button that takes no
/// focus has the field settled in place.
bool takeFocusBeforePress(QAbstractButton* button);

}  // namespace tessaria::qt
