// Enter and Escape in an edit, which press buttons of the form.
#pragma once

#include <QAbstractButton>
#include <QKeyEvent>

namespace tessaria::qt {

/// Whether the key is Enter or Escape.
bool isDialogKey(const QKeyEvent& event);

/// Presses the default button (Enter) of the edit's window, or its cancel button (Escape), which
/// has the property "Cancel". The button takes the focus first, so that the field is settled, and
/// is not pressed if the field takes the focus back. Without a default button Enter may go to the
/// next field (`Comforts::EnterMovesOn`). Returns false if nothing is done, and for the editor of a
/// cell: the delegate or the window then handles the key. A delegate gets Enter from a settled
/// field only.
bool pressDialogButton(QWidget* edit, int key);

/// Moves the focus to the button and settles the field that it leaves. Returns false if the field
/// refused its text, the focus did not stay on the button, or the button is gone. For a button that
/// does not take the focus, the field is settled in place.
bool takeFocusBeforePress(QAbstractButton* button);

}  // namespace tessaria::qt
