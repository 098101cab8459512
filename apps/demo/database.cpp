#include "apps/demo/database.h"

#include "apps/demo/cluster.h"
#include "apps/demo/failure.h"
#include "hosts/odbc/connection.h"
#include "hosts/qt/text.h"

namespace tessaria::demo {
namespace {

Failure failureOf(const HostError& error) {
  const QString text = tellsOfMissingDriver(error)
                           ? QStringLiteral(
                                 "Falta o driver ODBC do PostgreSQL. Instale os pacotes "
                                 "\"unixodbc\" e \"odbc-postgresql\".\n\n%1")
                           : QStringLiteral("Não foi possível abrir o banco de dados.\n\n%1");
  return Failure(text.arg(qt::toQt(error.Description())));
}

}  // namespace

bool tellsOfMissingDriver(const HostError& error) {
  const QString text = qt::toQt(error.Description());
  return text.contains(QLatin1String("Can't open lib")) ||
         text.contains(QLatin1String("Data source name not found"));
}

Database::Database(const QString& connectionString, Cluster* ownServer)
    : connection_(odbc::CreateConnection()), ownServer_(ownServer) {
  connection_->ConnectionString(qt::fromQt(connectionString));
}

void Database::open() {
  try {
    connection_->Open();
  } catch (const HostError& error) {
    throw failureOf(error);
  }
}

bool Database::isReachable() {
  const auto answers = [this] {
    try {
      if (connection_->State() == host::state::Closed) connection_->Open();
      connection_->Execute(u"Select 1");
      return true;
    } catch (const HostError&) {
      return false;
    }
  };
  // A lost connection is found out by its first failure only.
  return answers() || (connection_->State() == host::state::Closed && answers());
}

void Database::reconnect() {
  if (isReachable()) return;
  if (ownServer_) ownServer_->start();
  if (connection_->State() == host::state::Closed) open();
}

}  // namespace tessaria::demo
