// The database as it was at one moment, read beside the program's session.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "hosts/sql/session/session.h"

namespace tessaria::sql {

/// A reading transaction on a session of its own, so that its cursors outlive the commits of the
/// program's session and nothing waits for their rows. Servers of PostgreSQL only. All functions
/// raise the driver's errors.
class Snapshot {
 public:
  /// The session that a snapshot of `session` reads with. Nothing where it cannot be had. Error
  /// 3712 when the operator gives it up; `session` and what it reads stay as they were.
  static SessionPtr OpenBeside(Session& session);
  /// Of the moment that the reading transaction of `session` sees. Nothing where the other session
  /// would see something else, or is not there.
  static std::shared_ptr<Snapshot> Shared(Session& session, const SessionPtr& beside);
  /// Of the present moment. Nothing as above.
  static std::shared_ptr<Snapshot> Now(Session& session);

  explicit Snapshot(SessionPtr beside) : beside_(std::move(beside)) {}
  Snapshot(const Snapshot&) = delete;
  Snapshot& operator=(const Snapshot&) = delete;
  ~Snapshot();

  /// The session to read with. Its statements must not end the transaction.
  Session& Beside() const { return *beside_; }
  /// A name for another cursor.
  String NewCursor();
  /// A cursor that nobody reads any more; it is closed with the next statement.
  void NoteUnused(String cursor) { unused_.push_back(std::move(cursor)); }
  std::vector<String> TakeUnused() { return std::exchange(unused_, {}); }
  /// After a statement that failed: makes the transaction usable again. Its cursors are gone.
  void Recover();
  /// The rows are as they should be: what was bounded for the comparison is as for all statements.
  void Accept();
  /// How often it has recovered.
  int Recoveries() const { return recoveries_; }

 private:
  void Begin(const String& exported);

  SessionPtr beside_;
  std::uint32_t cursors_ = 0;
  std::vector<String> unused_;
  int recoveries_ = 0;
};

}  // namespace tessaria::sql
