#include "wizard/named_texts.h"

#include <algorithm>

#include "tessaria/error.h"

namespace tessaria::wizard {

const NamedTexts::Entry* NamedTexts::Find(const String& key) const {
  const auto entry = std::ranges::find(entries_, key, &Entry::key);
  return entry == entries_.end() ? nullptr : &*entry;
}

void NamedTexts::Add(const String& item, const String& key) {
  if (HasKey(key)) throw HostError(errors::DuplicateKey);
  entries_.push_back({key, item});
}

const String& NamedTexts::Item(const String& key) const {
  const Entry* entry = Find(key);
  if (entry == nullptr) throw HostError(errors::InvalidArgument);
  return entry->item;
}

bool NamedTexts::HasItem(const String& item) const {
  return std::ranges::find(entries_, item, &Entry::item) != entries_.end();
}

void NamedTexts::Remove(const String& key) {
  Item(key);
  std::erase_if(entries_, [&](const Entry& entry) { return entry.key == key; });
}

}  // namespace tessaria::wizard
