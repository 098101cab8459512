#include "tessaria/qt/pages.h"

#include <QStackedWidget>
#include <QTabWidget>
#include <QWidget>

#include "hosts/qt/form/pages.h"

namespace tessaria::qt {
namespace {

/// Null for a page that does not turn.
QTabWidget* tabsOfPage(const QWidget* page) {
  const auto* stack = qobject_cast<QStackedWidget*>(page->parentWidget());
  auto* tabs = stack ? qobject_cast<QTabWidget*>(stack->parentWidget()) : nullptr;
  return tabs && !tabs->property(kPagesStay).toBool() ? tabs : nullptr;
}

bool takesTab(const QWidget* widget) {
  return (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && !widget->focusProxy() &&
         widget->isEnabled();
}

}  // namespace

bool isReachable(const QWidget* widget) {
  for (const QWidget* w = widget; !w->isWindow(); w = w->parentWidget()) {
    if (const QTabWidget* tabs = tabsOfPage(w)) {
      const int page = tabs->indexOf(w);
      if (!tabs->isTabEnabled(page) || !tabs->isTabVisible(page)) return false;
    } else if (w->isHidden()) {
      return false;
    }
  }
  return true;
}

void showPagesOf(QWidget* widget) {
  for (QWidget* w = widget; w && !w->isWindow(); w = w->parentWidget())
    if (QTabWidget* tabs = tabsOfPage(w)) tabs->setCurrentWidget(w);
}

bool focusNextPage(QWidget* window, bool next) {
  QWidget* from = window->focusWidget();
  if (!from) return false;
  const auto step = [next](const QWidget* w) {
    return next ? w->nextInFocusChain() : w->previousInFocusChain();
  };
  for (QWidget* w = step(from); w && w != from; w = step(w)) {
    if (w->window() != window || !takesTab(w) || !isReachable(w)) continue;
    if (w->isVisible()) return false;
    showPagesOf(w);
    w->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
  }
  return false;
}

}  // namespace tessaria::qt
