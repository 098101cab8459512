#include "hosts/sql/session/reconnection.h"

#include <utility>

#include "tessaria/host/reconnecting.h"
#include "tessaria/thread_state.h"

namespace tessaria::sql {
namespace {

Long PresentAction() {
  auto* const view = State().reconnecting;
  return view == nullptr ? 0 : view->Action();
}

}  // namespace

void Reconnection::Opened(String connectionString, Long timeout) {
  text_ = std::move(connectionString);
  timeout_ = timeout;
  isWanted_ = true;
  doneIn_ = 0;
}

void Reconnection::NoteLoss() noexcept { doneIn_ = PresentAction(); }

bool Reconnection::IsPossible() const noexcept {
  return isWanted_ && State().reconnecting != nullptr;
}

bool Reconnection::TakeTurn() {
  const Long action = PresentAction();
  return action != 0 && std::exchange(doneIn_, action) != action;
}

}  // namespace tessaria::sql
