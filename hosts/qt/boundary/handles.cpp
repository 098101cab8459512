#include "hosts/qt/boundary/handles.h"

#include <QHash>
#include <QPointer>

namespace tessaria::qt {
namespace {

struct Registry {
  QHash<Long, QPointer<QWidget>> widgets;
  QHash<const QObject*, Long> handles;
  Long last = 0;
};

Registry& registry() {
  static thread_local Registry instance;
  return instance;
}

void forget(const QObject* widget) { registry().widgets.remove(registry().handles.take(widget)); }

}  // namespace

Long handleOf(QWidget& widget) {
  Registry& all = registry();
  Long& handle = all.handles[&widget];
  if (handle == 0) {
    handle = ++all.last;
    all.widgets.insert(handle, &widget);
    QObject::connect(&widget, &QObject::destroyed, &forget);
  }
  return handle;
}

QWidget* widgetOf(Long handle) { return registry().widgets.value(handle); }

}  // namespace tessaria::qt
