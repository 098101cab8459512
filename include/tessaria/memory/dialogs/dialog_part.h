// A widget as a part of a memory dialog's form: geometry, focus, keys.
#pragma once

#include <functional>

#include "tessaria/export.h"
#include "tessaria/memory/part.h"

namespace tessaria::memory {

/// A widget as the dialog's form drives it; the dialog says what a key does.
class TESSARIA_MEMORY_API DialogPart final : public PartWith<host::Widget> {
 public:
  enum class Focus { Refused, Taken };
  DialogPart(String name, String typeName, Focus focus)
      : PartWith(std::move(name), std::move(typeName)), focus_(focus) {}

  std::function<void(const Stroke&)> OnHold;

  bool TakesFocus() const override { return focus_ == Focus::Taken && CanBeUsed(); }
  void Hold(const Stroke& stroke) override {
    if (const auto hold = OnHold) hold(stroke);
  }

 private:
  Focus focus_;
};

}  // namespace tessaria::memory
