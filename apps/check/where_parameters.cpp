#include "apps/check/where_parameters.h"

#include <algorithm>

namespace tessaria::formcheck {

std::vector<WhereParameter> ParametersOf(const String& where) {
  std::vector<WhereParameter> parameters;
  String before;  // with a number in place of each parameter
  for (std::size_t position = 0; position < where.size();) {
    const std::size_t open = std::min(where.find(u'@', position), where.size());
    before.append(where, position, open - position);
    if (open == where.size()) break;
    const std::size_t close = where.find(u'@', open + 1);
    WhereParameter parameter;
    parameter.isClosed = close != String::npos;
    position = parameter.isClosed ? close + 1 : where.size();
    parameter.start = open;
    parameter.length = position - open;
    parameter.name = where.substr(open + 1, parameter.length - (parameter.isClosed ? 2 : 1));
    parameter.context = ContextBehind(before, kConditionRules);
    parameters.push_back(parameter);
    before += u'0';
  }
  return parameters;
}

String WithSampleValues(const String& where) {
  String text = where;
  const std::vector<WhereParameter> parameters = ParametersOf(where);
  for (auto it = parameters.rbegin(); it != parameters.rend(); ++it) {
    const std::size_t end = it->start + it->length;
    const bool isWholeText = it->start > 0 && end < text.size() && text[it->start - 1] == u'\'' &&
                             text[end] == u'\'' && it->context == SqlContext::PlainText;
    if (isWholeText) {
      text.replace(it->start - 1, it->length + 2, u"Null");
    } else {
      text.replace(it->start, it->length, u"0");
    }
  }
  return text;
}

}  // namespace tessaria::formcheck
