#include "hosts/qt/form/active_control.h"

#include <QVariant>

namespace tessaria::qt {
namespace {

constexpr char kStandIn[] = "_tessaria_stand_in";

}  // namespace

host::WidgetPtr activeStandIn(const QWidget& window) {
  return window.property(kStandIn).value<host::WidgetPtr>();
}

void setActiveStandIn(QWidget& window, const host::WidgetPtr& control) {
  window.setProperty(kStandIn, control ? QVariant::fromValue(control) : QVariant());
}

}  // namespace tessaria::qt
