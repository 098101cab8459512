// A widget as a part of a memory surface's form: geometry, focus, keys.
#pragma once

#include <functional>

#include "tessaria/export.h"
#include "tessaria/memory/part.h"

namespace tessaria::memory {

/// A widget as the surface's form drives it; the surface says what a key does.
class TESSARIA_MEMORY_API DialogPart final : public PartWith<host::Widget> {
 public:
  enum class Focus { Refused, Taken };
  DialogPart(String name, String typeName, Focus focus)
      : PartWith(std::move(name), std::move(typeName)), focus_(focus) {}

  /// A key went down while the widget has the focus.
  std::function<void(const Stroke&)> OnHold;
  /// Tells whether a page is in front; without it every one is.
  std::function<bool(Long page)> OnIsInFront;

  bool TakesFocus() const override { return focus_ == Focus::Taken && CanBeUsed(); }
  bool IsInFront(Long page) const override { return !OnIsInFront || OnIsInFront(page); }
  void Hold(const Stroke& stroke) override {
    if (const auto hold = OnHold) hold(stroke);
  }

 private:
  Focus focus_;
};

}  // namespace tessaria::memory
