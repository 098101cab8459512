#include "hosts/sql/session/session.h"

#include <utility>

#include "hosts/sql/session/dbms_version.h"
#include "hosts/sql/session/first_row.h"
#include "hosts/sql/session/local_settings.h"
#include "runtime/well_formed.h"
#include "tessaria/host/reconnecting.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria::sql {
namespace {

constexpr StringView kLost = u"A conexão com o banco de dados está fechada ou foi perdida.";

// For rows that nobody reads any more.
constexpr std::chrono::seconds kToComeIn{1};

}  // namespace

// Marks the point to which a failed statement is undone. PostgreSQL would abort the whole
// transaction, and the driver's own handling silently loses it on a syntax error.
class Session::Savepoint {
 public:
  explicit Savepoint(Session& session)
      : session_(session), set_(session.InTransaction() && session.server_.IsPostgres()) {
    if (set_) session_.RunBracket(Beginning());
  }
  Savepoint(const Savepoint&) = delete;
  Savepoint& operator=(const Savepoint&) = delete;
  ~Savepoint() {
    if (!set_ || !session_.IsOpen()) return;
    try {
      session_.RunBracket(session_.adoption_ ? Adoption::Undo()
                                             : u"ROLLBACK TO SAVEPOINT tessaria_statement");
    } catch (...) {
      // The statement's own error is being raised and says more.
    }
  }

  void Release() {
    if (set_)
      session_.RunBracket(session_.adoption_ ? session_.adoption_->Leave()
                                             : u"RELEASE SAVEPOINT tessaria_statement");
    set_ = false;
  }
  /// Leaves it in the transaction: the statement has dropped it, or depends on it.
  void Leave() { set_ = false; }

 private:
  String Beginning() const {
    return session_.adoption_ ? Adoption::Enter(session_.commandTimeout_, session_.lockTimeout_)
                              : u"SAVEPOINT tessaria_statement";
  }

  Session& session_;
  bool set_;
};

Session::Session(Connector connect) : Session(std::move(connect), std::make_shared<Patience>()) {}

Session::Session(Connector connect, std::shared_ptr<Patience> patience)
    : connect_(std::move(connect)), patience_(std::move(patience)) {}

Session::~Session() { Close(); }

void Session::Open(String connectionString, Long timeout) {
  patience_->RequireIdle();
  if (IsOpen()) {
    throw HostError(errors::ObjectOpen, u"Operação não permitida com a conexão aberta.");
  }
  RequireWellFormed(connectionString);
  Drop();
  const auto keep = weak_from_this().lock();  // something that runs meanwhile may let go of it
  const Patience::Request request(*patience_, host::Awaited::Connection);
  String text = connectionString;
  scope_ = TakePooling(text);
  link_ = Connect(text, timeout);
  hasOwnState_ = false;
  try {
    ReadServer();
    if (!distant_.empty()) process_ = OwnProcess();  // rows read beside it outlive a loss
  } catch (...) {
    Drop();
    throw;
  }
  reconnection_.Opened(std::move(connectionString), timeout);
}

// An attempt that was given up closes its link itself, should there ever be one.
LinkPtr Session::Connect(const String& text, Long timeout) {
  const auto link = std::make_shared<LinkPtr>();
  patience_->AwaitOrLeave([link, connect = connect_, text, timeout, scope = scope_] {
    *link = connect(text, timeout, scope);
  });
  return std::move(*link);
}

void Session::ReadServer() {
  ServerFacts facts = link_->Facts();
  server_ = {std::move(facts.name), std::move(facts.version), {}, std::move(facts.quote)};
  server_.dialect = DialectOf(server_.name);
  if (server_.IsPostgres()) server_.version = PostgreSqlVersion(server_.version);
  if (adoption_ || scope_ == SettingsScope::Transaction) return;
  for (const StringView setting : SettingsOf(server_.dialect)) RunPlain(String(setting));
  SetTimeouts(commandTimeout_, lockTimeout_);
}

void Session::Close() noexcept {
  // Something that runs meanwhile may let go of it.
  const auto keep = weak_from_this().lock();
  if (pending_ != nullptr) pending_->ReadRest();  // which may leave rows at the server
  if (!adoption_ && inTransaction_ && pending_ == nullptr) {
    AbandonReading();  // what it has locked may be what the distant rows wait for
    inTransaction_ = false;
  }
  EndDistant();
  reconnection_.Closed();
  Drop();
}

