#include "hosts/qt/focus/delegate_editor.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>

#include "hosts/qt/form/widget_tree.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/settle.h"

namespace tessaria::qt {
namespace {

/// A delegate claims Escape before any shortcut; a field does not.
class Probe final : public QKeyEvent {
 public:
  Probe() : QKeyEvent(ShortcutOverride, Qt::Key_Escape, Qt::NoModifier) {}
  bool hasArrived = false;
};

void send(QWidget& field, QEvent& event) {
  guarded(&field, [&] { QCoreApplication::sendEvent(&field, &event); });
}

}  // namespace

bool isCellEditor(const QWidget* widget) {
  const QWidget* viewport = widget->parentWidget();
  const auto* view =
      viewport ? qobject_cast<const QAbstractItemView*>(viewport->parentWidget()) : nullptr;
  return view && view->viewport() == viewport;
}

bool hasDelegate(QWidget& field) {
  Probe probe;
  send(field, probe);
  return !probe.hasArrived;
}

bool takesProbe(QEvent* event) {
  auto* probe = event->type() == QEvent::ShortcutOverride ? dynamic_cast<Probe*>(event) : nullptr;
  if (!probe) return false;
  probe->hasArrived = true;
  probe->accept();  // otherwise it would go on to the widgets around the field
  return true;
}

bool settleForDelegate(QWidget* edit) {
  Surface* field = surfaceOf(edit);
  return !field || !hasDelegate(field->widget()) || settle(edit);
}

void tellDelegateOfLeaving(QWidget& field) {
  QFocusEvent event(QEvent::FocusOut);
  send(field, event);
}

void tellDelegateOfTab(QWidget& field, bool next) {
  QKeyEvent event(QEvent::KeyPress, next ? Qt::Key_Tab : Qt::Key_Backtab, Qt::NoModifier);
  send(field, event);
}

}  // namespace tessaria::qt
