// Texts by key.
#pragma once

#include <utility>
#include <vector>

#include "tessaria/string.h"

namespace tessaria::wizard {

/// A collection of texts, each with a key of its own. Keys and texts compare exactly.
class NamedTexts {
 public:
  /// Error 457 when the key is taken.
  void Add(const String& item, const String& key);
  /// Error 5 when there is no such key.
  const String& Item(const String& key) const;
  bool HasKey(const String& key) const { return Find(key) != nullptr; }
  /// Whether any key stands for that text.
  bool HasItem(const String& item) const;
  /// Error 5 when there is no such key.
  void Remove(const String& key);
  Long Count() const { return static_cast<Long>(entries_.size()); }

 private:
  struct Entry {
    String key;
    String item;
  };
  const Entry* Find(const String& key) const;

  std::vector<Entry> entries_;
};

}  // namespace tessaria::wizard
