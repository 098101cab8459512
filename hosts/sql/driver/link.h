// The port of a database driver: one link to a server, its statements, its catalogue.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "hosts/sql/driver/catalogue_facts.h"
#include "hosts/sql/driver/settings_scope.h"
#include "hosts/sql/statements/dialect_sql.h"
#include "hosts/sql/values/column.h"
#include "hosts/sql/values/column_store.h"

namespace tessaria::sql {

/// One statement at a time runs on it, and it can run another. Keeps its link alive, and a call
/// that waits for the server keeps it. Every failed call raises the driver's own error, a
/// `DriverError` where the server has refused something.
class TESSARIA_SQL_API Statement : public std::enable_shared_from_this<Statement> {
 public:
  Statement() = default;
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;
  virtual ~Statement();

  /// Runs a text, which may be a batch of this layer's own, and stands on its first result. What is
  /// left of earlier results is given up.
  virtual void Run(const String& text) = 0;
  /// Runs a text with values for its "?". Returns the number of rows that it changed, -1 when the
  /// server does not report it.
  virtual std::int64_t RunWith(const String& text, const std::vector<Parameter>& values) = 0;
  /// The columns of the present result; empty when it gives no rows.
  virtual Columns Describe() = 0;
  /// Makes `Take` read the rows of the present and of later results as rows of these columns.
  virtual void Bind(const Columns& columns) = 0;
  /// Waits for the next block of rows of the present result. Returns their number, 0 at the end.
  virtual std::uint32_t Fetch() = 0;
  /// Appends the rows of that block. Does not wait.
  virtual void Take(ColumnStore& store) = 0;
  /// To the next result of a batch. False when there is none.
  virtual bool NextResult() = 0;
  /// Takes in the results of a batch that are still to come, as far as `Run` has not, so that the
  /// server need not wait for their reader: the time of its statements runs while it waits. A
  /// failure among them is raised where it stands.
  virtual void KeepRest() = 0;
};

using StatementPtr = std::shared_ptr<Statement>;

/// What a server is, as its driver reports it.
struct ServerFacts {
  String name;     ///< "PostgreSQL", "Microsoft SQL Server", ...
  String version;  ///< numbers with points between
  String quote;    ///< the quotation mark of names; empty when there is none
};

/// What a connection of the program stands in, as far as its driver knows without asking.
enum class Standing {
  Unknown,
  Idle,           ///< no transaction is open
  InTransaction,  ///< one is open, perhaps only by the driver's mode
  Failed          ///< one is open and can only be undone
};

/// One physical connection, open from its making to its end. Used by one thread at a time, except
/// `Cancel`, `GiveUp` and `IsLost`; what may wait for the server runs on another thread than what
/// does not. Outside `Begin` and its end, every statement stands for itself.
class TESSARIA_SQL_API Link {
 public:
  Link() = default;
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;
  virtual ~Link();

  /// Of a connection that belongs to the program and was adopted. Raises an error when it cannot
  /// be used now: a statement of the program is being read there, or one of its settings is in the
  /// way. Does not wait.
  virtual Standing ProgramStanding() { return Standing::Unknown; }

  virtual ServerFacts Facts() = 0;
  virtual StatementPtr NewStatement() = 0;
  /// Whether the server or the way to it was found to be gone. Nothing can be run then.
  virtual bool IsLost() const noexcept = 0;

  /// Bounds the time of each statement where that is the driver's to do and not the server's: in
  /// seconds, 0 for no bound.
  virtual void StatementTimeout(Long seconds) = 0;
  /// Asks the server to give up the statement that runs, while another thread waits for it. Returns
  /// when the server knows, so that no later statement can be meant. False when it has not answered
  /// within `kSilence`: the request may still come, so that the link must be given up. Does nothing
  /// when none runs.
  virtual bool Cancel() noexcept = 0;
  /// Marks the link as lost, while another thread may wait for the server. That wait ends if the
  /// driver can end it and the connection is not the program's; otherwise the thread can be left,
  /// and nothing that uses the link waits for it.
  virtual void GiveUp() noexcept = 0;

  virtual void Begin() = 0;
  /// Both end the transaction, also when they raise an error: the server may refuse a commit, which
  /// undoes the transaction.
  virtual void Commit() = 0;
  virtual void Rollback() = 0;
  /// A transaction has begun behind a pooler, which may run it in another process of the server
  /// than the one before. For `Cancel`.
  virtual void NoteProcess() {}

  /// Whether further statements can run while the rows of one still arrive.
  virtual bool RunsBesideRows() const noexcept = 0;
  /// Whether `Run` returns only when the rows of all its results have arrived, so that neither
  /// `Fetch` nor `NextResult` waits.
  virtual bool RowsArriveWithRun() const noexcept = 0;
  /// What the declaration of a PostgreSQL cursor says about the form of its rows: nothing, or
  /// "BINARY " where `Take` reads them so.
  virtual StringView CursorKind() const noexcept = 0;

  /// A link may remember of which tables the columns of its results are and whether they take Null.
  /// Makes it ask again, where a write depends on it.
  virtual void ForgetTables() = 0;

  // The catalogue. An empty name stands for all; drivers may answer with more than was asked for.
  virtual std::vector<TableFacts> Tables(const host::SchemaRestrictions& asked) = 0;
  virtual std::vector<ColumnFacts> TableColumns(const host::SchemaRestrictions& asked) = 0;
  /// In the order of the key. Nothing when the driver cannot report keys.
  virtual std::optional<std::vector<KeyPart>> PrimaryKey(const TablePlace& table) = 0;
  /// The columns of unique indexes, those of one index together; empty when the driver cannot
  /// report them.
  virtual std::vector<KeyPart> UniqueIndexes(const TablePlace& table) = 0;
};

using LinkPtr = std::shared_ptr<Link>;

/// Opens a link. `timeout` is in seconds, 0 for the driver's own. Where settings reach no further
/// than a transaction, the link sets nothing and keeps no prepared statement on the server.
using Connector =
    std::function<LinkPtr(const String& connectionString, Long timeout, SettingsScope scope)>;

}  // namespace tessaria::sql
