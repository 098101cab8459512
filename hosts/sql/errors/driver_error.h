// The errors of the data layer: numbers, and what a driver reports of a failed call.
#pragma once

#include <string>

#include "tessaria/error.h"
#include "tessaria/export.h"

namespace tessaria::sql {

/// Error numbers of the data layer: the shared ones and those that only this layer raises.
namespace errors {
using namespace tessaria::errors;
inline constexpr Long IntegrityViolation = -2147217873;  ///< key, check or reference refused
inline constexpr Long ErrorsInCommand = -2147217900;     ///< syntax, unknown table or column
inline constexpr Long AuthenticationFailed = -2147217843;
inline constexpr Long ValueRefused = -2147217887;  ///< a value that the column cannot take
inline constexpr Long ObjectOpen = 3705;
inline constexpr Long EditPending = 3219;
inline constexpr Long InvalidCriteria = 3001;
}  // namespace errors

/// A failed call. The number follows from the SQLSTATE class; the description is the driver's own
/// text.
class TESSARIA_SQL_API DriverError : public HostError {
 public:
  DriverError(std::string state, String description);

  /// The five characters of SQLSTATE; "HY000" when the driver gave none.
  const std::string& SqlState() const noexcept { return state_; }
  /// Whether the server or the way to it is gone, so that the connection cannot be used again.
  bool IsConnectionLoss() const noexcept;
  /// Whether the driver does not support the call, attribute or field.
  bool IsNotSupported() const noexcept;
  /// Whether the statement cannot run inside a transaction. Nothing of it has been run.
  bool IsRefusedInTransaction() const noexcept { return state_ == "25001"; }
  /// Whether the time to wait for a lock has passed.
  bool IsLockTimeOut() const noexcept { return state_ == "55P03"; }

 private:
  std::string state_;
};

/// The error as the operator reads it: of a line that was lost while it was used, the text begins
/// with that.
TESSARIA_SQL_API DriverError InWords(const DriverError& error);

/// The error of a write whose answer was lost with the connection. Its text is `text` and that of
/// the loss.
HostError InDoubt(StringView text, const HostError& loss);

/// The error number that callers see for an SQLSTATE.
Long NumberOfState(const std::string& state);

}  // namespace tessaria::sql
