// The error trap of a procedure.
#pragma once

#include <utility>

#include "services/error_box.h"
#include "tessaria/error.h"

namespace tessaria {

/// Restores the error object when a procedure returns or raises, so that an error that it caught
/// never appears in a later message. An error that a caller is still reporting is pending again
/// afterwards.
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
/// Returns true when the body ran to its end. Exceptions of other kinds, and those that the handler
/// throws, are not caught.
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

/// Runs `body` and reports a run-time error with the names of its module and procedure.
/// Returns true when the body ran to its end.
template <class Body>
bool Trap(const char16_t* module, const char16_t* procedure, Body&& body) {
  return Catch(std::forward<Body>(body), [&] { mdlError::MostraErro(procedure, module); });
}

}  // namespace tessaria
