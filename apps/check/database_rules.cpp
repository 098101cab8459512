#include "apps/check/database_rules.h"

#include <algorithm>
#include <map>

#include "apps/check/near_name.h"
#include "apps/check/where_parameters.h"
#include "browse/search_clause.h"
#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria::formcheck {
namespace {

std::string ReasonOf(const HostError& error) {
  std::string text = InOneLine(error.what());
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

/// A ";" outside quotes and comments. What stands behind it would run by itself, and could end the
/// transaction that keeps it from writing.
bool IsOneStatement(const String& statement) {
  SqlScanner scanner(statement, kConditionRules);
  for (SqlToken token = scanner.Next(); token.length > 0; token = scanner.Next()) {
    const bool isQuoted = token.Is(SqlToken::Kind::Text) || token.Is(SqlToken::Kind::QuotedName);
    if (!isQuoted && scanner.TextOf(token).find(u';') != StringView::npos) return false;
  }
  return true;
}

const String kReadOnly = u"set transaction read only";

bool IsTableName(const String& source) {
  return Trim(source).find_first_of(u" \t\r\n(") == String::npos;
}

/// The rows of a data control, none of which are read.
String StatementOf(const String& source) {
  const String query = source.substr(0, source.find_last_not_of(u" \t\r\n;") + 1);
  const String rows = IsTableName(query) ? query : u"(" + query + u"\n) conferencia";
  return u"Select * From " + rows + u" Where 1 = Null";
}

using Columns = std::vector<String>;

class DatabaseCheck {
 public:
  DatabaseCheck(const CheckedForm& form, host::Connection& connection, Findings& findings)
      : form_(form), connection_(connection), findings_(findings) {}

  void Check() {
    isReadOnly_ = CanBeReadOnly();
    for (const FormWidget& widget : form_.file.widgets)
      if (form_.file.IsDataControl(widget)) CheckDataControl(widget);
    for (const Field& field : form_.fields) {
      CheckBoundColumn(field);
      if (!field.From().empty() && !field.Lookup(u"BrwCampo").empty()) CheckLookupStatements(field);
    }
  }

 private:
  bool CanBeReadOnly() {
    connection_.BeginTrans();
    bool can = true;
    try {
      connection_.Execute(kReadOnly);
    } catch (const HostError&) {
      can = false;
    }
    connection_.RollbackTrans();
    return can;
  }

  /// The columns of a statement without rows. Each runs in a transaction of its own, because a
  /// refused one may spoil the transaction.
  Columns Describe(const String& statement) {
    if (!IsOneStatement(statement))
      throw HostError(errors::InvalidArgument, u"a ';' would begin another statement");
    connection_.BeginTrans();
    Columns columns;
    try {
      if (isReadOnly_) connection_.Execute(kReadOnly);
      const auto rows = connection_.Execute(statement);
      for (Long i = 0; i < rows->Fields().Count(); ++i)
        columns.push_back(rows->Fields().Item(i)->Name());
      rows->Close();
    } catch (const HostError&) {
      connection_.RollbackTrans();
      throw;
    }
    connection_.RollbackTrans();
    return columns;
  }

  void CheckDataControl(const FormWidget& widget) {
    const auto source = widget.texts.find(u"RecordSource");
    if (source == widget.texts.end() || Trim(source->second.text).empty()) return;
    try {
      columns_[LCase(widget.name)] = Describe(StatementOf(source->second.text));
    } catch (const HostError& error) {
      findings_.Error(source->second.number, widget.name, "refused",
                      "RecordSource is refused: " + ReasonOf(error));
    }
  }

  void CheckBoundColumn(const Field& field) {
    const String column = field.Text(u"DataField");
    const auto known = columns_.find(LCase(field.Text(u"DataSource")));
    if (column.empty() || known == columns_.end()) return;
    const bool isThere = std::any_of(known->second.begin(), known->second.end(),
                                     [&](const String& c) { return EqualNoCase(c, column); });
    if (!isThere)
      findings_.Error(field.LineOf(u"DataField"), field.Name(), "column",
                      Quoted(field.Text(u"DataSource")) + " has no column " + Quoted(column) +
                          DidYouMean(column, known->second));
  }

  bool IsAccepted(const Field& field, StringView key, const String& statement) {
    return IsAccepted(field, field.LookupLine(key), ToUtf8(key), statement);
  }

  bool IsAccepted(const Field& field, int line, const std::string& what, const String& statement) {
    try {
      Describe(statement);
      return true;
    } catch (const HostError& error) {
      findings_.Error(line, field.Name(), "refused", what + " is refused: " + ReasonOf(error));
      return false;
    }
  }

  /// One text after another, so that the finding is at the one that is wrong.
  void CheckLookupStatements(const Field& field) {
    const String end = u" From " + field.From() + u" Where 1 = Null";
    const bool isJoin = !field.Lookup(u"BrwLeftJoin").empty();
    if (!IsAccepted(field, isJoin ? u"BrwLeftJoin" : u"BrowseTable", u"Select 1" + end)) return;
    CheckColumns(field, end);
    const String where = WithSampleValues(field.Lookup(u"BrwWhere"));
    if (!where.empty())
      IsAccepted(field, u"BrwWhere", u"Select 1" + end + u" And (" + where + u"\n)");
    CheckSearches(field, end);
  }

  void CheckColumns(const Field& field, const String& end) {
    const String group = field.Lookup(u"BrwGroupBy");
    String all;
    for (const StringView key : {u"BrwCampo", u"BrwCampoIrmao", u"BrwCampoOutros"}) {
      const String text = field.Lookup(key);
      if (text.empty()) continue;
      // With a group clause only all of them together make sense.
      if (group.empty()) IsAccepted(field, key, u"Select " + text + end);
      all += (all.empty() ? u"" : u", ") + text;
    }
    if (!group.empty()) IsAccepted(field, u"BrwGroupBy", u"Select " + all + end + u" " + group);
  }

  void CheckSearches(const Field& field, const String& end) {
    const String table = field.Lookup(u"BrowseTable");
    for (Long i = 1; field.pesquisa && i <= field.pesquisa->Count(); ++i) {
      const auto search = field.pesquisa->Item(i);
      if (search->Campo().empty()) continue;
      const String column =
          search->CampoPronto() ? search->Campo() : mdlObjTxt::QualifyField(search->Campo(), table);
      const String entry = u"Pesquisa.Pesquisa" + FromUtf8(std::to_string(i));
      String statement = u"Select " + column + end;
      const String order = search->OrderBy();
      if (IsAccepted(field, field.LineOf(entry + u"Campo"), ToUtf8(entry) + "Campo", statement) &&
          !order.empty())
        IsAccepted(field, field.LineOf(entry + u"OrderBy"), ToUtf8(entry) + "OrderBy",
                   statement.append(u" Order By ") + order);
    }
  }

  const CheckedForm& form_;
  host::Connection& connection_;
  Findings& findings_;
  std::map<String, Columns> columns_;  ///< of each data control, by its name in small letters
  bool isReadOnly_ = false;
};

}  // namespace

void CheckDatabase(const CheckedForm& form, host::Connection& connection, Findings& findings) {
  DatabaseCheck(form, connection, findings).Check();
}

}  // namespace tessaria::formcheck
