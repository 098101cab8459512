#include "hosts/odbc/session/session.h"

#include <array>

#include "hosts/odbc/driver/wide.h"
#include "hosts/odbc/session/connection_text.h"
#include "hosts/odbc/session/dbms_version.h"
#include "runtime/well_formed.h"
#include "tessaria/text.h"

namespace tessaria::odbc {
namespace {

SQLSMALLINT Length(const String& text) { return static_cast<SQLSMALLINT>(text.size()); }

String InfoText(SQLHDBC connection, SQLUSMALLINT what) {
  std::array<char16_t, 256> buffer{};
  SQLSMALLINT bytes = 0;
  Check(SQLGetInfoW(connection, what, buffer.data(), sizeof buffer, &bytes), SQL_HANDLE_DBC,
        connection);
  return String(buffer.data());
}

}  // namespace

// Marks the point to which a failed statement is undone. PostgreSQL would abort the whole
// transaction, and the driver's own handling silently loses it on a syntax error.
class Session::Savepoint {
 public:
  explicit Savepoint(Session& session)
      : session_(session), set_(session.inTransaction_ && session.server_.IsPostgres()) {
    if (set_) session_.RunPlain(u"SAVEPOINT tessaria_statement");
  }
  Savepoint(const Savepoint&) = delete;
  Savepoint& operator=(const Savepoint&) = delete;
  ~Savepoint() {
    if (!set_ || session_.lost_) return;
    try {
      session_.RunPlain(u"ROLLBACK TO SAVEPOINT tessaria_statement");
    } catch (const HostError&) {
      // The statement's own error is being raised and says more.
    }
  }

  void Release() {
    if (set_) session_.RunPlain(u"RELEASE SAVEPOINT tessaria_statement");
    set_ = false;
  }
  /// Leaves it in the transaction: the statement has dropped it, or depends on it.
  void Leave() { set_ = false; }

 private:
  Session& session_;
  bool set_;
};

Session::~Session() { Close(); }

void Session::Open(const String& connectionString, Long timeout) {
  if (IsOpen()) {
    throw HostError(errors::ObjectOpen, u"Operação não permitida com a conexão aberta.");
  }
  RequireWellFormed(connectionString);
  Close();
  auto link = std::make_shared<Link>();
  // A driver that does not support a time-out connects without one.
  if (timeout > 0) {
    SQLSetConnectAttrW(link->get(), SQL_ATTR_LOGIN_TIMEOUT,
                       reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(timeout)), 0);
  }
  const String text = DriverConnectionText(connectionString);
  odbc::Check(SQLDriverConnectW(link->get(), nullptr, Wide(text.c_str()), Length(text), nullptr, 0,
                                nullptr, SQL_DRIVER_NOPROMPT),
              SQL_HANDLE_DBC, link->get());
  link_ = std::move(link);
  try {
    ReadServer();
  } catch (...) {
    Close();
    throw;
  }
}

void Session::ReadServer() {
  server_ = Server();
  server_.name = InfoText(Handle(), SQL_DBMS_NAME);
  server_.dialect = DialectOf(server_.name);
  server_.version = InfoText(Handle(), SQL_DBMS_VER);
  server_.quote = Trim(InfoText(Handle(), SQL_IDENTIFIER_QUOTE_CHAR));
  SQLUINTEGER extensions = 0;
  odbc::Check(SQLGetInfoW(Handle(), SQL_GETDATA_EXTENSIONS, &extensions, 0, nullptr),
              SQL_HANDLE_DBC, Handle());
  constexpr SQLUINTEGER kNeeded = SQL_GD_BLOCK | SQL_GD_BOUND | SQL_GD_ANY_COLUMN;
  server_.rereads = (extensions & kNeeded) == kNeeded;
  if (server_.IsPostgres()) server_.version = PostgreSqlVersion(server_.version);
  for (const StringView setting : SettingsOf(server_.dialect)) RunPlain(String(setting));
}

