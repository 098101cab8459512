// Input boxes of the core as Qt dialogs.
#pragma once

#include <QWidget>

namespace tessaria::qt {

/// Asks for one line of text over `owner`, which may be nullptr, or over the modal window in front
/// of it, and waits. Returns "" when the operator cancels, or when the owner is gone. `title` ""
/// stands for the program's name.
QString showInputBox(QWidget* owner, const QString& prompt, const QString& title,
                     const QString& offered);

}  // namespace tessaria::qt
