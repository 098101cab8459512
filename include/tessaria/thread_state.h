// The state that all controls of one thread share.
#pragma once

#include <memory>

#include "tessaria/export.h"
#include "tessaria/variant.h"

namespace tessaria {

namespace host {
class Application;
class Connection;
class Desktop;
class ReconnectView;
class WaitView;
}  // namespace host

class frmCalculadora;
class frmCalendario;
class frmDiretorio;
class frmMontaSql;

/// One instance per thread. A host sets `application` before it creates the first control.
struct TESSARIA_CORE_API ThreadState {
  /// The hosting program's services; not owned, outlives every control of the thread.
  host::Application* application = nullptr;
  /// The desktop that the library's own windows open on; not owned. Null when no window can open.
  host::Desktop* desktop = nullptr;
  /// What passes the waits for a database; not owned. When it is null the thread just waits.
  host::WaitView* waiting = nullptr;
  /// Who decides whether a connection that was lost is opened again; not owned. When it is null,
  /// the program does so by itself.
  host::ReconnectView* reconnecting = nullptr;
  /// The open connection that the last discovery took from a form's `dbForm`.
  std::shared_ptr<host::Connection> dbConexao;
  /// The sibling's value as an SQL literal while a description field has the focus.
  Variant vntValorIrmao = Variant::Null();
  /// The dialogs of the fields' buttons, created when first needed.
  std::shared_ptr<tessaria::frmCalendario> frmCalendario;
  std::shared_ptr<tessaria::frmCalculadora> frmCalculadora;
  std::shared_ptr<tessaria::frmDiretorio> frmDiretorio;
  /// The SQL wizard of the fields' property page, created when first needed.
  std::shared_ptr<tessaria::frmMontaSql> frmMontaSql;
};

/// The state of the calling thread.
TESSARIA_CORE_API ThreadState& State();

/// The services of the hosting program. Error 91 when no host is installed on this thread.
TESSARIA_CORE_API host::Application& App();

/// The desktop. Error 91 when the host of this thread has none.
TESSARIA_CORE_API host::Desktop& TheDesktop();

}  // namespace tessaria
