#include "hosts/sql/statements/column_texts.h"

#include <algorithm>
#include <string>

#include "tessaria/text.h"

namespace tessaria::sql {

bool AnyAsText(const Columns& columns) {
  return std::any_of(columns.begin(), columns.end(),
                     [](const Column& column) { return column.asText; });
}

String AsArrivingText(const Column& column, const String& name) {
  if (!column.asText) return name;
  // Its cast adds a mask that its own text does not have.
  if (column.typeName == u"inet") return u"textin(inet_out(" + name + u"))";
  // A moment with a zone is converted to the zone of the session.
  const bool isMoment = column.storage == Storage::Moment;
  return u"cast(" + (isMoment ? u"cast(" + name + u" as timestamp)" : name) + u" as text)";
}

String WithColumnsAsTexts(const Columns& columns, const String& query) {
  String list, names;
  for (std::size_t i = 0; i < columns.size(); ++i) {
    const String name = TextColumnName(i);
    const char16_t* const separator = i == 0 ? u"" : u", ";
    list += separator + AsArrivingText(columns[i], name);
    names += separator + name;
  }
  return u"SELECT " + list + u" FROM (" + query + u"\n) AS tessaria_rows (" + names + u")";
}

String TextColumnName(std::size_t column) { return u"c" + FromUtf8(std::to_string(column)); }

}  // namespace tessaria::sql
