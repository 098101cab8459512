// Reads a stored definition, keeping what is readable in a damaged bag.
#pragma once

#include <initializer_list>

#include "tessaria/host/control.h"

namespace tessaria {

/// Reads keys with one prefix. For a value that cannot be read it returns the default, and
/// remembers the failure.
class BagReader {
 public:
  /// The bag must outlive the reader.
  explicit BagReader(const host::PropertyBag& bag) : bag_(bag) {}
  BagReader(const BagReader&) = delete;
  BagReader& operator=(const BagReader&) = delete;

  /// Sets the prefix of the keys that are read from now on.
  void Prefix(const String& prefix) { prefix_ = prefix; }

  String Text(StringView name);
  Long Whole(StringView name);
  Integer Short(StringView name);
  float Number(StringView name);
  bool Flag(StringView name, bool byDefault);

  /// Whether the bag contains any of the keys, readable or not.
  bool HoldsAny(std::initializer_list<StringView> names) const;

  /// Marks a value as broken that could be read but is not valid.
  void MarkBroken() { broken_ = true; }
  /// Raises error 13 when any value was broken.
  void RaiseIfBroken() const;

 private:
  String Key(StringView name) const { return prefix_ + String(name); }
  bool Holds(StringView name) const;
  template <class T, class Convert>
  T Read(StringView name, T byDefault, Convert convert);

  const host::PropertyBag& bag_;
  String prefix_;
  bool broken_ = false;
};

/// The key prefix of an entry of a stored list; `number` counts from 1. Such a list has no stored
/// count: it ends before the first number that has no key at all, so each entry writes one of its
/// keys with `AlwaysStored` as the default.
String EntryPrefix(StringView list, Long number);

/// A default that no value equals.
Variant AlwaysStored();

}  // namespace tessaria
