// What a session does with the sessions beside it, which read distant rows.
#include <algorithm>

#include "hosts/sql/session/first_row.h"
#include "hosts/sql/session/session.h"

namespace tessaria::sql {
namespace {

// Sessions that one connection opens beside its own, so that others find a place too.
constexpr std::size_t kMostBeside = 8;

// Whether one of these readers has a table for which no other session has any lock. Only then does
// it help to let go of it.
String QuestionOfLocks(const String& readers, const String& all) {
  return u"SELECT count(*) FROM pg_catalog.pg_locks AS own JOIN pg_catalog.pg_class AS tables ON "
         u"tables.oid = own.relation JOIN pg_catalog.pg_database AS here ON here.oid = "
         u"own.database WHERE here.datname = current_database() AND own.pid IN (" +
         readers +
         u") AND tables.relkind IN ('r', 'p', 'm') AND tables.relnamespace <> "
         u"'pg_catalog'::regnamespace AND NOT EXISTS (SELECT FROM pg_catalog.pg_locks AS other "
         u"WHERE other.database = own.database AND other.relation = own.relation AND "
         u"other.granted AND other.pid NOT IN (" +
         all + u"))";
}

}  // namespace

SessionPtr Session::OpenBeside() {
  std::erase_if(beside_, [](const auto& other) { return other.expired(); });
  if (!CanBeReadBeside() || beside_.size() >= kMostBeside) return nullptr;
  auto beside = std::make_shared<Session>(connect_, patience_);
  beside->CommandTimeout(commandTimeout_);
  beside->LockTimeout(lockTimeout_);
  beside->Open(reconnection_.ConnectionString(), reconnection_.Timeout());
  beside->reconnection_.Closed();  // what it has shown cannot be had again
  beside_.push_back(beside);
  return beside;
}

// A pooler that lends its connections for a transaction could not lend this one any more.
bool Session::CanBeReadBeside() const {
  return IsOpen() && !adoption_ && !hasOwnState_ && !InTransaction() &&
         scope_ == SettingsScope::Session;
}

void Session::Note(const StatementFacts& facts) {
  patience_->RequireIdle();
  if (facts.leavesState) hasOwnState_ = true;
  if (facts.mayLockTables) HoldDistant();
}

// Something that runs meanwhile may let go of any of them.
void Session::ForEachDistant(void (DistantRows::*act)() noexcept) {
  for (DistantRows* const rows : std::vector(distant_)) {
    if (std::find(distant_.begin(), distant_.end(), rows) != distant_.end()) (rows->*act)();
  }
}

void Session::HoldDistant() {
  const int before = patience_->TimesGivenUp();
  ForEachDistant(&DistantRows::HoldAll);
  if (patience_->TimesGivenUp() > before) throw HostError(errors::Cancelled);
}

void Session::EndDistant() noexcept { ForEachDistant(&DistantRows::HoldOrGiveUp); }

// After a lock that was not given in time: a function or a trigger may have asked for the whole
// table. Returns whether the rows have been let go of.
bool Session::HoldInTheWay() noexcept {
  try {
    if (distant_.empty() || !MayBeInTheWay()) return false;
    HoldDistant();
    return true;
  } catch (...) {
    return false;  // the error of the lock is being raised and says more
  }
}

// Asked beside this session, whose transaction may have failed.
bool Session::MayBeInTheWay() {
  String readers;
  SessionPtr asked;
  for (const auto& other : beside_) {
    const SessionPtr beside = other.lock();
    if (!beside || !beside->IsOpen()) continue;
    readers += (readers.empty() ? u"" : u", ") + beside->process_;
    asked = beside;
  }
  if (!asked) return false;
  const StatementPtr question = asked->NewStatement();
  asked->Execute(*question, QuestionOfLocks(readers, readers + u", " + process_));
  return FirstRow(*question)[0] != u"0";
}

}  // namespace tessaria::sql
