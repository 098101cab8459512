// What the boxes of the core have in common: the window under them.
#pragma once

#include <QDialog>
#include <QPointer>
#include <QWidget>

namespace tessaria::qt {

/// The window that a box opens over: its owner, or the modal window in front of it.
QWidget* windowOfBox(QWidget* owner);

/// Runs a box over that window. It closes with its owner, which may be nullptr, and with the window
/// under it. Returns that window; the box may be gone with it.
QPointer<QWidget> runBox(QDialog& box, QWidget* owner);

/// Makes the window active again: not every window system returns the focus by itself.
void returnTo(const QPointer<QWidget>& window);

/// A lone carriage return is a line break too.
QString withLineEnds(QString text);

}  // namespace tessaria::qt
