#include "hosts/odbc/odbc_link.h"

#include <utility>

#include "hosts/odbc/catalogue_rows.h"
#include "hosts/odbc/diagnostics.h"
#include "hosts/odbc/lent_connection.h"
#include "hosts/odbc/odbc_statement.h"
#include "tessaria/text.h"

namespace tessaria::odbc {

namespace {

constexpr Long kCancelTimeout = 5;  // seconds

}  // namespace

OdbcLink::OdbcLink(const String& connectionString, Long timeout)
    : line_(std::make_shared<Line>(connectionString, timeout)),
      connectionString_(connectionString) {
  if (!line_->IsPostgres()) return;
  OdbcStatement question(line_);
  question.Run(u"SELECT pg_backend_pid()");
  serverProcess_ = question.FirstText();
}

OdbcLink::OdbcLink(SQLHDBC lent, std::function<bool()> isThere)
    : line_(std::make_shared<Line>(lent, std::move(isThere))) {
  if (line_->IsPostgres()) RequireHarmlessDriver(line_);
}

sql::Standing OdbcLink::ProgramStanding() { return StandingOf(*line_); }

// The driver manager lets only one call of a connection through at a time, so that SQLCancel would
// wait for the statement that it is to cancel. Another connection can ask PostgreSQL.
void OdbcLink::Cancel() noexcept {
  try {
    if (!line_->IsPostgres() || line_->IsLent()) return line_->CancelRunning();
    OdbcStatement request(std::make_shared<Line>(connectionString_, kCancelTimeout));
    request.Run(u"SELECT pg_cancel_backend(" + serverProcess_ + u")");
  } catch (const HostError&) {
    // The statement goes on to its own end or time-out.
  }
}

sql::ServerFacts OdbcLink::Facts() {
  return {line_->InfoText(SQL_DBMS_NAME), line_->InfoText(SQL_DBMS_VER),
          Trim(line_->InfoText(SQL_IDENTIFIER_QUOTE_CHAR))};
}

sql::StatementPtr OdbcLink::NewStatement() { return std::make_unique<OdbcStatement>(line_); }

void OdbcLink::AutoCommit(bool on) {
  const SQLULEN value = on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
  const SQLHDBC handle = line_->Get();
  line_->Check(
      SQLSetConnectAttrW(handle, SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(value), 0),
      SQL_HANDLE_DBC, handle);
}

// A commit that the server refuses has undone the transaction; what follows is outside it.
void OdbcLink::End(SQLSMALLINT completion) {
  const SQLHDBC handle = line_->Get();
  const SQLRETURN result = SQLEndTran(SQL_HANDLE_DBC, handle, completion);
  if (SQL_SUCCEEDED(result)) return AutoCommit(true);
  const DriverError error = DiagnosticsOf(SQL_HANDLE_DBC, handle);
  line_->NoteLoss(error);
  if (!IsLost()) {
    SQLEndTran(SQL_HANDLE_DBC, handle, SQL_ROLLBACK);
    AutoCommit(true);
  }
  throw error;
}

std::vector<sql::TableFacts> OdbcLink::Tables(const host::SchemaRestrictions& asked) {
  return ReadTables(line_, asked);
}

std::vector<sql::ColumnFacts> OdbcLink::TableColumns(const host::SchemaRestrictions& asked) {
  return ReadTableColumns(line_, asked);
}

std::optional<std::vector<sql::KeyPart>> OdbcLink::PrimaryKey(const sql::TablePlace& table) {
  return ReadPrimaryKey(line_, table);
}

std::vector<sql::KeyPart> OdbcLink::UniqueIndexes(const sql::TablePlace& table) {
  return ReadUniqueIndexes(line_, table);
}

}  // namespace tessaria::odbc
