// A pointer to an interface of a widget, which becomes null when the widget is destroyed.
#pragma once

#include <QPointer>
#include <QWidget>

namespace tessaria::qt {

/// `Interface` returns its widget by `widget()`.
template <class Interface>
class ControlPointer {
 public:
  ControlPointer(Interface* control = nullptr)  // NOLINT: as QPointer
      : widget_(control ? &control->widget() : nullptr), control_(control) {}

  Interface* get() const { return widget_ ? control_ : nullptr; }
  operator Interface*() const { return get(); }  // NOLINT: as QPointer
  Interface* operator->() const { return get(); }

 private:
  QPointer<QWidget> widget_;
  Interface* control_;
};

}  // namespace tessaria::qt