void Session::Close() noexcept {
  if (pending_ != nullptr) pending_->ReadRest();
  if (inTransaction_ && IsOpen()) SQLEndTran(SQL_HANDLE_DBC, link_->get(), SQL_ROLLBACK);
  pending_ = nullptr;
  inTransaction_ = false;
  lost_ = false;
  link_.reset();
}

std::shared_ptr<Link> Session::RequireLink() const {
  if (!IsOpen()) {
    throw HostError(errors::InvalidConnection,
                    u"A conexão com o banco de dados está fechada ou foi perdida.");
  }
  return link_;
}

const Server& Session::ServerInfo() const {
  RequireLink();
  return server_;
}

SQLHDBC Session::Handle() const { return RequireLink()->get(); }

void Session::Settle() {
  RequireLink();
  if (pending_ != nullptr) pending_->ReadRest();
  RequireLink();
}

Statement Session::NewStatement() {
  Settle();
  return InnerStatement();
}

Statement Session::InnerStatement() const {
  Statement statement(RequireLink());
  // A driver that does not support escapes does not need the setting.
  const SQLRETURN result = SQLSetStmtAttrW(statement.get(), SQL_ATTR_NOSCAN,
                                           reinterpret_cast<SQLPOINTER>(SQL_NOSCAN_ON), 0);
  if (SQL_SUCCEEDED(result)) return statement;
  const OdbcError error = DiagnosticsOf(SQL_HANDLE_STMT, statement.get());
  if (!error.IsNotSupported()) throw error;
  return statement;
}

void Session::Check(SQLRETURN result, const Statement& statement) {
  if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) Fail(SQL_HANDLE_STMT, statement.get());
}

// The error of a failed call. A lost link closes the session.
void Session::Fail(SQLSMALLINT type, SQLHANDLE handle) {
  const OdbcError error = DiagnosticsOf(type, handle);
  NoteLoss(error);
  throw error;
}

void Session::NoteLoss(const OdbcError& error) {
  SQLINTEGER dead = SQL_CD_FALSE;
  SQLGetConnectAttrW(link_->get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr);
  if (!error.IsConnectionLoss() && dead != SQL_CD_TRUE) return;
  lost_ = true;
  inTransaction_ = false;
}

std::optional<bool> Session::BackslashesEscape(StringView statement) {
  const Server& server = ServerInfo();
  if (server.dialect == Dialect::Other) return std::nullopt;
  if (!server.IsPostgres() || statement.find(u'\\') == StringView::npos) return false;
  const Statement question = NewStatement();
  Check(Send(question, u"SHOW standard_conforming_strings"), question);
  std::array<char16_t, 8> answer{};
  SQLLEN bytes = 0;
  Check(SQLFetch(question.get()), question);
  Check(SQLGetData(question.get(), 1, SQL_C_WCHAR, answer.data(), sizeof answer, &bytes), question);
  return StringView(answer.data()) != u"on";
}

// Every statement goes to the driver through here, because the driver cuts a text at a character of
// code 0.
SQLRETURN Session::Send(const Statement& statement, const String& text) const {
  RequireWellFormed(text);
  return SQLExecDirectW(statement.get(), Wide(text.c_str()), static_cast<SQLINTEGER>(text.size()));
}

void Session::Execute(const Statement& statement, const String& text) {
  Savepoint savepoint(*this);
  Check(Send(statement, text), statement);
  savepoint.Release();
}

SQLLEN Session::ExecuteWith(const Statement& statement, const String& text,
                            const std::vector<Parameter>& values) {
  std::vector<SQLLEN> lengths(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Parameter& value = values[i];
    RequireWellFormed(value.text);
    lengths[i] = static_cast<SQLLEN>(value.text.size() * sizeof(char16_t));
    Check(SQLBindParameter(statement.get(), static_cast<SQLUSMALLINT>(i + 1), SQL_PARAM_INPUT,
                           SQL_C_WCHAR, value.sqlType, value.size, value.decimals,
                           Wide(value.text.c_str()), lengths[i], &lengths[i]),
          statement);
  }
  Savepoint savepoint(*this);
  const SQLRETURN result = Send(statement, text);
  Check(result, statement);
  // The statement has been executed; if the driver cannot count now, the number stays unknown.
  SQLLEN rows = 0;
  if (result != SQL_NO_DATA && !SQL_SUCCEEDED(SQLRowCount(statement.get(), &rows))) rows = -1;
  savepoint.Release();
  return rows;
}

