// How a call of a driver is given up that does not end.
#pragma once

#include <atomic>
#include <chrono>

#include "hosts/sql/driver/link.h"
#include "hosts/sql/session/worker.h"

namespace tessaria::sql {

/// What may be done about a call that does not end.
struct CallTerms {
  LinkPtr link;
  std::chrono::seconds time{0};  ///< in which the server should have ended it; 0 for no bound
  bool mayBeLeft = true;         ///< false where the program goes on using the connection
  bool isBracket = false;        ///< around a statement, which is what the operator gives up
};

/// Of one call, on the thread that waits for it. The server is asked to cancel it when the operator
/// gives up, and when it has not ended the call in its time. When it does not answer that either,
/// or answers and does not end the call, the link is given up, and at last the call can be left.
/// A bracket is never cancelled, because its transaction would fail: a server that has not ended it
/// `kSilence` after the operator gave up is silent, and the link is given up at once.
class GivingUp {
 public:
  GivingUp(Worker& canceller, CallTerms terms);
  GivingUp(const GivingUp&) = delete;
  GivingUp& operator=(const GivingUp&) = delete;

  /// Has no effect while a request to cancel is under way.
  void ByOperator();
  bool IsBracket() const { return terms_.isBracket; }
  /// Does what the time demands.
  void Step();
  /// Whether no request to cancel is under way, which could meet a later statement.
  bool IsOverWithin(std::chrono::milliseconds time) { return canceller_.IsOverWithin(time); }
  /// Whether the call will hardly end any more, and can be left.
  bool IsHopeless();

  bool IsByOperator() const { return isByOperator_; }
  bool HasGivenUpLink() const { return hasGivenUpLink_; }

 private:
  using Clock = std::chrono::steady_clock;

  bool AskToCancel() noexcept;
  void GiveUpLink() noexcept;

  Worker& canceller_;
  const CallTerms terms_;
  Clock::time_point due_;  // of the next step
  bool isOverdue_ = false;
  bool isByOperator_ = false;
  std::atomic<bool> hasGivenUpLink_ = false;
  Clock::time_point givenUp_;
};

}  // namespace tessaria::sql
