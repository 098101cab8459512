#include "tessaria/qt/settle.h"

#include "hosts/qt/focus/focus_cycle.h"
#include "hosts/qt/form/widget_tree.h"

namespace tessaria::qt {

bool settle(QWidget* widget, const QString& action) {
  FocusCycle* cycle = FocusCycle::existing(widget->window());
  if (!cycle) return true;
  if (action.isEmpty()) return cycle->settleField();
  return cycle->settleField({makeActionPort(action, *formOf(widget)), {action}});
}

bool settleLeftField(QWidget* widget) {
  FocusCycle* cycle = FocusCycle::existing(widget->window());
  return !cycle || cycle->settlePending();
}

void enterAgain(QWidget* widget) {
  if (FocusCycle* cycle = FocusCycle::existing(widget->window())) cycle->enterAgain();
}

}  // namespace tessaria::qt