void Session::ExecuteSavepoint(const String& text) {
  Settle();
  Savepoint savepoint(*this);
  RunPlain(text);
  savepoint.Leave();
}

void Session::RunPlain(const String& text) {
  const Statement statement = InnerStatement();
  Check(Send(statement, text), statement);
}

void Session::BeginTrans(const String& modes) {
  Settle();
  if (inTransaction_) {
    throw HostError(errors::ProviderError, u"Já existe uma transação em andamento.");
  }
  AutoCommit(false);
  inTransaction_ = true;
  if (modes.empty()) return;
  try {
    RunPlain(u"SET TRANSACTION " + modes);
  } catch (...) {
    if (IsOpen()) RollbackTrans();
    throw;
  }
}

void Session::CommitTrans() { EndTransaction(SQL_COMMIT); }

void Session::RollbackTrans() { EndTransaction(SQL_ROLLBACK); }

void Session::EndTransaction(SQLSMALLINT completion) {
  Settle();
  if (!inTransaction_) {
    throw HostError(errors::ProviderError, u"Não há transação em andamento.");
  }
  inTransaction_ = false;
  LeaveTransaction(completion);
}

// Each statement commits by itself again, whatever the server answers to the end of the
// transaction.
void Session::LeaveTransaction(SQLSMALLINT completion) {
  const SQLRETURN result = SQLEndTran(SQL_HANDLE_DBC, Handle(), completion);
  if (!SQL_SUCCEEDED(result)) {
    const OdbcError error = DiagnosticsOf(SQL_HANDLE_DBC, Handle());
    NoteLoss(error);
    if (lost_ && completion == SQL_COMMIT) {
      throw InDoubt(
          u"As alterações da transação podem ter sido gravadas ou não: a conexão com o "
          u"servidor caiu antes da resposta. Confira antes de repeti-las.",
          error);
    }
    // A commit that the server refuses has undone the transaction; what follows is outside it.
    if (!lost_) SQLEndTran(SQL_HANDLE_DBC, Handle(), SQL_ROLLBACK);
    if (!lost_) AutoCommit(true);
    throw error;
  }
  AutoCommit(true);
}

void Session::BeginReading() { AutoCommit(false); }

void Session::EndReading() { LeaveTransaction(SQL_COMMIT); }

void Session::AbandonReading() noexcept {
  if (!IsOpen()) return;
  SQLEndTran(SQL_HANDLE_DBC, link_->get(), SQL_ROLLBACK);
  SQLSetConnectAttrW(link_->get(), SQL_ATTR_AUTOCOMMIT,
                     reinterpret_cast<SQLPOINTER>(SQL_AUTOCOMMIT_ON), 0);
}

void Session::AutoCommit(bool on) {
  const SQLULEN value = on ? SQL_AUTOCOMMIT_ON : SQL_AUTOCOMMIT_OFF;
  const SQLRETURN result =
      SQLSetConnectAttrW(Handle(), SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(value), 0);
  if (!SQL_SUCCEEDED(result)) Fail(SQL_HANDLE_DBC, Handle());
}

String QuoteName(const Server& server, StringView name) {
  if (server.quote.empty()) return String(name);
  return server.quote + Replace(name, server.quote, server.quote + server.quote) + server.quote;
}

String TableNameOf(const Server& server, const String& catalogue, const String& schema,
                   const String& table) {
  const bool whole = server.dialect == Dialect::SqlServer && !catalogue.empty();
  String name = whole ? QuoteName(server, catalogue) + u"." : String();
  if (!schema.empty()) name += QuoteName(server, schema);
  // A database without a schema means the schema that the login has there.
  if (whole || !schema.empty()) name += u".";
  return name + QuoteName(server, table);
}

bool IsSameName(Dialect dialect, StringView a, StringView b) {
  return IsBracketed(dialect) ? EqualNoCase(a, b) : a == b;
}

}  // namespace tessaria::odbc