void Session::Drop() noexcept {
  EndWhatIsLeft();
  // The operator may give up the session that was to read them, and then they are read here.
  for (int i = 0; i < 2 && pending_ != nullptr; ++i) pending_->ReadRest();
  if (adoption_) {
    LeaveProgram();
  } else if (inTransaction_) {
    AbandonReading();
  }
  pending_ = nullptr;
  inTransaction_ = false;
  inOwnTransaction_ = false;
  link_.reset();
}

LinkPtr Session::RequireLink() const {
  if (!IsOpen()) {
    patience_->RequireIdle();  // it may be opened just now
    throw HostError(errors::InvalidConnection, String(kLost));
  }
  return link_;
}

// Before a request, of which nothing has been sent yet.
void Session::Reconnect() {
  if (!CanReconnect()) return;
  const auto keep = weak_from_this().lock();  // something that runs meanwhile may let go of it
  const auto isAllowed = [this] {
    return reconnection_.TakeTurn() && tessaria::State().reconnecting->Allows();
  };
  if (!patience_->Ask(isAllowed)) return;
  try {
    Open(reconnection_.ConnectionString(), reconnection_.Timeout());
  } catch (const HostError& error) {
    if (error.Number() == errors::Cancelled) throw;
    throw HostError(errors::InvalidConnection, String(kLost) + u"\r\n" + error.Description());
  }
}

const Server& Session::ServerInfo() const {
  if (!CanReconnect() && !inTransaction_) RequireLink();
  return server_;
}

void Session::Settle() {
  SettleRows();
  if (adoption_ && AskProgram() == Standing::Failed) ThrowFailed();
}

void Session::SettleRows() {
  patience_->RequireIdle();
  EndWhatIsLeft();
  Reconnect();
  RequireLink();
  if (pending_ == nullptr) return;
  const int before = patience_->TimesGivenUp();
  pending_->ReadRest();
  if (patience_->TimesGivenUp() > before) throw HostError(errors::Cancelled);
  if (pending_ != nullptr) pending_->ReadRest();  // without the session that could not be opened
  RequireLink();
  if (pending_ != nullptr) throw HostError(errors::Cancelled);
}

void Session::Retire(StatementPtr statement) noexcept {
  if (!patience_->IsIdle()) return retired_.push_back(std::move(statement));
  if (!statement || !IsOpen()) return;
  Tidy([left = std::move(statement)]() mutable { left.reset(); }, kToComeIn, false);
}

void Session::EndWhatIsLeft() noexcept {
  for (StatementPtr& statement : std::exchange(retired_, {})) Retire(std::move(statement));
  if (std::exchange(leftReading_, false)) AbandonReading();
}

StatementPtr Session::NewStatement() {
  Settle();
  return InnerStatement();
}

StatementPtr Session::InnerStatement() const { return RequireLink()->NewStatement(); }

// Undone alone when it fails.
void Session::Enclose(const std::function<void()>& call) {
  InItsScope([&] {
    Savepoint savepoint(*this);
    call();
    savepoint.Release();
  });
}

void Session::ForgetTables() const {
  patience_->RequireIdle();
  if (!CanReconnect()) RequireLink()->ForgetTables();
}

std::optional<bool> Session::BackslashesEscape(StringView statement) {
  const Server& server = ServerInfo();
  if (server.dialect == Dialect::Other) return std::nullopt;
  if (!server.IsPostgres() || statement.find(u'\\') == StringView::npos) return false;
  const StatementPtr question = NewStatement();
  Execute(*question, u"SHOW standard_conforming_strings");
  const TextRow answer = FirstRow(*question);
  return answer.empty() || answer[0] != u"on";
}

void Session::ExecuteBatch(Statement& statement, const String& text, int results) {
  RequireWellFormed(text);
  const Patience::Request request(*patience_);
  if (adoption_ && StandsAlone()) return RunAlone(statement, text, results);
  Enclose([&] {
    const bool isGuest = adoption_ && InTransaction();
    RunAfter(statement, isGuest ? String(Adoption::Lead()) : String(), isGuest ? 1 : 0, text,
             results);
  });
}

void Session::ExecuteSavepoint(const String& text) {
  Settle();
  if (adoption_) return GuardSavepoint(text);
  Savepoint savepoint(*this);
  RunPlain(text);
  savepoint.Leave();
}

