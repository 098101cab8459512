// What all widgets have in common at the port.
#pragma once

#include <QPointer>
#include <QWidget>

#include "tessaria/error.h"
#include "tessaria/host/form.h"

namespace tessaria::qt {

String nameOf(const QWidget& widget);
String typeNameOf(const QWidget& widget);
Long leftOf(const QWidget& widget);
Long topOf(const QWidget& widget);
Long heightOf(const QWidget& widget);
/// The page, frame or form around the widget, past the parts that Qt puts between; nullptr for a
/// form.
QWidget* containerOf(const QWidget& widget);

/// Implements `host::Widget` for any of its kinds. Every member raises 91 when the widget is
/// gone.
template <class Port, class Qt = QWidget>
class WidgetPort : public Port {
 public:
  explicit WidgetPort(Qt& widget) : widget_(&widget) {}

  String Name() const override { return nameOf(widget()); }
  String TypeName() const override { return typeNameOf(widget()); }
  Long Left() const override { return leftOf(widget()); }
  Long Top() const override { return topOf(widget()); }
  Long Height() const override { return heightOf(widget()); }
  host::WidgetPtr Container() const override;
  Variant Get(const String& property) const override;
  void Let(const String& property, const Variant& value) override;

 protected:
  bool isGone() const { return !widget_; }
  Qt& widget() const {
    if (!widget_) throw HostError(errors::ObjectNotSet);
    return *widget_;
  }

 private:
  QPointer<Qt> widget_;
};

}  // namespace tessaria::qt

#include "hosts/qt/form/late_binding.h"
#include "tessaria/qt/form.h"

namespace tessaria::qt {

template <class Port, class Qt>
host::WidgetPtr WidgetPort<Port, Qt>::Container() const {
  QWidget* container = containerOf(widget());
  return container ? makeWidget(*container) : nullptr;
}

template <class Port, class Qt>
Variant WidgetPort<Port, Qt>::Get(const String& property) const {
  return getLate(widget(), property);
}

template <class Port, class Qt>
void WidgetPort<Port, Qt>::Let(const String& property, const Variant& value) {
  letLate(widget(), property, value);
}

}  // namespace tessaria::qt
