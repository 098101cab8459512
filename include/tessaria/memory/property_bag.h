// A property bag that remembers how it was used.
#pragma once

#include <map>
#include <vector>

#include "tessaria/error.h"
#include "tessaria/export.h"
#include "tessaria/text_property_bag.h"

namespace tessaria::memory {

/// Stores as the text bag does, keeps the keys in the order of use, and fails on demand.
class TESSARIA_MEMORY_API PropertyBag final : public host::PropertyBag {
 public:
  /// Can recreate the definition objects of a control.
  PropertyBag();
  explicit PropertyBag(TextPropertyBag::Factories factories);

  Variant ReadProperty(const String& name, const Variant& byDefault) const override;
  void WriteProperty(const String& name, const Variant& value, const Variant& byDefault) override;

  /// The keys that were read, and those that were written, stored or not, in order.
  const std::vector<String>& Reads() const { return reads_; }
  const std::vector<String>& Writes() const { return writes_; }
  /// Whether there is a stored value, without regard to case.
  bool Holds(const String& name) const;
  /// What is stored, as lines of text.
  String Save() const { return stored_.Save(); }

  /// Reading that key raises the error from now on.
  void FailRead(const String& name, HostError error);
  /// Writing that key raises the error from now on.
  void FailWrite(const String& name, HostError error);

 private:
  using Faults = std::map<String, HostError>;  ///< by name in lower case
  static void Check(const Faults& faults, const String& name);

  TextPropertyBag stored_;
  mutable std::vector<String> reads_;
  std::vector<String> writes_;
  Faults readFaults_;
  Faults writeFaults_;
};

}  // namespace tessaria::memory
