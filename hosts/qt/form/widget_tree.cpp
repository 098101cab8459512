#include "hosts/qt/form/widget_tree.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QCalendarWidget>
#include <QComboBox>
#include <QLineEdit>
#include <QStackedWidget>
#include <QTabBar>
#include <QTabWidget>

#include "tessaria/qt/adodc.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::qt {
namespace {

bool isInternalName(const QString& name) {
  return name.isEmpty() || name.startsWith(QLatin1String("qt_"));
}

template <class... Classes>
bool isAnyOf(const QWidget* widget) {
  return (qobject_cast<const Classes*>(widget) || ...);
}

/// A control whose children are its own affair.
bool isClosed(const QWidget* widget) {
  return isAnyOf<TsText, Adodc, QAbstractItemView, QAbstractSpinBox, QCalendarWidget, QComboBox,
                 QLineEdit, QTabBar>(widget);
}

QTabWidget* tabsOfPage(const QWidget* page) {
  const auto* stack = qobject_cast<QStackedWidget*>(page->parentWidget());
  return stack ? qobject_cast<QTabWidget*>(stack->parentWidget()) : nullptr;
}

void collectControls(const QWidget* parent, QList<QWidget*>& controls) {
  for (QObject* child : parent->children()) {
    auto* widget = qobject_cast<QWidget*>(child);
    if (!widget || isForm(widget)) continue;
    if (isControl(widget)) controls << widget;
    if (!isClosed(widget)) collectControls(widget, controls);
  }
}

bool takesTab(const QWidget* widget) {
  return (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus && !widget->focusProxy() &&
         widget->isEnabled();
}

}  // namespace

TsText* surfaceOf(QWidget* widget) {
  for (; widget; widget = widget->parentWidget()) {
    if (auto* surface = qobject_cast<TsText*>(widget)) return surface;
    if (widget->isWindow()) break;
  }
  return nullptr;
}

bool isForm(const QWidget* widget) {
  return widget->isWindow() || widget->property("dbForm").isValid();
}

QWidget* formOf(QWidget* widget) {
  while (!isForm(widget)) widget = widget->parentWidget();
  return widget;
}

bool isControl(const QWidget* widget) { return !isInternalName(widget->objectName()); }

QWidget* controlOf(QWidget* widget) {
  QWidget* control = widget;
  for (QWidget* w = widget; !isForm(w); w = w->parentWidget())
    if (isClosed(w) && isControl(w)) control = w;
  while (!isForm(control) && !isControl(control)) control = control->parentWidget();
  return control;
}

QList<QWidget*> controlsOf(const QWidget* form) {
  QList<QWidget*> controls;
  collectControls(form, controls);
  return controls;
}

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
