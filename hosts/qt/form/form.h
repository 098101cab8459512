// The common implementation of the widget port.
#pragma once

#include <QPointer>
#include <QWidget>

#include "hosts/qt/form/late_binding.h"
#include "hosts/qt/form/widget_place.h"
#include "tessaria/error.h"
#include "tessaria/qt/form.h"

namespace tessaria::qt {

/// Implements `host::Widget` for all kinds of widgets. Every member raises 91 if the widget is
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
  host::WidgetPtr Container() const override {
    QWidget* container = containerOf(widget());
    return container ? makeWidget(*container) : nullptr;
  }
  Variant Get(const String& property) const override { return getLate(widget(), property); }
  void Let(const String& property, const Variant& value) override {
    letLate(widget(), property, value);
  }

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
