#include "hosts/qt/form/widget_tree.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QCalendarWidget>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>

#include "tessaria/qt/design_time.h"

namespace tessaria::qt {
namespace {

bool isInternalName(const QString& name) {
  return name.isEmpty() || name.startsWith(QLatin1String("qt_"));
}

template <class... Classes>
bool isAnyOf(const QWidget* widget) {
  return (qobject_cast<const Classes*>(widget) || ...);
}

/// A control whose children are not controls themselves.
bool isClosed(const QWidget* widget) {
  return dynamic_cast<const FormControl*>(widget) ||
         isAnyOf<QAbstractItemView, QAbstractSpinBox, QCalendarWidget, QComboBox, QLineEdit,
                 QTabBar>(widget);
}

constexpr char kConnection[] = "dbForm";

/// Whether the class of the widget is the library's own.
bool isPartOfControl(const QWidget* widget) {
  return dynamic_cast<const FormControl*>(widget) ||
         dynamic_cast<const FormControl*>(widget->parentWidget());
}

void collectControls(const QWidget* parent, QList<QWidget*>& controls) {
  for (QObject* child : parent->children()) {
    auto* widget = qobject_cast<QWidget*>(child);
    if (!widget || isForm(widget)) continue;
    if (isControl(widget)) controls << widget;
    if (!isClosed(widget)) collectControls(widget, controls);
  }
}

}  // namespace

Surface* surfaceOf(QWidget* widget) {
  for (; widget; widget = widget->parentWidget()) {
    if (auto* surface = dynamic_cast<Surface*>(widget)) return surface;
    if (widget->isWindow()) break;
  }
  return nullptr;
}

bool isForm(const QWidget* widget) {
  if (widget->isWindow() || widget->dynamicPropertyNames().contains(kConnection)) return true;
  // Qt compares the name with those of all properties, which fields have many of.
  return !isPartOfControl(widget) && widget->property(kConnection).isValid();
}

// A designer keeps a widget that was removed from its form outside of it, and belongs to no form
// itself.
QWidget* formOf(QWidget* widget) {
  QWidget* const designed = formUnderDesign(widget);
  if (designed && !designed->isAncestorOf(widget)) return designed;
  while (widget != designed && !isForm(widget)) widget = widget->parentWidget();
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

QList<QLabel*> labelsOf(const QWidget* form) {
  QList<QLabel*> labels = form->findChildren<QLabel*>();
  labels.removeIf([form](QLabel* label) { return formOf(label) != form; });
  return labels;
}

}  // namespace tessaria::qt
