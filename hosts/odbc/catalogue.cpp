#include "hosts/odbc/catalogue.h"

#include "hosts/odbc/diagnostics.h"
#include "hosts/odbc/key_table.h"
#include "hosts/odbc/odbc_connection.h"
#include "runtime/text.h"

namespace tessaria::odbc {
namespace {

Session& SessionOf(const host::ConnectionPtr& connection) {
  return *static_cast<const OdbcConnection&>(*connection).SharedSession();
}

bool NextRow(Session& session, const Statement& statement) {
  const SQLRETURN result = SQLFetch(statement.get());
  session.Check(result, statement);
  return result != SQL_NO_DATA;
}

Long ReadLong(Session& session, const Statement& statement, SQLUSMALLINT column) {
  SQLINTEGER value = 0;
  SQLLEN length = 0;
  session.Check(SQLGetData(statement.get(), column, SQL_C_SLONG, &value, 0, &length), statement);
  return length == SQL_NULL_DATA ? 0 : value;
}

// Catalogue calls take patterns; a name that holds their marks must stand for itself.
String Escaped(Session& session, const String& name) {
  char16_t escape[8] = {};
  SQLSMALLINT bytes = 0;
  SQLGetInfoW(session.Handle(), SQL_SEARCH_PATTERN_ESCAPE, escape, sizeof escape, &bytes);
  String pattern;
  for (const char16_t c : name) {
    if (c == u'_' || c == u'%' || String(1, c) == escape) pattern += escape;
    pattern += c;
  }
  return pattern;
}

SQLWCHAR* NameOrNull(const String& name) { return name.empty() ? nullptr : Wide(name.c_str()); }

}  // namespace

Catalogue::Catalogue(host::ConnectionPtr connection) : connection_(std::move(connection)) {
  if (dynamic_cast<const OdbcConnection*>(connection_.get()) == nullptr) {
    throw HostError(errors::InvalidCriteria, u"A conexão não é deste provedor.");
  }
}

std::vector<CatalogueTable> Catalogue::Tables() const {
  Session& session = SessionOf(connection_);
  const Statement statement = session.NewStatement();
  session.Check(SQLTablesW(statement.get(), nullptr, 0, nullptr, 0, nullptr, 0, nullptr, 0),
                statement);
  const auto text = [&](SQLUSMALLINT column) {
    return ReadText(session, statement, column).value_or(String());
  };
  std::vector<CatalogueTable> tables;
  while (NextRow(session, statement)) {
    CatalogueTable table;
    table.Catalogue = text(1);
    table.Schema = text(2);
    table.Name = text(3);
    table.Type = text(4);
    tables.push_back(std::move(table));
  }
  return tables;
}

std::vector<CatalogueColumn> Catalogue::Columns(const String& table, const String& schema) const {
  Session& session = SessionOf(connection_);
  const Statement statement = session.NewStatement();
  const String tablePattern = Escaped(session, table);
  const String schemaPattern = Escaped(session, schema);
  session.Check(SQLColumnsW(statement.get(), nullptr, 0, NameOrNull(schemaPattern), SQL_NTS,
                            Wide(tablePattern.c_str()), SQL_NTS, nullptr, 0),
                statement);
  std::vector<CatalogueColumn> columns;
  while (NextRow(session, statement)) {
    CatalogueColumn column;
    column.Name = ReadText(session, statement, 4).value_or(String());
    column.TypeName = ReadText(session, statement, 6).value_or(String());
    column.Size = ReadLong(session, statement, 7);
    column.IsNullable = ReadLong(session, statement, 11) != SQL_NO_NULLS;
    columns.push_back(std::move(column));
  }
  return columns;
}

std::vector<String> Catalogue::PrimaryKey(const String& table, const String& schema) const {
  Session& session = SessionOf(connection_);
  return PrimaryKeyOf(session, session.NewStatement(), {}, schema, table);
}

}  // namespace tessaria::odbc
