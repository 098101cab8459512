// Run-time errors by number, and the error object of the thread.
#pragma once

#include <exception>
#include <string>

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria {

/// The run-time error numbers that the library raises itself.
namespace errors {
inline constexpr Long InvalidArgument = 5;
inline constexpr Long Overflow = 6;
inline constexpr Long OutOfMemory = 7;
inline constexpr Long SubscriptOutOfRange = 9;
inline constexpr Long DivisionByZero = 11;
inline constexpr Long TypeMismatch = 13;
inline constexpr Long FileNotFound = 53;
inline constexpr Long DeviceUnavailable = 68;
inline constexpr Long DiskNotReady = 71;
inline constexpr Long PathNotFound = 76;
inline constexpr Long ObjectNotSet = 91;
inline constexpr Long InvalidUseOfNull = 94;
inline constexpr Long InvalidPropertyValue = 380;
inline constexpr Long PropertyIsReadOnly = 383;
inline constexpr Long PropertyIsWriteOnly = 394;
inline constexpr Long ObjectRequired = 424;
inline constexpr Long NoSuchMember = 438;
inline constexpr Long DuplicateKey = 457;
inline constexpr Long ControlNotFound = 730;
inline constexpr Long StillExecuting = 3711;     ///< data layer: another statement runs
inline constexpr Long Cancelled = 3712;          ///< data layer: given up by the operator
inline constexpr Long TimeOut = -2147217871;     ///< data layer: a time-out has passed
inline constexpr Long ItemNotFound = 3265;       ///< data layer: no item of that name or ordinal
inline constexpr Long NoCurrentRecord = 3021;    ///< data layer: BOF or EOF, or the row is deleted
inline constexpr Long InvalidConnection = 3709;  ///< data layer: closed or no connection
inline constexpr Long ObjectClosed = 3704;       ///< data layer: the record set is closed
inline constexpr Long NotUpdatable = 3251;       ///< data layer: the record set cannot be written
inline constexpr Long RowChanged = -2147217864;  ///< data layer: another user changed the row
/// data layer: the answer to a write was lost, so that it may have been stored
inline constexpr Long WriteInDoubt = -2147217663;
inline constexpr Long ProviderError = -2147467259;  ///< data layer: described by the driver
}  // namespace errors

/// The system's Portuguese description of a run-time error number.
/// A number without a text of its own gives "Erro definido pelo aplicativo ou pelo objeto".
TESSARIA_CORE_API String ErrorDescription(Long number);

/// A run-time error: the number that callers test, the text that the operator reads.
class TESSARIA_CORE_API HostError : public std::exception {
 public:
  /// The error with the system's own description of that number.
  explicit HostError(Long number);
  HostError(Long number, String description);

  /// Of the error: those of `errors`, or any number of the program's.
  Long Number() const noexcept { return number_; }
  /// What the operator is told.
  const String& Description() const noexcept { return description_; }
  /// The description in UTF-8.
  const char* what() const noexcept override { return utf8_.c_str(); }

 private:
  Long number_;
  String description_;
  std::string utf8_;
};

/// The pending error of a thread: the error that a trap caught last and is still handling.
struct TESSARIA_CORE_API ErrObject {
  Long Number = 0;     ///< 0 when no error is pending
  String Description;  ///< what the operator is told

  /// Takes number and description of an error that was caught.
  void Set(const HostError& error);
  /// Number 0 and no description: no error is pending.
  void Clear();
};

/// The error object of this thread.
TESSARIA_CORE_API ErrObject& Err();

}  // namespace tessaria
