#include "tessaria/thread_state.h"

#include "tessaria/error.h"

namespace tessaria {

ThreadState& State() {
  thread_local ThreadState state;
  return state;
}

host::Application& App() {
  auto* application = State().application;
  if (!application) throw HostError(errors::ObjectNotSet);
  return *application;
}

host::Desktop& TheDesktop() {
  auto* desktop = State().desktop;
  if (!desktop) throw HostError(errors::ObjectNotSet);
  return *desktop;
}

}  // namespace tessaria
