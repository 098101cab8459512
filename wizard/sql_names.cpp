#include "wizard/sql_names.h"

#include <algorithm>
#include <map>

#include "tessaria/conversion.h"
#include "tessaria/text.h"
#include "wizard/reserved_words.h"

namespace tessaria::wizard {
namespace {

/// Asks for the schemas in which tables are found by their bare names; "" where there are none.
StringView SearchPathOf(SqlFamily family) {
  if (family == SqlFamily::PostgreSQL) return u"Select unnest(current_schemas(true))";
  if (family == SqlFamily::SqlServer) return u"Select SCHEMA_NAME()";
  return {};
}

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

/// PostgreSQL folds capitals, so a name that has them is another one without quotes.
bool IsPlainLetter(char16_t c, SqlFamily family) {
  if ((c >= u'a' && c <= u'z') || c == u'_') return true;
  return family != SqlFamily::PostgreSQL && c >= u'A' && c <= u'Z';
}

bool CanBegin(char16_t c, SqlFamily family) {
  return !IsDigit(c) && (c != u'_' || family != SqlFamily::Access);
}

bool IsBracketed(SqlFamily family) {
  return family == SqlFamily::Access || family == SqlFamily::SqlServer;
}

/// The content of the quoted part that starts at `start`; `start` moves behind it.
String QuotedPart(const String& name, std::size_t& start) {
  const char16_t end = name[start] == u'[' ? u']' : u'"';
  String part;
  for (++start; start < name.size(); ++start) {
    if (name[start] == end) {
      if (start + 1 >= name.size() || name[start + 1] != end) break;
      ++start;
    }
    part += name[start];
  }
  ++start;
  return part;
}

}  // namespace

SqlNames::SqlNames(host::Connection& connection)
    : family_(FamilyOfDialect(DialectName(connection))) {
  const StringView searchPath = SearchPathOf(family_);
  if (searchPath.empty()) return;
  const auto rows = connection.Execute(String(searchPath));
  for (; !rows->Eof(); rows->MoveNext()) {
    const Variant schema = rows->Fields().Item(Long{0})->Value();
    if (!schema.IsNull()) searchPath_.push_back(CStr(schema));
  }
}

bool SqlNames::NeedsQuotes(const String& bare) const {
  const auto plain = [&](char16_t c) { return IsPlainLetter(c, family_) || IsDigit(c); };
  if (bare.empty() || !CanBegin(bare[0], family_) || !std::ranges::all_of(bare, plain)) return true;
  return IsReserved(family_, bare);
}

String SqlNames::Name(const String& bare) const {
  if (!NeedsQuotes(bare)) return bare;
  if (IsBracketed(family_)) return u"[" + Replace(bare, u"]", u"]]") + u"]";
  return u"\"" + Replace(bare, u"\"", u"\"\"") + u"\"";
}

std::size_t SqlNames::PlaceOf(const String& schema) const {
  return static_cast<std::size_t>(std::ranges::find(searchPath_, schema) - searchPath_.begin());
}

std::vector<String> SqlNames::Tables(const std::vector<CatalogueRow>& all) const {
  std::map<String, std::size_t> first;
  for (const CatalogueRow& row : all) {
    const auto [found, isNew] = first.emplace(row.name, PlaceOf(row.schema));
    if (!isNew) found->second = std::min(found->second, PlaceOf(row.schema));
  }
  std::vector<String> names;
  for (const CatalogueRow& row : all) {
    const std::size_t place = PlaceOf(row.schema);
    const bool isFound = searchPath_.empty() || row.schema.empty() ||
                         (place < searchPath_.size() && place == first.at(row.name));
    names.push_back((isFound ? String() : Name(row.schema) + u".") + Name(row.name));
  }
  return names;
}

String SqlNames::Bare(const String& name) {
  String part;
  for (std::size_t i = 0; i < name.size();) {
    if (name[i] == u'.') {
      part.clear();
      ++i;
    } else if (part.empty() && (name[i] == u'"' || name[i] == u'[')) {
      part = QuotedPart(name, i);
    } else {
      part += name[i++];
    }
  }
  return part;
}

}  // namespace tessaria::wizard
