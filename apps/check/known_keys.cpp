#include "apps/check/known_keys.h"

#include <algorithm>
#include <memory>
#include <numeric>
#include <vector>

#include <tessaria/browse_definition.h>
#include <tessaria/field_settings.h>
#include <tessaria/pesquisa_definition.h>
#include <tessaria/text.h>

namespace tessaria::formcheck {
namespace {

struct Key {
  String written;
  Variant byDefault;
};

/// Notes what a definition would store.
class Recorder final : public host::PropertyBag {
 public:
  Recorder(String prefix, std::vector<Key>& keys) : prefix_(std::move(prefix)), keys_(keys) {}

  Variant ReadProperty(const String&, const Variant& byDefault) const override { return byDefault; }
  void WriteProperty(const String& name, const Variant& value, const Variant&) override {
    keys_.push_back({prefix_ + name, value});
  }

 private:
  String prefix_;
  std::vector<Key>& keys_;
};

/// A lookup and a search with one entry in each list have every key once.
std::vector<Key> AllKeys() {
  std::vector<Key> keys;
  for (const StoredSetting& setting : StoredSettings())
    keys.push_back({setting.key, setting.byDefault});
  Browse lookup;
  lookup.Outros().Add(u"a");
  lookup.cgrColGrid().Add(u"a", u"a", u"", 1, true);
  Recorder ofLookup(u"Browse.", keys);
  lookup.WriteProperties(ofLookup);
  LookupSettings settings;
  settings.searches = {{.caption = u"a", .field = u"a"}};
  Recorder ofSearches(u"Pesquisa.", keys);
  MakePesquisa(settings)->WriteProperties(ofSearches);
  return keys;
}

const std::vector<Key>& Keys() {
  static const std::vector<Key> keys = AllKeys();
  return keys;
}

/// How many characters must be changed, added or taken out to make one text of the other.
std::size_t Distance(StringView a, StringView b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t before = row[0]++;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t changed = before + (a[i] == b[j] ? 0 : 1);
      before = row[j + 1];
      row[j + 1] = std::min({changed, row[j + 1] + 1, row[j] + 1});
    }
  }
  return row.back();
}

}  // namespace

String Folded(StringView key) {
  String folded;
  for (const char16_t c : LCase(String(key))) {
    if (c < u'0' || c > u'9') {
      folded += c;
    } else if (folded.empty() || folded.back() != u'#') {
      folded += u'#';
    }
  }
  return folded;
}

const std::map<String, Variant>& KnownKeys() {
  static const std::map<String, Variant> known = [] {
    std::map<String, Variant> all;
    for (const Key& key : Keys()) all.emplace(Folded(key.written), key.byDefault);
    return all;
  }();
  return known;
}

String MostLike(const String& key) {
  const String folded = Folded(key);
  String best;
  std::size_t least = folded.size() / 3 + 1;
  for (const Key& known : Keys()) {
    const std::size_t distance = Distance(folded, Folded(known.written));
    if (distance >= least) continue;
    least = distance;
    best = known.written;
  }
  return best;
}

}  // namespace tessaria::formcheck
