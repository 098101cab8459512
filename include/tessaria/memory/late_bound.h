// Properties that programs reach by name.
#pragma once

#include <functional>
#include <map>

#include "tessaria/export.h"
#include "tessaria/variant.h"

namespace tessaria::memory {

/// A table of properties by name, without regard to case.
class TESSARIA_MEMORY_API LateBound {
 public:
  using Getter = std::function<Variant()>;
  using Setter = std::function<void(const Variant&)>;

  /// Without a setter the property can only be read.
  void Add(const String& name, Getter get, Setter set = nullptr);
  /// A property that stores what it is given.
  void AddValue(const String& name, const Variant& initial = {});
  /// Removes a property; one that is not there is no error.
  void Remove(const String& name);
  /// Whether there is a property of that name.
  bool Has(const String& name) const;

  /// Error 438 when there is no property of that name.
  Variant Get(const String& name) const;
  /// Errors: 438 as above, 383 read-only, those of the setter.
  void Let(const String& name, const Variant& value) const;

 private:
  struct Accessors {
    Getter Get;
    Setter Set;
  };
  const Accessors& Require(const String& name) const;

  std::map<String, Accessors> properties_;  ///< by name in lower case
};

}  // namespace tessaria::memory
