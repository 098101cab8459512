#include "hosts/sql/session/giving_up.h"

#include <algorithm>
#include <utility>

#include "hosts/sql/driver/bounded_call.h"

namespace tessaria::sql {
namespace {

// For a driver whose line has been ended, to notice it.
constexpr std::chrono::seconds kToNotice{1};

// Nobody waits longer for the end of a call.
constexpr std::chrono::hours kLongest{24 * 365};

}  // namespace

// The server bounds its statements itself; its answer is late only when something is wrong.
GivingUp::GivingUp(Worker& canceller, CallTerms terms)
    : canceller_(canceller), terms_(std::move(terms)), due_(Clock::time_point::max()) {
  if (terms_.bound.count() > 0)
    due_ = Clock::now() + std::min<std::chrono::seconds>(terms_.bound, kLongest) + kSilence;
}

void GivingUp::ByOperator() {
  if (hasGivenUpLink_ || !IsOverWithin({})) return;
  isByOperator_ = true;
  AskToCancel();
}

void GivingUp::Step() {
  if (hasGivenUpLink_ || Clock::now() < due_ || !IsOverWithin({})) return;
  if (std::exchange(isOverdue_, true)) return GiveUpLink();
  due_ = Clock::now() + 2 * kSilence;  // for the request, and for what it brings about
  AskToCancel();
}

void GivingUp::AskToCancel() {
  canceller_.Start([this] {
    if (!terms_.link->Cancel()) GiveUpLink();
  });
}

void GivingUp::GiveUpLink() noexcept {
  terms_.link->GiveUp();
  givenUp_ = Clock::now();
  hasGivenUpLink_ = true;
}

bool GivingUp::IsHopeless() {
  return terms_.mayBeLeft && hasGivenUpLink_ && IsOverWithin({}) &&
         Clock::now() > givenUp_ + kToNotice;
}

}  // namespace tessaria::sql
