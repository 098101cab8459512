#include "wizard/from_text.h"

#include <algorithm>

#include "tessaria/error.h"

namespace tessaria::wizard {
namespace {

String Declaration(const FromTable& table) {
  return table.table.empty() ? table.text : table.table + u" as " + table.text;
}

/// Nothing in the wizard writes the tag of a row.
String Joined(const FromTable& table) {
  const String text = Declaration(table);
  return table.tag.empty() ? text : text + u" as " + table.tag;
}

/// One bracket is open already for each join before the last.
String Join(const String& table, const String& link, std::size_t at, std::size_t joins) {
  const bool isFirst = at == 0;
  const bool isLast = at + 1 == joins;
  const String open = isFirst && joins > 1 ? u"" : u"(";
  const String close = joins < 3 || isFirst || isLast ? u")" : u"))";
  return u" Left Join " + table + u" on " + open + link + close;
}

}  // namespace

String FromText(const std::vector<FromTable>& tables, const std::vector<String>& links) {
  if (tables.size() == 1) return Declaration(tables.front());
  String text(tables.size() > 2 ? tables.size() - 2 : 0, u'(');
  std::vector<String> joined;
  for (const FromTable& table : tables) {
    if (table.isMain) {
      text += Joined(table);
    } else {
      joined.push_back(Joined(table));
    }
  }
  if (joined.empty()) joined.emplace_back();
  if (links.size() > joined.size()) throw HostError(errors::SubscriptOutOfRange);
  for (std::size_t i = 0; i < joined.size(); ++i)
    text += Join(joined[i], i < links.size() ? links[i] : String(), i, joined.size());
  return text;
}

}  // namespace tessaria::wizard
