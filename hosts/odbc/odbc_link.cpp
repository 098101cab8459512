#include "hosts/odbc/odbc_link.h"

#include <array>

#include "hosts/odbc/catalogue_rows.h"
#include "hosts/odbc/connection_text.h"
#include "hosts/odbc/diagnostics.h"
#include "hosts/odbc/odbc_statement.h"
#include "hosts/odbc/wide.h"
#include "tessaria/text.h"

namespace tessaria::odbc {

OdbcLink::OdbcLink(const String& connectionString, Long timeout) {
  // A driver that does not support a time-out connects without one.
  if (timeout > 0) {
    SQLSetConnectAttrW(Get(), SQL_ATTR_LOGIN_TIMEOUT,
                       reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(timeout)), 0);
  }
  const String text = DriverConnectionText(connectionString);
  odbc::Check(
      SQLDriverConnectW(Get(), nullptr, Wide(text.c_str()), static_cast<SQLSMALLINT>(text.size()),
                        nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT),
      SQL_HANDLE_DBC, Get());
}

String OdbcLink::InfoText(SQLUSMALLINT what) {
  std::array<char16_t, 256> buffer{};
  SQLSMALLINT bytes = 0;
  Check(SQLGetInfoW(Get(), what, buffer.data(), sizeof buffer, &bytes), SQL_HANDLE_DBC, Get());
  return String(buffer.data());
}

sql::ServerFacts OdbcLink::Facts() {
  sql::ServerFacts facts{InfoText(SQL_DBMS_NAME), InfoText(SQL_DBMS_VER),
                         Trim(InfoText(SQL_IDENTIFIER_QUOTE_CHAR))};
  postgres_ = sql::DialectOf(facts.name) == sql::Dialect::PostgreSql;
  SQLUINTEGER extensions = 0;
  Check(SQLGetInfoW(Get(), SQL_GETDATA_EXTENSIONS, &extensions, 0, nullptr), SQL_HANDLE_DBC, Get());
  constexpr SQLUINTEGER kNeeded = SQL_GD_BLOCK | SQL_GD_BOUND | SQL_GD_ANY_COLUMN;
  rereads_ = (extensions & kNeeded) == kNeeded;
  return facts;
}

sql::StatementPtr OdbcLink::NewStatement() {
  return std::make_unique<OdbcStatement>(shared_from_this());
}

void OdbcLink::Check(SQLRETURN result, SQLSMALLINT type, SQLHANDLE handle) {
  if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
  const DriverError error = DiagnosticsOf(type, handle);
  NoteLoss(error);
  throw error;
}

void OdbcLink::NoteLoss(const DriverError& error) noexcept {
  SQLINTEGER dead = SQL_CD_FALSE;
  SQLGetConnectAttrW(Get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
  lost_ = lost_ || error.IsConnectionLoss() || dead == SQL_CD_TRUE;
}

void OdbcLink::AutoCommit(bool on) {
  const SQLULEN value = on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
  Check(SQLSetConnectAttrW(Get(), SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(value), 0),
        SQL_HANDLE_DBC, Get());
}

// A commit that the server refuses has undone the transaction; what follows is outside it.
void OdbcLink::End(SQLSMALLINT completion) {
  const SQLRETURN result = SQLEndTran(SQL_HANDLE_DBC, Get(), completion);
  if (SQL_SUCCEEDED(result)) return AutoCommit(true);
  const DriverError error = DiagnosticsOf(SQL_HANDLE_DBC, Get());
  NoteLoss(error);
  if (!lost_) {
    SQLEndTran(SQL_HANDLE_DBC, Get(), SQL_ROLLBACK);
    AutoCommit(true);
  }
  throw error;
}

std::vector<sql::TableFacts> OdbcLink::Tables(const host::SchemaRestrictions& asked) {
  return ReadTables(*this, asked);
}

std::vector<sql::ColumnFacts> OdbcLink::TableColumns(const host::SchemaRestrictions& asked) {
  return ReadTableColumns(*this, asked);
}

std::optional<std::vector<sql::KeyPart>> OdbcLink::PrimaryKey(const sql::TablePlace& table) {
  return ReadPrimaryKey(*this, table);
}

std::vector<sql::KeyPart> OdbcLink::UniqueIndexes(const sql::TablePlace& table) {
  return ReadUniqueIndexes(*this, table);
}

}  // namespace tessaria::odbc
