// The state behind a connection object: the link to the server, its transaction, its errors.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

#include "hosts/sql/driver/link.h"
#include "hosts/sql/errors/driver_error.h"
#include "hosts/sql/session/adoption.h"
#include "hosts/sql/session/patience.h"
#include "hosts/sql/session/reconnection.h"
#include "hosts/sql/statements/statement_guard.h"

namespace tessaria::sql {

/// What is known about the server and its driver.
struct Server {
  String name;     ///< as the driver reports it
  String version;  ///< for PostgreSQL in the form that version rules read
  Dialect dialect = Dialect::Other;
  String quote;  ///< the quotation mark of names; empty when there is none

  bool IsPostgres() const { return dialect == Dialect::PostgreSql; }
};

/// Rows that still arrive over a link. Nothing else may use the link before they are read.
class PendingRows {
 public:
  PendingRows() = default;
  PendingRows(const PendingRows&) = delete;
  PendingRows& operator=(const PendingRows&) = delete;

  /// Reads the remaining rows. A failure is kept for whoever asks for the missing rows. Rows remain
  /// only when the operator gives up a session that was to be opened for them; the next call reads
  /// without it.
  virtual void ReadRest() noexcept = 0;

 protected:
  ~PendingRows() = default;
};

/// Rows that stay at the server until they are asked for, in a transaction of another session.
class DistantRows {
 public:
  DistantRows() = default;
  DistantRows(const DistantRows&) = delete;
  DistantRows& operator=(const DistantRows&) = delete;

  /// Reads all rows and ends the transaction, which may stand in the way of a statement. A failure
  /// is kept for whoever asks for the missing rows.
  virtual void HoldAll() noexcept = 0;
  /// The same; rows that cannot be read are given up, and whoever needs one of them gets the error.
  virtual void HoldOrGiveUp() noexcept = 0;
  /// The number of the server's process that reads them; empty where none does.
  virtual String Reader() const = 0;

 protected:
  ~DistantRows() = default;
};

/// Outlives the link: after a loss the same session is opened again, and the record sets that
/// hold it can go on writing. Used by one thread at a time.
class Session : public std::enable_shared_from_this<Session> {
 public:
  explicit Session(Connector connect);
  /// Waits together with another session of the same thread.
  Session(Connector connect, std::shared_ptr<Patience> patience);
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;
  ~Session();

  /// Raises 3705 when it is already open, 3712 when the operator gives up; the attempt is left to
  /// itself then, and ends at the latest with its time-out. `timeout` is in seconds; 0 means the
  /// driver's own.
  void Open(String connectionString, Long timeout);
  /// Uses a connection that belongs to the program. Its transactions are never ended here, and
  /// between two calls nothing is left open on it. Errors: those of `ProgramStanding` and of a
  /// transaction that has failed; 3709 for a database other than PostgreSQL.
  void Adopt(LinkPtr link);
  /// Whether the connection belongs to the program: rows are read whole with their statement then.
  bool IsAdopted() const noexcept { return adoption_.has_value(); }
  /// Undoes a transaction in progress, and ends those of distant rows, which are read first. Does
  /// nothing when closed.
  void Close() noexcept;
  bool IsOpen() const noexcept { return link_ != nullptr && !link_->IsLost(); }
  /// Whether the link has gone since the program opened the session.
  bool IsLost() const noexcept { return !IsOpen() && reconnection_.IsWanted(); }
  /// Whether the next statement of an action may open it again.
  bool CanReconnect() const noexcept {
    return !IsOpen() && !inTransaction_ && reconnection_.IsPossible();
  }

  /// Raises 3709 when closed, as do all functions below. Stays as it was while the session can be
  /// opened again, and until a transaction that was lost has been ended.
  const Server& ServerInfo() const;
  /// A new statement, after reading the remaining rows of the last one.
  StatementPtr NewStatement();
  /// Another statement for the rows that are being read.
  StatementPtr InnerStatement() const;
  /// Asks the link for something of its catalogue; with drivers that need it, once the rows of the
  /// last statement have been read.
  /// `ask` owns all that it uses.
  template <class Ask>
  auto AskCatalogue(Ask ask) {
    const auto answer = std::make_shared<std::invoke_result_t<Ask, Link&>>();
    RunCatalogue([answer, ask = std::move(ask)](Link& link) { *answer = ask(link); });
    return std::move(*answer);
  }
  /// The link's.
  StringView CursorKind() const { return RequireLink()->CursorKind(); }

