// The first show of a form, and the order in which its fields are loaded.
#pragma once

#include <QList>
#include <QWidget>

#include "tessaria/qt/surface.h"

namespace tessaria::qt {

/// Notifies every control of the form of its first show, including those on hidden pages: unbound
/// controls first, then keys, then the rest, and descriptions last, so that no control clears what
/// another one has filled. Data controls open their rows before. A second call does nothing.
void showFirst(QWidget* form);
/// The same, once the events that are due have been processed.
void showFirstSoon(QWidget* form);
/// The same for a field on a form under design: the fields take their turns once the events that
/// are due have been processed, because they may wait for a database server.
void showDesignedSoon(Surface& field);
/// Whether the form has had its first show.
bool wasShown(const QWidget* form);

/// The fields of a form in that order.
QList<Surface*> inLoadOrder(QWidget* form);

}  // namespace tessaria::qt
