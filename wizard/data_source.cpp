#include "wizard/data_source.h"

#include <algorithm>

#include "tessaria/text.h"

namespace tessaria::wizard {

String DataSourceIn(const String& connectionString) {
  const StringView text = connectionString;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(u';', start), text.size());
    const StringView entry = text.substr(start, end - start);
    const std::size_t equals = entry.find(u'=');
    if (equals != StringView::npos && UCase(Trim(String(entry.substr(0, equals)))) == u"DSN")
      return Trim(String(entry.substr(equals + 1)));
    start = end + 1;
  }
  return {};
}

}  // namespace tessaria::wizard
