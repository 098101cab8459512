// The first show of a form, and the order in which its fields are loaded.
#pragma once

#include <QList>
#include <QWidget>

#include "tessaria/qt/surface.h"

namespace tessaria::qt {

/// Tells every control of the form of its first show, those on hidden pages too: unbound
/// controls first, then keys, then the rest, descriptions last, so that no control wipes what
/// another one has filled. Data controls open their rows before. Does nothing at a second call.
void showFirst(QWidget* form);
/// Whether the form had its first show.
bool wasShown(const QWidget* form);

/// The fields of a form in that order.
QList<Surface*> inLoadOrder(const QWidget* form);

}  // namespace tessaria::qt
