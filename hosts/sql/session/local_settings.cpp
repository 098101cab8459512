#include "hosts/sql/session/local_settings.h"

#include <algorithm>

#include "hosts/sql/errors/driver_error.h"
#include "hosts/sql/statements/dialect_sql.h"
#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

constexpr StringView kWord = u"pooling";
constexpr StringView kBefore = u"; \t?&";
constexpr StringView kAfter = u"; \t&";

// Past a value in braces or apostrophes, which may hold anything.
std::size_t PastQuoted(StringView text, std::size_t at) {
  const char16_t end = text[at] == u'{' ? u'}' : u'\'';
  const std::size_t found = text.find(end, at + 1);
  return found == StringView::npos ? text.size() : found + 1;
}

struct Place {
  std::size_t start, value, end;
};

// Where "pooling=value" stands; nothing at the end of the text.
Place PlaceOf(StringView text) {
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == u'{' || text[at] == u'\'') at = PastQuoted(text, at) - 1;
    const bool begins = at == 0 || kBefore.find(text[at - 1]) != StringView::npos;
    if (!begins || at + kWord.size() >= text.size()) continue;
    if (!EqualNoCase(text.substr(at, kWord.size()), kWord)) continue;
    const std::size_t sign = text.find_first_not_of(u" \t", at + kWord.size());
    if (sign == StringView::npos || text[sign] != u'=') continue;
    const std::size_t value = std::min(text.find_first_not_of(u" \t", sign + 1), text.size());
    return {at, value, std::min(text.find_first_of(kAfter, value), text.size())};
  }
  return {text.size(), text.size(), text.size()};
}

}  // namespace

SettingsScope TakePooling(String& connectionString) {
  const Place place = PlaceOf(connectionString);
  if (place.start == connectionString.size()) return SettingsScope::Session;
  const String value = connectionString.substr(place.value, place.end - place.value);
  const bool isTransaction = EqualNoCase(value, u"transaction");
  if (!isTransaction && !EqualNoCase(value, u"session")) {
    throw HostError(
        errors::InvalidCriteria,
        u"Pooling só pode ser \"session\" ou \"transaction\", e não \"" + value + u"\".");
  }
  // With one of the separators around it.
  const bool hasMore = place.end < connectionString.size();
  const std::size_t before = !hasMore && place.start > 0 ? 1 : 0;
  connectionString.erase(place.start - before,
                         place.end - place.start + before + (hasMore ? 1 : 0));
  return isTransaction ? SettingsScope::Transaction : SettingsScope::Session;
}

String LocalSettings(Long commandTimeout, Long lockTimeout) {
  const String bounds = TimeoutSettings(Dialect::PostgreSql, commandTimeout, lockTimeout);
  return u"SET LOCAL standard_conforming_strings = on; SET LOCAL DateStyle = 'ISO'; "
         u"SET LOCAL extra_float_digits = 3; SET LOCAL bytea_output = 'hex'; " +
         Replace(bounds, u"SET ", u"SET LOCAL ");
}

}  // namespace tessaria::sql
