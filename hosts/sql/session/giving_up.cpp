#include "hosts/sql/session/giving_up.h"

#include <algorithm>
#include <exception>
#include <utility>

#include "hosts/sql/driver/bounded_call.h"

namespace tessaria::sql {
namespace {

// For a driver whose line has been ended, to notice it.
constexpr std::chrono::seconds kToNotice{1};

// For a request to cancel, and for what it brings about.
constexpr auto kForCancel = 2 * kSilence;

// Nobody waits longer for the end of a call.
constexpr std::chrono::hours kLongest{24 * 365};

}  // namespace

GivingUp::GivingUp(Worker& canceller, CallTerms terms)
    : canceller_(canceller), terms_(std::move(terms)), due_(Clock::time_point::max()) {
  if (terms_.time.count() > 0)
    due_ = Clock::now() + std::min<std::chrono::seconds>(terms_.time, kLongest);
}

// A call that goes on although the server has taken the request has its time like one that is late.
void GivingUp::ByOperator() {
  if (terms_.isBracket) {
    due_ = std::min(due_, Clock::now() + kSilence);
    return;
  }
  if (hasGivenUpLink_ || !IsOverWithin({}) || !AskToCancel()) return;
  isByOperator_ = true;
  isOverdue_ = true;
  due_ = std::min(due_, Clock::now() + kForCancel);
}

void GivingUp::Step() {
  if (hasGivenUpLink_ || Clock::now() < due_ || !IsOverWithin({})) return;
  if (terms_.mayBeLeft && (isOverdue_ || terms_.isBracket)) return GiveUpLink();
  isOverdue_ = true;
  due_ = Clock::now() + kForCancel;
  if (!terms_.isBracket) AskToCancel();
}

// A link that the program goes on using is never given up: the server may only be slow. False when
// no thread is to be had.
bool GivingUp::AskToCancel() noexcept {
  try {
    canceller_.Start([this] {
      if (!terms_.link->Cancel() && terms_.mayBeLeft) GiveUpLink();
    });
    return true;
  } catch (const std::exception&) {
    return false;
  }
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
