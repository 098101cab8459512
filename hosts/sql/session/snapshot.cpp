#include "hosts/sql/session/snapshot.h"

#include <string>

#include "hosts/sql/session/first_row.h"
#include "tessaria/text.h"

namespace tessaria::sql {
namespace {

// What names in a query mean to a session. Temporary tables are seen by their own session alone.
constexpr StringView kSight =
    u"current_user || ' ' || current_schemas(true)::text || ' ' || pg_my_temp_schema()::text";

// A standby may end a reading at any time.
constexpr StringView kFalse = u"false";

TextRow Ask(Session& session, const String& question) {
  const StatementPtr statement = session.InnerStatement();
  session.Execute(*statement, question);
  return FirstRow(*statement);
}

void Run(Session& session, const String& text, int results) {
  const StatementPtr statement = session.InnerStatement();
  session.ExecuteBatch(*statement, text, results);
}

}  // namespace

// A server may refuse it, or have no place for another one.
SessionPtr Snapshot::OpenBeside(Session& session) {
  try {
    return session.OpenBeside();
  } catch (const HostError& error) {
    if (error.Number() == errors::Cancelled) {
      Patience::RethrowFromReading(std::current_exception());
    }
    return nullptr;
  } catch (...) {
    return nullptr;  // no thread or no memory is to be had for it
  }
}

std::shared_ptr<Snapshot> Snapshot::Shared(Session& session, const SessionPtr& beside) {
  if (!beside) return nullptr;
  // Asked there first: a failure here would end the transaction.
  const String question =
      u"SELECT " + String(kSight) +
      u", pg_is_in_recovery()::text, pg_export_snapshot(), pg_backend_pid()::text";
  const TextRow there = Ask(*beside, question);
  const TextRow here = Ask(session, question);
  if (here[0] != there[0] || here[1] != kFalse) return nullptr;
  session.Process(*here[3]);
  beside->Process(*there[3]);
  auto snapshot = std::make_shared<Snapshot>(beside);
  snapshot->Begin(*here[2]);
  return snapshot;
}

std::shared_ptr<Snapshot> Snapshot::Now(Session& session) {
  if (!session.CanBeReadBeside()) return nullptr;
  const StatementPtr first = session.NewStatement();
  session.BeginReading();
  try {
    session.Execute(*first, u"SET TRANSACTION ISOLATION LEVEL REPEATABLE READ");
    auto snapshot = Shared(session, OpenBeside(session));
    session.EndReading();
    return snapshot;
  } catch (...) {
    session.AbandonReading();
    throw;
  }
}

// During a wait a driver may be using the link, so that its transaction ends afterwards.
Snapshot::~Snapshot() {
  beside_->AbandonReading();
  Patience& waits = beside_->Waits();
  if (!waits.IsIdle()) waits.KeepUntilIdle(std::move(beside_));
}

// Only reads, so that no function of a query takes effect twice. The rows of two runs of a query
// come in the same order when no run joins the scan of another. A statement that waits for the
// locks of the first session, and lets no other pass, would make both wait for ever.
void Snapshot::Begin(const String& exported) {
  beside_->BeginReading();
  String text = u"SET TRANSACTION ISOLATION LEVEL REPEATABLE READ, READ ONLY";
  int results = 3;
  if (!exported.empty()) {
    text += u"; SET TRANSACTION SNAPSHOT '" + exported + u"'";
    ++results;
  }
  Run(*beside_,
      text + u"; SET LOCAL synchronize_seqscans = off; SET LOCAL lock_timeout = '1s'" +
          u"; SAVEPOINT tessaria_snapshot",
      results + 1);
}

String Snapshot::NewCursor() { return u"tessaria_window_" + FromUtf8(std::to_string(++cursors_)); }

void Snapshot::Recover() {
  Run(*beside_, u"ROLLBACK TO SAVEPOINT tessaria_snapshot", 1);
  ++recoveries_;
  unused_.clear();
  beside_->SendTimeouts();
}

void Snapshot::Accept() { beside_->SendTimeouts(); }

}  // namespace tessaria::sql
