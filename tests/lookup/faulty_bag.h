// A property bag in which some values cannot be read.
#pragma once

#include <set>
#include <utility>

#include "tessaria/error.h"
#include "tessaria/host/control.h"

namespace tessaria::test {

class FaultyBag final : public host::PropertyBag {
 public:
  FaultyBag(host::PropertyBag& inner, std::set<String> broken)
      : inner_(inner), broken_(std::move(broken)) {}

  Variant ReadProperty(const String& name, const Variant& byDefault) const override {
    if (broken_.count(name) != 0) throw HostError(errors::TypeMismatch);
    return inner_.ReadProperty(name, byDefault);
  }
  void WriteProperty(const String& name, const Variant& value, const Variant& byDefault) override {
    inner_.WriteProperty(name, value, byDefault);
  }

 private:
  host::PropertyBag& inner_;
  std::set<String> broken_;
};

}  // namespace tessaria::test
