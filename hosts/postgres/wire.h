// One connection of the client library, on which the results of one text at a time arrive.
#pragma once

#include <atomic>
#include <functional>
#include <list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "hosts/postgres/connection_text.h"
#include "hosts/postgres/known_tables.h"
#include "hosts/postgres/line_end.h"
#include "hosts/postgres/pg_result.h"
#include "hosts/sql/driver/settings_scope.h"

namespace tessaria::postgres {

class Batch;

/// What has arrived of a batch and was not taken yet. A call that was left keeps its own hold.
struct Received {
  std::list<Result> results;           // seldom any
  std::optional<DriverError> failure;  // comes after the results
};

/// Values of a statement's parameters in UTF-8; nothing for Null.
using Values = std::vector<std::optional<std::string>>;

struct ConnectionEnd {
  void operator()(PGconn* connection) const noexcept {
    if (!isLent) PQfinish(connection);
  }
  bool isLent = false;
};

/// Open from its making to its end; one of the program stays open. A failed call raises a
/// `DriverError`.
class Wire {
 public:
  /// `timeout` is in seconds, 0 for the library's own.
  Wire(const ConnectionOptions& options, Long timeout, sql::SettingsScope scope);
  /// Over a connection of the program. `isThere` tells whether the program still has it; empty for
  /// always.
  Wire(PGconn* lent, std::function<bool()> isThere);
  Wire(const Wire&) = delete;
  Wire& operator=(const Wire&) = delete;

  PGconn* Get() const { return connection_.get(); }
  /// Whether the server or the way to it was found to be gone.
  bool IsLost() const noexcept;
  /// Raises an error when a connection of the program cannot be used now.
  void RequireFree();
  /// What is known about tables on this connection.
  KnownTables& Tables() { return tables_; }
  /// Both as the link's. The only calls for another thread.
  bool Cancel() noexcept;
  void GiveUp() noexcept;

  /// Takes the results that a batch still expects, so that something else can be sent. The batch
  /// keeps them for its reader, and a failure among them too. It is raised here as well: it has
  /// harmed the transaction that both share.
  void Settle();
  /// Settles, runs one statement and returns its result.
  Result Ask(const std::string& text, const Values& values = {});

 private:
  friend class Batch;

  void Send(const std::shared_ptr<Received>& batch, const std::string& text);
  void KeepRest();
  Result Take();
  Result Receive() noexcept;
  void Discard() noexcept;
  [[noreturn]] void Fail(const DriverError& error);
  void RequireSound(const PGresult* result);

  std::unique_ptr<PGconn, ConnectionEnd> connection_;
  std::function<bool()> isThere_;
  std::shared_ptr<PGcancel> cancel_;
  LineEnd line_;
  std::shared_ptr<Received> underWay_;  // of the batch whose results are still arriving
  int process_ = 0;                     // the server's, of a connection of the program
  mutable std::atomic<bool> lost_ = false;
  KnownTables tables_;
};

/// The results of one sent text, each taken when it is asked for. Belongs to one statement.
class Batch {
 public:
  explicit Batch(std::shared_ptr<Wire> wire) : wire_(std::move(wire)) {}
  Batch(const Batch&) = delete;
  Batch& operator=(const Batch&) = delete;
  ~Batch() { Drop(); }

  /// Settles and sends another text; what is left of the one before is given up.
  void Send(const std::string& text);
  /// The next result, or a null pointer at the end.
  Result Next();
  /// Takes in what is still to come, for `Next`.
  void KeepRest();
  /// Gives up what has not been taken.
  void Drop() noexcept;

 private:
  friend class Wire;

  bool IsUnderWay() const { return wire_->underWay_ == received_; }

  std::shared_ptr<Wire> wire_;
  std::shared_ptr<Received> received_ = std::make_shared<Received>();
};

}  // namespace tessaria::postgres
