// The trap that a procedure arms around its rules.
#pragma once

#include <utility>

#include "services/error_box.h"
#include "tessaria/error.h"

namespace tessaria {

/// Takes what a procedure caught out of the error object when the procedure leaves, however it
/// leaves, so that an old error never colours a new message. An error that a caller is still
/// reporting stands again afterwards.
class ErrScope {
 public:
  ErrScope() : before_(Err()) {}
  ErrScope(const ErrScope&) = delete;
  ErrScope& operator=(const ErrScope&) = delete;
  ~ErrScope() { Err() = before_; }

 private:
  const ErrObject before_;
};

/// Runs `body`. On a run-time error sets `Err()` and runs `handler`.
/// True when the body came to its end. Exceptions of the handler and of other kinds pass.
template <class Body, class Handler>
bool Catch(Body&& body, Handler&& handler) {
  const ErrScope scope;
  try {
    std::forward<Body>(body)();
    return true;
  } catch (const HostError& error) {
    Err().Set(error);
  }
  std::forward<Handler>(handler)();
  return false;
}

/// Runs `body` and reports a run-time error under the names of its module and procedure.
/// True when the body came to its end.
template <class Body>
bool Trap(const char16_t* module, const char16_t* procedure, Body&& body) {
  return Catch(std::forward<Body>(body), [&] { mdlError::MostraErro(procedure, module); });
}

}  // namespace tessaria
