// Fields that a delegate of Qt's item views or of a widget mapper edits a model with.
#pragma once

#include <QWidget>

class QEvent;

namespace tessaria::qt {

/// Whether the widget is a cell's editor: it stands on the viewport of an item view.
bool isCellEditor(const QWidget* widget);

/// Whether a delegate watches the events of the field, be it of an item view or of a mapper.
bool hasDelegate(QWidget& field);

/// Takes what `hasDelegate` sends when no delegate has taken it. A field passes all its events.
bool takesProbe(QEvent* event);

/// Settles a field that a delegate watches, before its Enter key reaches the delegate, which then
/// reads its value. Returns false when the field refuses its text: the key must not go on.
bool settleForDelegate(QWidget* edit);

/// Gives the delegate of a settled field what it commits at: that the focus has left, or a key.
void tellDelegateOfLeaving(QWidget& field);
void tellDelegateOfTab(QWidget& field, bool next);

}  // namespace tessaria::qt
