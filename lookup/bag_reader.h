// Reading of a stored definition that saves what it can from a damaged bag.
#pragma once

#include <initializer_list>

#include "tessaria/host/control.h"

namespace tessaria {

/// Reads keys under one prefix. A value that cannot be read gives the default and is remembered.
class BagReader {
 public:
  /// The bag outlives the reader.
  explicit BagReader(const host::PropertyBag& bag) : bag_(bag) {}
  BagReader(const BagReader&) = delete;
  BagReader& operator=(const BagReader&) = delete;

  /// The keys read from here on have this text in front.
  void Prefix(const String& prefix) { prefix_ = prefix; }

  String Text(StringView name);
  Long Whole(StringView name);
  Integer Short(StringView name);
  float Number(StringView name);
  bool Flag(StringView name, bool byDefault);

  /// Whether the bag holds any of the keys, readable or not.
  bool HoldsAny(std::initializer_list<StringView> names) const;

  /// Notes a value that could be read and makes no sense.
  void MarkBroken() { broken_ = true; }
  /// Error 13 when any value was broken.
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

/// The prefix of the entry of that number, from 1, of a stored list. Such a list has no stored
/// count: it ends in front of the first number that has no key at all, so each entry writes one
/// of its keys with `AlwaysStored` as the default.
String EntryPrefix(StringView list, Long number);

/// A default that no value equals.
Variant AlwaysStored();

}  // namespace tessaria
