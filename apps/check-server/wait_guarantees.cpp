// Time-outs, cancel, and lost connections.
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <thread>

#include <tessaria/conversion.h>
#include <tessaria/error.h>
#include <tessaria/host/waiting.h>
#include <tessaria/thread_state.h>
#include <tessaria/utf8.h>

#include "apps/check-server/guarantee.h"

namespace tessaria::check {
namespace {

using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

const char* const kNoSleep = "no statement that takes its time is known for this server";

// An operator who gives up after a moment.
class Impatient final : public host::WaitView {
 public:
  Impatient() { State().waiting = this; }
  ~Impatient() override { State().waiting = nullptr; }
  bool Pass(const host::Wait& wait) override { return wait.Elapsed > 300ms; }
  void Over() override {}
};

// The statement must end with that error within four seconds, and leave a connection that works.
Finding EndsWith(host::Connection& connection, const String& statement, Long number) {
  const auto start = Clock::now();
  try {
    connection.Execute(statement);
    return NotKept("it ran to its end");
  } catch (const HostError& error) {
    if (error.Number() != number) return NotKept("another error: " + TextOf(error));
  }
  if (Clock::now() - start > 4s) return NotKept("it ended too late");
  return KeptIf(Subject::Scalar(connection, u"select 1") == u"1", "the next statement failed");
}

// Undoes the transaction that holds a lock: with the end of this object, or before, when the
// time-out that is looked for does not come.
class EndOfLock {
 public:
  explicit EndOfLock(host::Connection& holder)
      : thread_([this, &holder](const std::stop_token& stop) {
          std::unique_lock lock(mutex_);
          changed_.wait_for(lock, stop, 5s, [] { return false; });
          holder.RollbackTrans();
        }) {}

 private:
  std::mutex mutex_;
  std::condition_variable_any changed_;
  std::jthread thread_;
};

Finding CommandTimeout(Subject& subject) {
  if (!subject.IsPostgres()) return CannotTell(kNoSleep);
  subject.One().CommandTimeout(1);
  return EndsWith(subject.One(), u"select pg_sleep(6)", errors::TimeOut);
}

Finding LockTimeout(Subject& subject) {
  subject.Create(u"locked", u"k int primary key, nome varchar(20)");
  const String table = subject.Table(u"locked");
  subject.One().Execute(u"insert into " + table + u" values (1, 'um')");
  const String update = u"update " + table + u" set nome = 'dois' where k = 1";
  subject.Other().BeginTrans();
  subject.Other().Execute(update);
  subject.One().LockTimeout(1);
  const EndOfLock end(subject.Other());
  return EndsWith(subject.One(), update, errors::TimeOut);
}

// Behind a pooler the sessions of the server are shared.
Finding OwnTimeouts(Subject& subject) {
  if (!subject.IsPostgres()) return CannotTell("the settings of this server cannot be read");
  subject.One().CommandTimeout(7);
  subject.Other().CommandTimeout(9);
  for (int turn = 0; turn < 8; ++turn) {
    const String one = Subject::Scalar(subject.One(), u"show statement_timeout");
    const String other = Subject::Scalar(subject.Other(), u"show statement_timeout");
    if (one != u"7s" || other != u"9s") {
      return NotKept("one has " + ToUtf8(one) + " for 7s, the other " + ToUtf8(other) +
                     " for 9s; is it a pooler that needs Pooling=transaction?");
    }
  }
  return Kept();
}

Finding Cancel(Subject& subject) {
  if (!subject.IsPostgres()) return CannotTell(kNoSleep);
  const Impatient view;
  return EndsWith(subject.One(), u"select pg_sleep(6)", errors::Cancelled);
}

Finding Loss(Subject& subject) {
  if (!subject.IsPostgres()) return CannotTell("no statement that ends a session is known here");
  host::Connection& one = subject.One();
  one.BeginTrans();
  const String process = Subject::Scalar(one, u"select pg_backend_pid()");
  try {
    subject.Other().Execute(u"select pg_terminate_backend(" + process + u")");
  } catch (const HostError& error) {
    return CannotTell("the session cannot be ended: " + TextOf(error));
  }
  try {
    one.Execute(u"select 1");
    return NotKept("a statement of a lost session ran");
  } catch (const HostError&) {
  }
  if (one.State() != host::state::Closed) return NotKept("the connection still counts as open");
  one.RollbackTrans();
  one.Open();
  return KeptIf(Subject::Scalar(one, u"select 1") == u"1", "it does not work after opening again");
}

}  // namespace

std::vector<Guarantee> WaitGuarantees() {
  return {{"a statement that takes too long is given up", CommandTimeout},
          {"a wait for a locked row is given up", LockTimeout},
          {"time-outs belong to their connection", OwnTimeouts},
          {"a statement can be cancelled", Cancel},
          {"a lost connection is told, and can be opened again", Loss}};
}

}  // namespace tessaria::check