void Session::BeginTrans(const String& modes) {
  Settle();
  if (InTransaction()) {
    throw HostError(errors::ProviderError, u"Já existe uma transação em andamento.");
  }
  ++transactions_;
  if (adoption_) return BeginForProgram(modes);
  Await([link = RequireLink()] { link->Begin(); }, 1, true);
  inTransaction_ = true;
  try {
    SetLocally(modes);
  } catch (...) {
    if (inTransaction_) RollbackTrans();
    throw;
  }
}

void Session::CommitTrans() {
  const Patience::Request request(*patience_, host::Awaited::Write);
  RequireTransaction();
  try {
    SettleRows();
  } catch (...) {
    if (!IsOpen()) inTransaction_ = false;
    throw;
  }
  inTransaction_ = false;
  try {
    SendEnd(&Link::Commit, u"COMMIT");
    setTimeoutsInTransaction_ = false;
  } catch (const HostError& error) {
    RestoreTimeouts();
    if (IsOpen()) throw;
    throw InDoubt(
        u"As alterações da transação podem ter sido gravadas ou não: a conexão com o "
        u"servidor caiu antes da resposta. Confira antes de repeti-las.",
        error);
  }
}

void Session::RollbackTrans() {
  RequireTransaction(true);
  try {
    SettleRows();
    inTransaction_ = false;
    adoption_ ? RollbackOwn() : SendEnd(&Link::Rollback, u"ROLLBACK");
  } catch (const HostError&) {
    if (IsOpen()) throw;
    inTransaction_ = false;  // the loss has undone it
    return;
  }
  RestoreTimeouts();
}

void Session::RequireTransaction(bool mayHaveFailed) {
  patience_->RequireIdle();
  if (adoption_) {
    SettleRows();
    const bool hasFailed = AskProgram() == Standing::Failed;
    if (hasFailed && !(mayHaveFailed && inTransaction_)) ThrowFailed();
  }
  if (inTransaction_) return;
  RequireLink();
  throw HostError(errors::ProviderError, u"Não há transação em andamento.");
}

// A driver whose rows arrive later may ask the server about the columns.
Columns Session::Describe(Statement& statement) {
  if (RequireLink()->RowsArriveWithRun()) return statement.Describe();
  const auto columns = std::make_shared<Columns>();
  Savepoint savepoint(*this);
  Await([columns, kept = statement.shared_from_this()] { *columns = kept->Describe(); });
  savepoint.Release();
  return std::move(*columns);
}

void Session::CommandTimeout(Long seconds) { ChangeTimeouts(seconds, lockTimeout_); }

void Session::LockTimeout(Long seconds) { ChangeTimeouts(commandTimeout_, seconds); }

void Session::ChangeTimeouts(Long command, Long lock) {
  if (command < 0 || lock < 0) throw HostError(errors::InvalidCriteria);
  patience_->RequireIdle();
  if (IsOpen() && !adoption_) {
    Settle();
    SetTimeouts(command, lock);
    setTimeoutsInTransaction_ = InTransaction();
  }
  commandTimeout_ = command;
  lockTimeout_ = lock;
  for (const auto& other : beside_) {
    if (const SessionPtr beside = other.lock()) beside->TakeTimeouts(command, lock);
  }
}

// Whoever reads there finds out himself when it is lost.
void Session::TakeTimeouts(Long command, Long lock) noexcept {
  try {
    ChangeTimeouts(command, lock);
  } catch (const HostError&) {
    commandTimeout_ = command;
    lockTimeout_ = lock;
  }
}

void Session::SetTimeouts(Long command, Long lock) {
  if (scope_ == SettingsScope::Transaction) {
    if (InTransaction()) RunPlain(LocalSettings(command, lock));
    return;
  }
  const String settings = TimeoutSettings(server_.dialect, command, lock);
  if (!settings.empty()) RunPlain(settings);
  if (!server_.IsPostgres()) RequireLink()->StatementTimeout(command);
}

// The server has undone what was set inside the transaction.
void Session::RestoreTimeouts() {
  if (std::exchange(setTimeoutsInTransaction_, false) && IsOpen())
    SetTimeouts(commandTimeout_, lockTimeout_);
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

}  // namespace tessaria::sql
