#include "apps/check/definition_reader.h"

#include <algorithm>
#include <iterator>

#include "apps/check/near_name.h"
#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria::formcheck {
namespace {

bool Refuses(host::Persistent& definition, const host::PropertyBag& bag) {
  try {
    definition.ReadProperties(bag);
    return false;
  } catch (const HostError&) {
    return true;
  }
}

}  // namespace

const Setting* DefinitionBag::Find(const String& name) const {
  for (const Setting& setting : settings_)
    if (EqualNoCase(setting.key, prefix_ + name)) return &setting;
  return nullptr;
}

Variant DefinitionBag::ReadProperty(const String& name, const Variant& byDefault) const {
  asked_.insert(name);
  const Setting* const setting = Find(name);
  if (!setting) return byDefault;
  // A definition asks without a default whether an entry is there at all.
  const bool isHidden = only_ && setting != only_ && !byDefault.IsMissing();
  return isHidden ? byDefault : setting->value;
}

void DefinitionBag::WriteProperty(const String&, const Variant&, const Variant&) {
  throw HostError(errors::InvalidArgument);
}

bool DefinitionBag::IsRefused(host::Persistent& definition, const Setting& setting) const {
  only_ = &setting;
  const bool refused = Refuses(definition, *this);
  only_ = nullptr;
  return refused;
}

bool DefinitionBag::TellUnread(host::Persistent& definition, const String& field,
                               Findings& findings) const {
  asked_.clear();
  (void)Refuses(definition, *this);
  const std::vector<String> known(asked_.begin(), asked_.end());
  std::vector<String> missing;
  std::copy_if(known.begin(), known.end(), std::back_inserter(missing),
               [this](const String& name) { return !Find(name); });
  bool anyRefused = false;
  for (const Setting& setting : settings_) {
    if (!EqualNoCase(StringView(setting.key).substr(0, prefix_.size()), prefix_)) continue;
    const String name = setting.key.substr(prefix_.size());
    const bool isKnown = std::any_of(known.begin(), known.end(),
                                     [&](const String& k) { return EqualNoCase(k, name); });
    if (!isKnown) {
      findings.Error(setting.line, field, "unknown-setting",
                     "there is no setting " + Quoted(setting.key) + DidYouMean(name, missing) +
                         "; entries are numbered from 1 without a gap");
    } else if (IsRefused(definition, setting)) {
      anyRefused = true;
      findings.Error(setting.line, field, "value",
                     ToUtf8(setting.key) + " has a value of a wrong kind");
    }
  }
  return anyRefused;
}

}  // namespace tessaria::formcheck
