#include "tessaria/memory/property_bag.h"

#include "tessaria/browse_definition.h"
#include "tessaria/pesquisa_definition.h"
#include "tessaria/text.h"

namespace tessaria::memory {

PropertyBag::PropertyBag()
    : PropertyBag({{Browse().ClassName(), [] { return std::make_shared<Browse>(); }},
                   {Pesquisa().ClassName(), [] { return std::make_shared<Pesquisa>(); }}}) {}

PropertyBag::PropertyBag(TextPropertyBag::Factories factories) : stored_(std::move(factories)) {}

void PropertyBag::Check(const Faults& faults, const String& name) {
  const auto fault = faults.find(LCase(name));
  if (fault != faults.end()) throw fault->second;
}

Variant PropertyBag::ReadProperty(const String& name, const Variant& byDefault) const {
  reads_.push_back(name);
  Check(readFaults_, name);
  return stored_.ReadProperty(name, byDefault);
}

void PropertyBag::WriteProperty(const String& name, const Variant& value,
                                const Variant& byDefault) {
  writes_.push_back(name);
  Check(writeFaults_, name);
  stored_.WriteProperty(name, value, byDefault);
}

bool PropertyBag::Holds(const String& name) const {
  return !stored_.ReadProperty(name, Variant::Missing()).IsMissing();
}

void PropertyBag::FailRead(const String& name, HostError error) {
  readFaults_.insert_or_assign(LCase(name), std::move(error));
}

void PropertyBag::FailWrite(const String& name, HostError error) {
  writeFaults_.insert_or_assign(LCase(name), std::move(error));
}

}  // namespace tessaria::memory
