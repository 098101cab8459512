// The one place where Qt enters the core, and where no exception leaves it.
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

/// Whoever wants to hear of the unhandled errors of a widget: our widgets do.
class TESSARIA_QT_API ErrorListener {
 public:
  virtual void unhandled(int number, const QString& description) = 0;

 protected:
  ~ErrorListener() = default;
};

namespace boundary {
/// Number of an exception that is no run-time error.
inline constexpr int kInternalError = 51;
/// Depth of the entries into the core on this thread.
class TESSARIA_QT_API Entry {
 public:
  Entry();
  Entry(const Entry&) = delete;
  Entry& operator=(const Entry&) = delete;
  ~Entry();
};
/// Shows the exception that is being handled, unless it is `ControlGone`. Nothing comes out of it.
TESSARIA_QT_API void reportException(QWidget* widget);
}  // namespace boundary

/// Keeps an object alive until the last entry into the core on this thread has returned. With
/// none on the stack it goes at once.
TESSARIA_QT_API void retire(std::shared_ptr<void> object);

/// Runs `body`. An error that comes out of it is an unhandled error of the widget's form: its
/// signal, a box, and the program goes on. False when the body did not come to its end.
/// `widget` may be destroyed by the body.
template <class Body>
bool guarded(QWidget* widget, Body&& body) {
  const QPointer<QWidget> owner(widget);
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
