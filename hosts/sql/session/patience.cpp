#include "hosts/sql/session/patience.h"

#include <future>
#include <utility>

#include "hosts/sql/driver/bounded_call.h"
#include "hosts/sql/errors/driver_error.h"
#include "tessaria/thread_state.h"

namespace tessaria::sql {
namespace {

// Waits up to this are not noticed.
constexpr std::chrono::milliseconds kMoment{150};
constexpr std::chrono::milliseconds kStep{20};

constexpr StringView kReadingCancelled = u"A leitura foi cancelada.";

constexpr const char* kLossState = "08006";
constexpr StringView kSilent =
    u"O servidor parou de responder, e a conexão com ele foi abandonada.";

}  // namespace

// Of one wait.
class Patience::Busy {
 public:
  explicit Busy(Patience& patience) : patience_(patience) { patience_.isBusy_ = true; }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;
  ~Busy() {
    patience_.isBusy_ = false;
    const auto ended = std::exchange(patience_.ended_, {});
  }

 private:
  Patience& patience_;
};

Patience::Request::Request(Patience& patience, host::Awaited what)
    : patience_(patience), before_(patience.what_) {
  if (before_ == host::Awaited::Answer || what == host::Awaited::Connection) patience_.what_ = what;
  if (patience_.depth_++ > 0) return;
  patience_.start_ = patience_.lastPass_ = Clock::now();
  patience_.rows_ = 0;
}

Patience::Request::~Request() {
  patience_.what_ = before_;
  if (--patience_.depth_ > 0) return;
  patience_.isWished_ = false;
  if (auto* const view = std::exchange(patience_.passed_, nullptr)) view->Over();
}

void Patience::RequireIdle() const {
  if (isBusy_) throw HostError(errors::StillExecuting);
}

void Patience::Await(std::function<void()> call, const CallTerms& terms) {
  if (State().waiting != nullptr) return AwaitApart(std::move(call), terms);
  RequireIdle();
  const Busy busy(*this);
  call();
}

void Patience::AwaitApart(std::function<void()> call, const CallTerms& terms) {
  RequireIdle();
  const Busy busy(*this);
  const Request request(*this);
  GivingUp givingUp(canceller_, terms);
  worker_.Start(std::move(call));
  Watch(givingUp);
  if (!worker_.IsOverWithin({})) {
    worker_.Leave();
    throw DriverError(kLossState, String(kSilent));
  }
  Finish(givingUp);
}

// Until the call is over or can be left. Nothing is raised meanwhile: what has become of the call
// is all that counts for it.
void Patience::Watch(GivingUp& givingUp) {
  const auto isOverWithin = [&](std::chrono::milliseconds time) {
    return worker_.IsOverWithin(time) && givingUp.IsOverWithin(time);
  };
  for (auto step = kMoment; !isOverWithin(step) && !givingUp.IsHopeless(); step = kStep) {
    givingUp.Step();
    isWished_ = Pass() || isWished_;
    if (!isWished_) continue;
    givingUp.ByOperator();
    // Cancelling what brackets a statement would make the transaction fail: the statement is meant.
    isWished_ = givingUp.IsBracket();
  }
}

void Patience::Finish(const GivingUp& givingUp) {
  try {
    worker_.Finish();
  } catch (const HostError& error) {
    if (givingUp.HasGivenUpLink()) throw DriverError(kLossState, String(kSilent));
    if (!givingUp.IsByOperator() || error.Number() != errors::TimeOut) throw;
    ++givenUp_;
    throw HostError(errors::Cancelled);
  }
}

void Patience::AwaitOrLeave(const std::function<void()>& call) {
  RequireIdle();
  const Busy busy(*this);
  if (State().waiting == nullptr) return call();
  const Request request(*this);
  std::future<void> end = CallApart(call);
  const auto isOverWithin = [&](std::chrono::milliseconds time) {
    return end.wait_for(time) == std::future_status::ready;
  };
  for (auto step = kMoment; !isOverWithin(step); step = kStep) {
    if (!Pass() || isOverWithin({})) continue;
    ++givenUp_;
    throw HostError(errors::Cancelled);
  }
  end.get();
}

void Patience::Breathe() {
  const auto now = Clock::now();
  if (depth_ == 0 || State().waiting == nullptr || now - start_ < kMoment ||
      now - lastPass_ < kStep)
    return;
  const Busy busy(*this);
  if (!Pass()) return;
  ++givenUp_;
  throw HostError(errors::Cancelled, String(kReadingCancelled));
}

void Patience::RethrowFromReading(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const HostError& error) {
    if (error.Number() != errors::Cancelled) throw;
    throw HostError(errors::Cancelled, String(kReadingCancelled));
  }
}

bool Patience::Ask(const std::function<bool()>& question) {
  const Busy busy(*this);
  const bool answer = question();
  start_ = lastPass_ = Clock::now();
  return answer;
}

// A view throws nothing; one that does so nevertheless counts as one in which nothing happened.
bool Patience::Pass() noexcept {
  auto* const view = State().waiting;
  if (view == nullptr) return false;
  passed_ = view;
  const auto elapsed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start_);
  bool isGivenUp = false;
  try {
    isGivenUp = view->Pass({elapsed, rows_, what_});
  } catch (...) {
    isGivenUp = false;
  }
  lastPass_ = Clock::now();
  return isGivenUp;
}

}  // namespace tessaria::sql
