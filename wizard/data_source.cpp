#include "wizard/data_source.h"

#include <algorithm>

#include "tessaria/text.h"

namespace tessaria::wizard {
namespace {

/// Where the entry of a connection string that begins at `start` ends. When its value begins with a
/// brace, a ";" before the closing one is a part of the value, and "}}" there stands for a brace.
std::size_t EndOfEntry(StringView text, std::size_t start) {
  const std::size_t end = std::min(text.find(u';', start), text.size());
  const std::size_t equals = text.find(u'=', start);
  if (equals >= end) return end;
  const std::size_t value = text.find_first_not_of(u' ', equals + 1);
  if (value >= end || text[value] != u'{') return end;
  bool isInside = true;
  for (std::size_t at = value + 1; at < text.size(); ++at) {
    if (text[at] == u'}') isInside = !isInside;
    if (text[at] == u';' && !isInside) return at;
  }
  return text.size();
}

String WithoutBraces(const String& value) {
  if (!value.starts_with(u'{') || !value.ends_with(u'}')) return value;
  return Replace(value.substr(1, value.size() - 2), u"}}", u"}");
}

}  // namespace

String DataSourceIn(const String& connectionString) {
  const StringView text = connectionString;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = EndOfEntry(text, start);
    const StringView entry = text.substr(start, end - start);
    const std::size_t equals = entry.find(u'=');
    if (equals != StringView::npos && EqualNoCase(Trim(String(entry.substr(0, equals))), u"DSN"))
      return WithoutBraces(Trim(String(entry.substr(equals + 1))));
    start = end + 1;
  }
  return {};
}

}  // namespace tessaria::wizard