  /// Whether the server reads backslashes in the plain texts of a statement as escapes. It is asked
  /// only when the statement holds a backslash, and then each time: a program, a function or an
  /// undone transaction may have changed it. Nothing when that is unknown.
  std::optional<bool> BackslashesEscape(StringView statement);

  /// Runs a statement. When it fails inside the application's transaction, only its own work is
  /// undone.
  void Execute(Statement& statement, const String& text) { ExecuteBatch(statement, text, 1); }
  /// The same of a batch with so many results; the statement is positioned on the last.
  void ExecuteBatch(Statement& statement, const String& text, int results);
  /// Runs a statement with values for its "?" and returns the number of rows that it changed.
  std::int64_t ExecuteWith(Statement& statement, const String& text, std::vector<Parameter> values);
  /// Runs savepoint statements, which a savepoint of this layer must not enclose.
  void ExecuteSavepoint(const String& text);

  /// `modes` are in the syntax of SET TRANSACTION.
  void BeginTrans(const String& modes = {});
  /// How many transactions the program has begun with it.
  std::uint64_t Transactions() const { return transactions_; }
  void CommitTrans();
  void RollbackTrans();
  /// On an adopted connection: as it was when the present call began.
  bool InTransaction() const {
    return IsOpen() && (inTransaction_ || (adoption_ && adoption_->InTransaction()));
  }
  /// Begins a transaction of this layer for a cursor. Not allowed inside the application's.
  void BeginReading();
  void EndReading();
  void AbandonReading() noexcept;

  /// The bounds of `host::Connection`, in seconds. They hold for the next statement on.
  Long CommandTimeout() const { return commandTimeout_; }
  void CommandTimeout(Long seconds);
  Long LockTimeout() const { return lockTimeout_; }
  void LockTimeout(Long seconds);

  /// To the next block of rows of a statement. Returns their number, 0 at the end of the result.
  std::uint32_t Fetch(Statement& statement);
  /// To the next result of a statement's batch. False when there is none.
  bool NextResult(Statement& statement);
  Columns Describe(Statement& statement);
  /// `results` are still to come, at the most.
  void KeepRest(Statement& statement, int results);
  Patience& Waits() { return *patience_; }

  /// As the link's.
  void ForgetTables() const;
  /// Ends a statement of rows that nobody reads any more: at once, or when another statement that
  /// runs is over. The server is asked to cancel what it is still doing for them.
  void Retire(StatementPtr statement) noexcept;

  /// Another session of the same database, which waits together with this one. Nothing when the
  /// statements of this one may see another database than those of a new one: inside a transaction,
  /// and after a statement that may have changed settings or made temporary tables. Raises the
  /// errors of `Open`.
  std::shared_ptr<Session> OpenBeside();
  bool CanBeReadBeside() const;
  /// What to know about a statement before it runs, once the rows of the one before are read.
  void Note(const StatementFacts& facts);
  /// Makes all rows at the server be held, so that their transactions stand in nobody's way. Error
  /// 3712 when the operator gave it up.
  void HoldDistant();
  /// The process of the server that runs this session; nothing until somebody has asked for it.
  void Process(String number) { process_ = std::move(number); }
  const String& Process() const { return process_; }
  /// Sends the bounds again, which something may have changed or undone.
  void SendTimeouts() { SetTimeouts(commandTimeout_, lockTimeout_); }
  void Add(DistantRows* rows) { distant_.push_back(rows); }
  void Remove(const DistantRows* rows) noexcept { std::erase(distant_, rows); }

  void Pending(PendingRows* rows) { pending_ = rows; }
  void Finished(const PendingRows* rows) noexcept {
    if (pending_ == rows) pending_ = nullptr;
  }

