#include "tessaria/qtsql/adopt.h"

#include <QPointer>
#include <QSqlDatabase>
#include <QSqlDriver>
#include <QThread>
#include <QVariant>
#include <functional>
#include <utility>

#include "tessaria/error.h"
#include "tessaria/odbc/connection.h"
#include "tessaria/postgres/connection.h"

namespace tessaria::qtsql {
namespace {

[[noreturn]] void Refuse(const String& reason) {
  throw HostError(errors::InvalidConnection,
                  u"O banco de dados do Qt não pode ser adotado: " + reason);
}

// A handle is a pointer, whatever a version of Qt calls its type; nothing without one.
void* HandleOf(const QSqlDriver& driver) {
  const QVariant handle = driver.handle();
  if (!handle.isValid() || handle.metaType().sizeOf() != sizeof(void*)) return nullptr;
  return *static_cast<void* const*>(handle.constData());
}

struct Kind {
  const char* driver;  // its class
  host::ConnectionPtr (*adopt)(void* handle, std::function<bool()> isThere);
};

const Kind kKinds[] = {
    {"QPSQLDriver",
     [](void* handle, std::function<bool()> isThere) {
       return postgres::AdoptConnection(static_cast<pg_conn*>(handle), std::move(isThere));
     }},
    {"QODBCDriver", odbc::AdoptConnection},
};

void RequireUsable(const QSqlDatabase& database) {
  const String name = database.connectionName().toStdU16String();
  if (!database.isValid()) Refuse(u"ele não é válido.");
  if (!database.isOpen()) Refuse(u"\"" + name + u"\" está fechado.");
  const QSqlDriver& driver = *database.driver();
  if (driver.thread() != QThread::currentThread()) Refuse(u"\"" + name + u"\" é de outra thread.");
  if (!driver.subscribedToNotifications().isEmpty())
    Refuse(u"\"" + name + u"\" espera notificações (subscribeToNotification).");
}

}  // namespace

host::ConnectionPtr Adopt(const QSqlDatabase& database) {
  RequireUsable(database);
  const QPointer<QSqlDriver> driver = database.driver();
  void* const handle = HandleOf(*driver);
  for (const Kind& kind : kKinds) {
    if (handle == nullptr || !driver->inherits(kind.driver)) continue;
    return kind.adopt(handle, [driver, handle] {
      return driver && driver->isOpen() && HandleOf(*driver) == handle;
    });
  }
  Refuse(u"o driver " + database.driverName().toStdU16String() + u" não é QPSQL nem QODBC.");
}

}  // namespace tessaria::qtsql
