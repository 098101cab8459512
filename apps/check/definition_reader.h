// The settings of one of a field's two definitions, as a bag that the definition reads itself from.
#pragma once

#include <set>

#include "apps/check/field.h"

namespace tessaria::formcheck {

class DefinitionBag final : public host::PropertyBag {
 public:
  /// `settings` must outlive the bag; `prefix` is "Browse." or "Pesquisa.".
  DefinitionBag(const std::vector<Setting>& settings, StringView prefix)
      : settings_(settings), prefix_(prefix) {}

  Variant ReadProperty(const String& name, const Variant& byDefault) const override;
  /// Error 5: a form file is only read.
  void WriteProperty(const String& name, const Variant& value, const Variant& byDefault) override;

  /// Tells the settings that the definition does not ask for, and those of which it refuses the
  /// value; returns whether it refuses any.
  bool TellUnread(host::Persistent& definition, const String& field, Findings& findings) const;

 private:
  bool IsRefused(host::Persistent& definition, const Setting& setting) const;
  const Setting* Find(const String& name) const;

  const std::vector<Setting>& settings_;
  String prefix_;
  mutable const Setting* only_ = nullptr;  ///< when set, all others have their defaults
  mutable std::set<String> asked_;
};

}  // namespace tessaria::formcheck
