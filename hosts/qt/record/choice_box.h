// A question with more answers than yes and no.
#pragma once

#include <QStringList>
#include <QWidget>

namespace tessaria::qt {

/// Shows a modal box over the widget's window and waits. The buttons are named with their
/// mnemonics; the last one is the default, and the answer to Escape and to the frame. Returns the
/// position of the answer.
qsizetype chooseInBox(QWidget& owner, const QString& text, const QStringList& buttons);

}  // namespace tessaria::qt
