// The one place where Qt calls into the core, and where every exception stops.
#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>
#include <exception>
#include <memory>

#include "tessaria/error.h"
#include "tessaria/export.h"
#include "tessaria/host/control.h"

namespace tessaria::qt {

using host::ControlGone;

/// Receives the unhandled errors of a widget. The library's widgets implement it.
class TESSARIA_QT_API ErrorListener {
 public:
  /// Raises the widget's own signal, before the box is shown.
  virtual void unhandled(int number, const QString& description) = 0;

 protected:
  ~ErrorListener() = default;
};

namespace boundary {
/// Number of an exception that is not a `HostError`.
inline constexpr int kInternalError = 51;
/// Counts the nested entries into the core on this thread.
class TESSARIA_QT_API Entry {
 public:
  Entry();
  Entry(const Entry&) = delete;
  Entry& operator=(const Entry&) = delete;
  ~Entry();
};
/// Shows the exception that is being handled, unless it is `ControlGone`. Throws nothing.
TESSARIA_QT_API void reportException(const QWidget* widget);
}  // namespace boundary

/// Keeps an object alive until the last entry into the core on this thread has returned. When there
/// is none on the stack, the object is released at once.
TESSARIA_QT_API void retire(std::shared_ptr<void> object);

/// Runs `body`. An exception that leaves it is an unhandled error of the widget's form: it is
/// reported by its signal and a box, and the program continues. Returns false when `body` did not
/// run to its end. `widget` may be destroyed by the body.
template <class Body>
bool guarded(const QWidget* widget, Body&& body) {
  const QPointer<const QWidget> owner(widget);
  const boundary::Entry entry;
  try {
    body();
    return true;
  } catch (...) {
    boundary::reportException(owner);
  }
  return false;
}

}  // namespace tessaria::qt
