// How a thread waits for its server: alone, or with windows that repaint and an operator who can
// give up.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "hosts/sql/session/giving_up.h"
#include "hosts/sql/session/worker.h"
#include "tessaria/host/waiting.h"

namespace tessaria::sql {

/// Of one connection. Calls of its driver run on another thread while the thread of the program has
/// a view for its waits (`ThreadState::waiting`), on the thread itself otherwise.
class Patience {
 public:
  /// One request of the program, to which many answers of the server may belong. The time of the
  /// waits in it counts from its start. One inside another is a part of it: what the outer one
  /// waits for is shown, if it knows, except while a connection is opened.
  class Request {
   public:
    explicit Request(Patience& patience, host::Awaited what = host::Awaited::Answer);
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;
    ~Request();

   private:
    Patience& patience_;
    host::Awaited before_;
  };

  /// Makes one call of the driver, which owns all that it uses: while the program has a view for
  /// its waits, a call that nobody answers may be left to itself (`GivingUp`). The wait ends when a
  /// request to cancel is over too, so that no later call can be meant. Errors: those of the call;
  /// 3711 when another call is under way; 3712 when the operator gave up and the call was not done;
  /// a lost connection when the server does not answer any more.
  void Await(std::function<void()> call, const CallTerms& terms);
  /// The same; the call runs on another thread even when the program has no view for its waits.
  void AwaitApart(std::function<void()> call, const CallTerms& terms);
  /// Makes one call that nothing can cancel. When the operator gives up, it is left to itself: it
  /// owns all that it uses. Errors as above.
  void AwaitOrLeave(const std::function<void()>& call);
  /// Between two calls of a request that makes many: lets windows repaint now and then. Error 3712
  /// when the operator gave up.
  void Breathe();
  /// Asks the operator something within a request. The connection is busy meanwhile, and the time
  /// does not count.
  bool Ask(const std::function<bool()>& question);
  /// Error 3711 when a call is under way, which something that runs meanwhile asks.
  void RequireIdle() const;
  bool IsIdle() const noexcept { return !isBusy_; }
  /// Keeps something that has ended during a wait; its end needs a connection that is not busy.
  void KeepUntilIdle(std::shared_ptr<void> ended) { ended_.push_back(std::move(ended)); }
  /// How often the operator has given up, since the connection was made.
  int TimesGivenUp() const noexcept { return givenUp_; }
  /// Raises an error of reading; that of a call that was given up says that only reading was.
  [[noreturn]] static void RethrowFromReading(const std::exception_ptr& failure);
  /// Rows that have come in.
  void NoteRows(Long rows) { rows_ += rows; }

 private:
  using Clock = std::chrono::steady_clock;

  class Busy;

  void Watch(GivingUp& givingUp);
  void Finish(const GivingUp& givingUp);
  bool Pass() noexcept;

  Worker worker_;
  Worker canceller_;
  bool isBusy_ = false;
  std::vector<std::shared_ptr<void>> ended_;  // what lives until the wait is over
  int depth_ = 0;                             // of requests
  Clock::time_point start_, lastPass_;
  Long rows_ = 0;
  host::Awaited what_ = host::Awaited::Answer;
  int givenUp_ = 0;
  bool isWished_ = false;  // the operator has given up while something around a statement ran
  host::WaitView* passed_ = nullptr;  // the view that shows this request
};

}  // namespace tessaria::sql
