// What a database says to the statements of a form.
#include <algorithm>
#include <vector>

#include "apps/check/checks.h"

#include <tessaria/error.h>
#include <tessaria/text.h>
#include <tessaria/utf8.h>

namespace tessaria::formcheck {
namespace {

/// One line, as a report has it.
String Reason(const HostError& error) {
  String text = Trim(error.Description());
  std::replace_if(
      text.begin(), text.end(), [](char16_t c) { return c == u'\r' || c == u'\n'; }, u' ');
  return text;
}

/// Runs a statement that returns no row; "" when the database takes it.
String Refusal(host::Connection& connection, const String& statement) {
  try {
    connection.Execute(statement);
    return {};
  } catch (const HostError& error) {
    return Reason(error);
  }
}

/// A condition with a value in the place of each parameter: nothing in a text, 0 elsewhere.
String WithValues(const String& condition) {
  String text;
  bool inText = false;
  for (std::size_t i = 0; i < condition.size(); ++i) {
    if (condition[i] == u'\'') inText = !inText;
    if (condition[i] != u'@') {
      text += condition[i];
      continue;
    }
    i = std::min(condition.find(u'@', i + 1), condition.size());
    if (!inText) text += u'0';
  }
  return text;
}

String SourceOf(const String& recordSource) {
  const String source = Trim(recordSource);
  const bool isStatement = EqualNoCase(StringView(source).substr(0, 6), u"select") ||
                           EqualNoCase(StringView(source).substr(0, 4), u"with");
  return isStatement ? u"(" + source + u") tessaria_check" : source;
}

}  // namespace

void Check::Database(host::Connection& connection) {
  DataFields(connection);
  for (const Field& field : form_.fields)
    if (field.Lookup() != nullptr && !field.Lookup()->From().empty() &&
        !field.Lookup()->BrwCampo().empty())
      LookupStatements(connection, field);
}

/// The fields that are bound to data controls of the form with a record source.
void Check::DataFields(host::Connection& connection) {
  for (const Widget& widget : form_.file.widgets) {
    const auto source = widget.properties.find(u"RecordSource");
    if (widget.className != kDataControlClass || source == widget.properties.end()) continue;
    std::vector<String> columns;
    try {
      const auto rows =
          connection.Execute(u"Select * From " + SourceOf(source->second.text) + u" Where 1 = 0");
      for (Long i = 0; i < rows->Fields().Count(); ++i)
        columns.push_back(rows->Fields().Item(i)->Name());
    } catch (const HostError& error) {
      findings_.push_back({{},
                           source->second.line,
                           ToUtf8(widget.name),
                           "statement",
                           Severity::Mistake,
                           "the database refuses the record source: " + ToUtf8(Reason(error))});
      continue;
    }
    for (const Field& field : form_.fields) {
      const String column = field.TextOf(u"DataField");
      if (column.empty() || !EqualNoCase(field.TextOf(u"DataSource"), widget.name)) continue;
      const bool isThere = std::any_of(columns.begin(), columns.end(), [&](const String& name) {
        return EqualNoCase(name, column);
      });
      if (!isThere)
        Report(field, u"DataField", "column", Severity::Mistake,
               u"the rows of \"" + widget.name + u"\" have no column \"" + column + u"\"");
    }
  }
}

void Check::LookupStatements(host::Connection& connection, const Field& field) {
  const Browse& lookup = *field.Lookup();
  const String from = u" From " + lookup.From() + u" Where 1 = 0";
  const auto ask = [&](StringView key, const String& what, const String& statement) {
    const String reason = Refusal(connection, statement);
    if (!reason.empty())
      Report(field, field.Has(key) ? key : StringView(u"Browse"), "statement", Severity::Mistake,
             u"the database refuses " + what + u": " + reason);
    return reason.empty();
  };
  if (!ask(u"Browse", u"the tables of the lookup", u"Select 1" + from)) return;
  ask(u"Browse", u"BrwCampo", u"Select " + lookup.BrwCampo() + from);
  if (!lookup.BrwCampoIrmao().empty())
    ask(u"Browse", u"BrwCampoIrmao", u"Select " + lookup.BrwCampoIrmao() + from);
  if (!lookup.BrwCampoOutros().empty())
    ask(u"Browse", u"BrwCampoOutros", u"Select " + lookup.BrwCampoOutros() + from);
  if (!lookup.BrwWhere().empty())
    ask(u"Browse", u"BrwWhere",
        u"Select 1" + from + u" And (" + WithValues(lookup.BrwWhere()) + u")");
  if (field.Searches() == nullptr) return;
  for (Long i = 1; i <= field.Searches()->Count(); ++i) {
    const auto search = field.Searches()->Item(i);
    const bool isWhole = search->CampoPronto() || search->Campo().find(u'.') != String::npos;
    const String column = isWhole ? search->Campo() : lookup.BrowseTable() + u"." + search->Campo();
    ask(u"Pesquisa", u"the search \"" + search->Caption() + u"\"", u"Select " + column + from);
  }
}

}  // namespace tessaria::formcheck
