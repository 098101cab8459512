// The widgets of one surface: by name, with their keys and their focus.
#pragma once

#include <memory>
#include <vector>

#include "hosts/qt/boundary/handles.h"
#include "hosts/qt/dialogs/focus_relay.h"
#include "hosts/qt/dialogs/key_relay.h"

namespace tessaria::qt {

/// Works in any widget, which it does not own: the window of a dialog, or a part of another one.
/// That widget has the name of the surface, and its widgets have the names of the description, so
/// that controls and programs find them.
class SurfaceItems {
 public:
  SurfaceItems(const host::DialogDescription& description, QWidget& face,
               const host::Surface& surface);
  SurfaceItems(const SurfaceItems&) = delete;
  SurfaceItems& operator=(const SurfaceItems&) = delete;
  ~SurfaceItems() { close(); }

  const DialogGate& gate() const { return gate_; }
  QWidget& face() const { return face_; }
  /// Errors: 730 no such widget.
  host::DialogWidget& widget(StringView name, Integer index) const;
  Colour backColour() const;
  void dbForm(const host::ConnectionPtr& connection);
  void aboutToShow();
  /// No handler runs any more. To be called before the widgets are destroyed, which may still emit
  /// signals then.
  void close();

 private:
  struct Entry {
    const host::WidgetDescription* description;
    std::unique_ptr<DialogItem> item;
  };
  void build(const host::DialogDescription& description);
  DialogItem* itemOf(const QWidget* widget) const;
  DialogItem& itemNamed(StringView name) const;

  QWidget& face_;
  DialogGate gate_;
  std::vector<Entry> entries_;
  KeyRelay keys_;
  FocusRelay focus_;
};

/// Implements what every surface has, for one of the ports.
template <class Port>
class SurfaceOf : public Port {
 public:
  Colour BackColor() const override { return items().backColour(); }
  Long hWnd() const override { return handleOf(*items().face().window()); }
  void dbForm(host::ConnectionPtr connection) override { items().dbForm(connection); }

 protected:
  virtual SurfaceItems& items() const = 0;
  host::DialogWidget& Widget(StringView name, Integer index) override {
    return items().widget(name, index);
  }
};

}  // namespace tessaria::qt
