#include "lookup/description_lookup.h"

#include <vector>

#include "lookup/dialect.h"
#include "lookup/literals.h"
#include "lookup/query_text.h"
#include "lookup/sql_family.h"
#include "services/box_state.h"
#include "services/trap.h"
#include "tessaria/comforts.h"
#include "tessaria/compare.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/host/application.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria::mdlObjTxt {
namespace {

/// From this release number on, a PostgreSQL lookup casts both sides of its comparison.
constexpr Integer kVersionWithCast = 950;

constexpr Integer kBackspaceCode = 8;

/// `BrwCampoIrmao` and `BrwCampoOutros` as one list.
String ReturnFields(const Browse& browse) {
  String fields = browse.BrwCampoIrmao();
  const String others = browse.BrwCampoOutros();
  if (!fields.empty() && !others.empty()) fields += u", ";
  return fields + others;
}

/// The group clause and the end of the statement. After a group clause the limit has two more
/// blanks before it.
String StatementEnd(const String& groupBy, StringView limit) {
  if (groupBy.empty()) return String(limit);
  String end = u" " + groupBy;
  if (!limit.empty()) end.append(u"  ").append(limit);
  return end;
}

String SearchStatement(const Browse& browse, const host::Connection& connection, String literal,
                       const String& fields, const String& where) {
  const bool postgres = IsPostgreSQL(connection);
  String key = TiraAlias(browse.BrwCampo());
  if (postgres && PostgreSQLVersion(connection) >= kVersionWithCast) {
    literal = u"cast(" + literal + u" as varchar)";
    key = u"cast(" + key + u" as varchar)";
  }
  if (!Trim(where).empty()) literal += u" And " + where;
  const RowLimit oneRow = LimitToOneRow(postgres);
  return String(oneRow.Select)
      .append(fields + u" From " + browse.From() + u" Where " + key + u" = " + literal)
      .append(StatementEnd(browse.BrwGroupBy(), oneRow.Limit));
}

host::RecordsetPtr RunStatement(host::Connection& connection, const String& statement) {
  if (connection.ConnectionString().empty()) throw HostError(errors::ObjectNotSet);
  return connection.Execute(statement);
}

/// The new values of the entries of `Outros`, in their order.
std::vector<Variant> ReadOthers(const ListaOutros& others, const String& fields,
                                host::Recordset& rs) {
  const bool hasRow = !rs.Bof() && !rs.Eof();
  std::vector<Variant> values;
  for (Long i = 1; i <= others.Count(); ++i) {
    const String name = others.Item(i)->Nome();
    const bool selected = InStr(fields, name) != 0;
    values.push_back(hasRow && selected ? rs.Fields().Item(name)->Value() : Variant());
  }
  return values;
}

void FillOthers(ListaOutros& others, const std::vector<Variant>& values) {
  Long i = 0;
  for (const Variant& value : values) others.Item(++i)->Valor(value);
}

String CompletionStatement(bool postgres, const String& text, const String& table,
                           const String& field, const Variant& siblingField, const String& where) {
  const RowLimit oneRow = LimitToOneRow(postgres);
  const StringView like = postgres ? u" ilike '" : u" Like '";
  const String sibling = CStr(siblingField);
  String statement = String(oneRow.Select) + field;
  if (!sibling.empty()) statement += u", " + sibling;
  statement += u" From " + table + u" Where ";
  if (!where.empty()) statement += where + u" And ";
  statement.append(TiraAlias(field)).append(like).append(PatternContent(text)).append(u"%'");
  if (comforts().CompletesInOrder) statement.append(u" Order by ").append(TiraAlias(field));
  return statement.append(oneRow.Limit);
}

/// False when the sibling refused the value.
bool PassToSibling(_tsText* sibling, const Variant& value) {
  if (!sibling) throw HostError(errors::ObjectNotSet);
  if (!sibling->TakeValue(value)) return false;
  sibling->AtualizaIrmao(true, false);
  sibling->DisparaEventos(u"BrowseReturn");
  return true;
}

}  // namespace

FoundDescription SearchDescription(Browse& browse, const Variant& value, const String& controlName,
                                   const String& where) {
  FoundDescription found;
  Trap(u"mdlObjTxt", u"AchaDescr", [&] {
    const auto connection = CurrentConnection();
    const String fields = ReturnFields(browse);
    const String statement =
        SearchStatement(browse, *connection, SqlLiteral(value, controlName), fields, where);
    if (!fields.empty()) {
      const auto rs = RunStatement(*connection, statement);
      if (!rs->Bof() && !rs->Eof()) found.Value = rs->Fields().Item(0)->Value();
      // Everything is read before anything is changed.
      FillOthers(browse.Outros(), ReadOthers(browse.Outros(), fields, *rs));
    }
    found.Failed = false;
    // A handler may destroy the definition, which is not used from here on.
    if (!fields.empty()) App().DoEvents();
  });
  return found;
}

Variant AchaDescr(Browse& objBrowse, const Variant& varValor, const String& strNomeControle,
                  const String& strWhere, Long /*lngHwnd*/) {
  return SearchDescription(objBrowse, varValor, strNomeControle, strWhere).Value;
}

Variant CompletaDescr(host::TextBox& txtBox, const String& strTabela, const String& strCampo,
                      const Variant& varTecla, bool blnTemIrmao, const Variant& varCampoIrmao,
                      _tsText* objIrmao, const String& strWhere) {
  const BoxState before(txtBox);
  const String& typed = before.Text();
  if (typed.empty()) return {};
  bool complete = false;
  Trap(u"mdlObjTxt", u"CompletaDescr", [&] {
    const auto connection = CurrentConnection();
    const bool postgres = IsPostgreSQL(*connection);
    if (Equal(varTecla, kBackspaceCode)) txtBox.Text(LeftWhole(typed, Len(typed) - 1));
    const String statement =
        CompletionStatement(postgres, txtBox.Text(), strTabela, strCampo, varCampoIrmao, strWhere);
    const auto rs =
        connection->OpenRecordset(statement, host::CursorType::Static, host::LockType::ReadOnly);
    complete = rs->Bof();
    if (complete) return;
    const Integer position = CInt(Len(txtBox.Text()));
    txtBox.Text(CStr(rs->Fields().Item(0)->Value()));
    if (blnTemIrmao && !PassToSibling(objIrmao, rs->Fields().Item(1)->Value())) return;
    txtBox.SelStart(position);
    txtBox.SelLength(Len(txtBox.Text()));
    complete = true;
  });
  if (!complete) before.PutBack();
  return {};
}

}  // namespace tessaria::mdlObjTxt
