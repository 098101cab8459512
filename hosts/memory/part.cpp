#include "tessaria/memory/part.h"

#include "tessaria/conversion.h"

namespace tessaria::memory {
namespace {

void AddLong(LateBound& properties, const String& name, Long& value) {
  properties.Add(
      name, [&value] { return Variant(value); }, [&value](const Variant& v) { value = CLng(v); });
}

void AddFlag(LateBound& properties, const String& name, bool& value) {
  properties.Add(
      name, [&value] { return Variant(value); }, [&value](const Variant& v) { value = CBool(v); });
}

}  // namespace

Part::Part(String name, String typeName) {
  state_.Name = std::move(name);
  state_.TypeName = std::move(typeName);
  properties_.Add(u"Name", [this] { return Variant(state_.Name); });
  AddLong(properties_, u"Left", state_.Left);
  AddLong(properties_, u"Top", state_.Top);
  AddLong(properties_, u"Width", state_.Width);
  AddLong(properties_, u"Height", state_.Height);
  AddFlag(properties_, u"Visible", state_.Visible);
  AddFlag(properties_, u"Enabled", state_.Enabled);
  AddFlag(properties_, u"TabStop", state_.TabStop);
  properties_.AddValue(u"Tag", u"");
}

bool Part::CanBeUsed() const {
  if (!state_.Visible || !state_.Enabled || gone_) return false;
  const auto* around = dynamic_cast<const Part*>(state_.Container.get());
  return around == nullptr || (around->CanBeUsed() && around->IsInFront(state_.Page));
}

}  // namespace tessaria::memory
