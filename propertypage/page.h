// What the tabs of the property page share: the surface, the control and its definitions.
#pragma once

#include <memory>

#include "tessaria/browse_definition.h"
#include "tessaria/host/dialog.h"
#include "tessaria/host/property_page.h"
#include "tessaria/pesquisa_definition.h"

namespace tessaria::propertypage {

/// The object of that class, or null.
template <class T>
std::shared_ptr<T> ObjectIn(const Variant& value) {
  const auto* object = value.TryGet<ObjectPtr>();
  return object ? std::dynamic_pointer_cast<T>(*object) : nullptr;
}

/// The state of an open page.
struct Page {
  Page(host::Surface& ofPage, host::PropertyPageSite& ofFrame) : surface(ofPage), site(ofFrame) {}

  host::TextBox& Box(StringView name) const {
    return surface.Find<host::DialogTextBox>(name).Box();
  }
  host::DialogCombo& Combo(StringView name) const { return surface.Find<host::DialogCombo>(name); }
  host::DialogCheckBox& Check(StringView name) const {
    return surface.Find<host::DialogCheckBox>(name);
  }
  host::DialogButton& Button(StringView name) const {
    return surface.Find<host::DialogButton>(name);
  }
  /// Handlers of assignments do nothing while the page takes over what a control holds.
  bool IsLoading() const { return loading; }
  /// The definition of the lookup, created on first use.
  tessaria::Browse& Definition() {
    if (!browse) browse = std::make_shared<tessaria::Browse>();
    return *browse;
  }

  host::Surface& surface;
  host::PropertyPageSite& site;
  bool loading = false;
  std::shared_ptr<tessaria::Browse> browse;      // the control's own, not a copy
  std::shared_ptr<tessaria::Pesquisa> pesquisa;  // likewise
};

}  // namespace tessaria::propertypage
