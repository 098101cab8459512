// The services of a Qt program for the core.
#pragma once

#include <QObject>
#include <QString>
#include <memory>

#include "tessaria/export.h"
#include "tessaria/host/application.h"
#include "tessaria/host/dialog.h"
#include "tessaria/host/reconnecting.h"
#include "tessaria/host/waiting.h"

namespace tessaria::qt {

/// The running program as the core sees it, with signals that the program can connect to.
class TESSARIA_QT_API Host final : public QObject {
  Q_OBJECT

 public:
  ~Host() override;

  /// What the core asks of the application: boxes, clipboard, dialogs. Lives as long as the host.
  host::Application& application() { return *application_; }

 signals:
  /// A message box is about to show. `style` is a sum of values of `host::box`.
  void boxShown(const QString& text, const QString& title, int style);
  /// The program has beeped.
  void beeped();

 private:
  explicit Host(QObject* parent);
  friend Host& install();

  std::unique_ptr<host::Application> application_;
  std::unique_ptr<host::Desktop> desktop_;
  std::unique_ptr<host::WaitView> waiting_;
  std::unique_ptr<host::ReconnectView> reconnecting_;
};

/// Makes this program the host of the calling thread, once; every control does this itself. Needs a
/// QApplication, which owns the host. Loads Qt's own Brazilian texts when they are installed,
/// but not into a designer of forms.
TESSARIA_QT_API Host& install();

}  // namespace tessaria::qt