 private:
  class Savepoint;

  LinkPtr RequireLink() const;
  LinkPtr Connect(const String& text, Long timeout);
  void Drop() noexcept;
  void Reconnect();
  void SetLocally(const String& modes);
  bool StandsAlone() const;
  void InItsScope(const std::function<void()>& work);
  void ReadServer();
  void SettleRows();
  void Settle();
  void RunPlain(const String& text);
  void RunBracket(const String& text);
  void RunApart(const String& text, bool isBracket);
  void SendEnd(void (Link::*end)(), const String& text);
  void Enclose(const std::function<void()>& call);
  void RequireTransaction(bool mayHaveFailed = false);
  void Await(std::function<void()> call, int statements = 1, bool isBracket = false);
  void Tidy(std::function<void()> call, std::chrono::seconds time, bool isBracket) noexcept;
  void NoteLoss() noexcept;
  void ForEachDistant(const std::function<void(DistantRows& rows)>& act);
  void EndDistant() noexcept;
  bool HoldInTheWay() noexcept;
  String ReadersInTheWay();
  String AnswerAside(const String& question);
  String OwnProcess();
  void RunCatalogue(std::function<void(Link&)> ask);
  void EndWhatIsLeft() noexcept;
  void ChangeTimeouts(Long command, Long lock);
  void SetTimeouts(Long command, Long lock);
  void TakeTimeouts(Long command, Long lock) noexcept;
  void RestoreTimeouts();
  // Of adopted connections, in session_adopted.cpp.
  Standing AskProgram();
  void BeginForProgram(const String& modes);
  void GuardSavepoint(const String& text);
  void RollbackOwn();
  void LeaveProgram() noexcept;
  [[noreturn]] static void ThrowFailed();
  String OwnSettings() const { return Adoption::Settings(commandTimeout_, lockTimeout_); }
  void RunAlone(Statement& statement, const String& text, int results);
  void RunAfter(Statement& statement, const String& lead, int leading, const String& text,
                int results);

  Connector connect_;
  Reconnection reconnection_;
  LinkPtr link_;
  Server server_;
  PendingRows* pending_ = nullptr;
  std::vector<DistantRows*> distant_;
  std::vector<std::weak_ptr<Session>> beside_;
  String process_;
  bool hasOwnState_ = false;          // what a new session would not have
  bool inTransaction_ = false;        // one that this layer has begun for the program
  bool inOwnTransaction_ = false;     // one of this layer's own
  std::optional<Adoption> adoption_;  // of a connection that belongs to the program
  SettingsScope scope_ = SettingsScope::Session;
  Long commandTimeout_ = 30;
  Long lockTimeout_ = 10;
  std::uint64_t transactions_ = 0;
  bool setTimeoutsInTransaction_ = false;  // what its end may undo
  std::shared_ptr<Patience> patience_;
  // Left by handlers that ran during a wait.
  std::vector<StatementPtr> retired_;
  bool leftReading_ = false;
};

using SessionPtr = std::shared_ptr<Session>;

/// Runs a call that sends a write. When the connection is lost during it, outside a transaction,
/// the error is -2147217663, and its text starts with `doubt`.
template <class Write>
auto InDoubtWhenLost(Session& session, StringView doubt, Write write) {
  const bool isUndoneByLoss = session.InTransaction();
  try {
    return write();
  } catch (const HostError& error) {
    if (session.IsOpen() || isUndoneByLoss) throw;
    throw InDoubt(doubt, error);
  }
}

/// A name in the server's quotation marks.
String QuoteName(const Server& server, StringView name);
/// A table's whole name in quotation marks. SQL Server's has the database too, which may be
/// another than that of the connection.
String TableNameOf(const Server& server, const String& catalogue, const String& schema,
                   const String& table);
/// Whether two names of a column are the same. One may have been read from a statement, where
/// capitals do not count.
bool IsSameName(Dialect dialect, StringView a, StringView b);

}  // namespace tessaria::sql
