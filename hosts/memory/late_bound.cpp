#include "tessaria/memory/late_bound.h"

#include <memory>
#include <utility>

#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria::memory {

void LateBound::Add(const String& name, Getter get, Setter set) {
  properties_[LCase(name)] = {std::move(get), std::move(set)};
}

void LateBound::AddValue(const String& name, const Variant& initial) {
  const auto value = std::make_shared<Variant>(initial);
  Add(
      name, [value] { return *value; }, [value](const Variant& v) { *value = v; });
}

void LateBound::Remove(const String& name) { properties_.erase(LCase(name)); }

bool LateBound::Has(const String& name) const { return properties_.contains(LCase(name)); }

const LateBound::Accessors& LateBound::Require(const String& name) const {
  const auto property = properties_.find(LCase(name));
  if (property == properties_.end()) throw HostError(errors::NoSuchMember);
  return property->second;
}

Variant LateBound::Get(const String& name) const { return Require(name).Get(); }

void LateBound::Let(const String& name, const Variant& value) const {
  const Setter set = Require(name).Set;
  if (!set) throw HostError(errors::PropertyIsReadOnly);
  set(value);
}

}  // namespace tessaria::memory
