#include "hosts/odbc/odbc_link.h"

#include <utility>

#include "hosts/odbc/catalogue_rows.h"
#include "hosts/odbc/diagnostics.h"
#include "hosts/odbc/lent_connection.h"
#include "hosts/odbc/odbc_statement.h"
#include "hosts/sql/driver/bounded_call.h"
#include "tessaria/text.h"

namespace tessaria::odbc {

namespace {

// To connect, for a request to cancel that nobody waits for any more.
constexpr std::chrono::seconds kLateLogin = 2 * sql::kSilence;

// Prepared statements of the driver outlive their transaction.
String ForScope(const String& connectionString, sql::SettingsScope scope) {
  if (scope == sql::SettingsScope::Session) return connectionString;
  return connectionString + u";UseServerSidePrepare=0;";
}

// The statement goes on to its own end or time-out when the server cannot be asked.
void AskToCancel(const String& connectionString, const String& process) noexcept {
  try {
    OdbcStatement request(std::make_shared<Line>(connectionString, Long(kLateLogin.count())));
    request.Run(u"SELECT pg_cancel_backend(pid) FROM pg_stat_activity WHERE pid = " + process);
  } catch (...) {
  }
}

}  // namespace

OdbcLink::OdbcLink(const String& connectionString, Long timeout, sql::SettingsScope scope)
    : connectionString_(ForScope(connectionString, scope)) {
  line_ = std::make_shared<Line>(connectionString_, timeout);
  if (!line_->IsPostgres() || scope == sql::SettingsScope::Transaction) return;
  OdbcStatement question(line_);
  question.Run(u"SELECT pg_backend_pid()");
  serverProcess_ = question.FirstText();
}

OdbcLink::OdbcLink(SQLHDBC lent, std::function<bool()> isThere)
    : line_(std::make_shared<Line>(lent, std::move(isThere))) {
  if (line_->IsPostgres()) RequireHarmlessDriver(line_);
}

sql::Standing OdbcLink::ProgramStanding() { return StandingOf(*line_); }

// Once this transaction is over, its process may be somebody else's.
void OdbcLink::NoteProcess() {
  OdbcStatement question(line_);
  question.Run(
      u"SELECT pg_backend_pid() || ' AND round(extract(epoch FROM xact_start)::numeric, 6) = ' || "
      u"round(extract(epoch FROM now())::numeric, 6)");
  String process = question.FirstText();
  const std::lock_guard lock(processMutex_);
  serverProcess_ = std::move(process);
}

bool OdbcLink::RequestCancel() {
  if (!line_->IsPostgres() || line_->IsLent())
    return sql::IsOverWithin(sql::kSilence, [line = line_] { line->CancelRunning(); });
  String process;
  {
    const std::lock_guard lock(processMutex_);
    process = serverProcess_;
  }
  return sql::IsOverWithin(sql::kSilence,
                           [text = connectionString_, process] { AskToCancel(text, process); });
}

// The driver manager lets only one call of a connection through at a time, so that SQLCancel would
// wait for the statement that it is to cancel. Another connection can ask PostgreSQL.
bool OdbcLink::Cancel() noexcept {
  try {
    return RequestCancel();
  } catch (...) {
    return true;  // the statement goes on to its own end or time-out
  }
}

sql::ServerFacts OdbcLink::Facts() {
  return {line_->InfoText(SQL_DBMS_NAME), line_->InfoText(SQL_DBMS_VER),
          Trim(line_->InfoText(SQL_IDENTIFIER_QUOTE_CHAR))};
}

sql::StatementPtr OdbcLink::NewStatement() { return std::make_shared<OdbcStatement>(line_); }

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
  throw sql::InWords(error);
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
