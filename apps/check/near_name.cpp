#include "apps/check/near_name.h"

#include <algorithm>
#include <numeric>

#include "tessaria/text.h"
#include "tessaria/utf8.h"

namespace tessaria::formcheck {
namespace {

/// The fewest characters to insert, remove or replace that turn one text into the other.
std::size_t EditsBetween(const String& a, const String& b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i + 1;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t replaced = diagonal + (a[i] == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, row[j] + 1, row[j + 1] + 1});
    }
  }
  return row.back();
}

}  // namespace

std::string DidYouMean(StringView misspelt, const std::vector<String>& names) {
  const String wanted = LCase(String(misspelt));
  std::size_t fewest = std::max<std::size_t>(1, wanted.size() / 4) + 1;
  const String* nearest = nullptr;
  for (const String& name : names) {
    const std::size_t edits = EditsBetween(wanted, LCase(name));
    if (edits >= fewest) continue;
    fewest = edits;
    nearest = &name;
  }
  return nearest ? " (did you mean '" + ToUtf8(*nearest) + "'?)" : "";
}

}  // namespace tessaria::formcheck
