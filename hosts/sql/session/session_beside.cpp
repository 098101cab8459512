// What a session does with the sessions beside it, which read distant rows.
#include <algorithm>

#include "hosts/sql/session/first_row.h"
#include "hosts/sql/session/session.h"

namespace tessaria::sql {
namespace {

// Sessions that one connection opens beside its own, so that others find a place too.
constexpr std::size_t kMostBeside = 8;

// Those of the readers that have a table for which no other session has any lock. Only then does it
// help to let go of it.
String QuestionOfLocks(const String& readers, const String& own) {
  return u"SELECT array_to_string(array(SELECT DISTINCT held.pid FROM pg_catalog.pg_locks AS held "
         u"JOIN pg_catalog.pg_class AS tables ON tables.oid = held.relation JOIN "
         u"pg_catalog.pg_database AS here ON here.oid = held.database WHERE here.datname = "
         u"current_database() AND held.pid IN (" +
         readers +
         u") AND tables.relkind IN ('r', 'p', 'm') AND tables.relnamespace <> "
         u"'pg_catalog'::regnamespace AND NOT EXISTS (SELECT FROM pg_catalog.pg_locks AS other "
         u"WHERE other.database = held.database AND other.relation = held.relation AND "
         u"other.granted AND other.mode <> 'SIReadLock' AND other.pid NOT IN (" +
         readers + u", " + own + u"))), ' ')";
}

bool IsOneOf(const String& word, const String& words) {
  return !word.empty() && (u' ' + words + u' ').find(u' ' + word + u' ') != String::npos;
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
void Session::ForEachDistant(const std::function<void(DistantRows& rows)>& act) {
  for (DistantRows* const rows : std::vector(distant_)) {
    if (std::find(distant_.begin(), distant_.end(), rows) != distant_.end()) act(*rows);
  }
}

void Session::HoldDistant() {
  const int before = patience_->TimesGivenUp();
  ForEachDistant([](DistantRows& rows) { rows.HoldAll(); });
  if (patience_->TimesGivenUp() > before) throw HostError(errors::Cancelled);
}

void Session::EndDistant() noexcept {
  ForEachDistant([](DistantRows& rows) { rows.HoldOrGiveUp(); });
}

// After a lock that was not given in time: a function or a trigger may have asked for the whole
// table. Returns whether the rows have been let go of.
bool Session::HoldInTheWay() noexcept {
  try {
    const String readers = ReadersInTheWay();
    if (readers.empty()) return false;
    const int before = patience_->TimesGivenUp();
    ForEachDistant([&](DistantRows& rows) {
      if (IsOneOf(rows.Reader(), readers)) rows.HoldAll();
    });
    return patience_->TimesGivenUp() == before;
  } catch (...) {
    return false;  // the error of the lock is being raised and says more
  }
}

// The numbers of their processes, between blanks.
String Session::ReadersInTheWay() {
  String readers;
  SessionPtr asked;
  for (const auto& other : beside_) {
    const SessionPtr beside = other.lock();
    if (!beside || !beside->IsOpen() || beside->process_.empty()) continue;
    readers += (readers.empty() ? u"" : u", ") + beside->process_;
    asked = beside;
  }
  return asked && !process_.empty() ? asked->AnswerAside(QuestionOfLocks(readers, process_))
                                    : String();
}

// Asked inside a transaction of rows, to which a failure does nothing, nor to their cursors. The
// transaction of the session itself may have failed.
String Session::AnswerAside(const String& question) {
  RunBracket(u"SAVEPOINT tessaria_question");
  try {
    const StatementPtr statement = InnerStatement();
    Execute(*statement, question);
    const String answer = FirstRow(*statement)[0].value_or(String());
    RunBracket(u"RELEASE SAVEPOINT tessaria_question");
    return answer;
  } catch (...) {
    if (IsOpen()) RunBracket(u"ROLLBACK TO SAVEPOINT tessaria_question");
    throw;
  }
}

String Session::OwnProcess() {
  if (!server_.IsPostgres()) return {};
  const StatementPtr statement = InnerStatement();
  Execute(*statement, u"SELECT pg_backend_pid()::text");
  return FirstRow(*statement)[0].value_or(String());
}

}  // namespace tessaria::sql
