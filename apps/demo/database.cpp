#include "apps/demo/database.h"

#include "apps/demo/cluster.h"
#include "apps/demo/failure.h"
#include "tessaria/odbc/connection.h"
#include "tessaria/postgres/connection.h"
#include "tessaria/qt/text.h"

namespace tessaria::demo {
namespace {

QString adviceOn(OpenFault fault) {
  switch (fault) {
    case OpenFault::MissingDriver:
      return QStringLiteral(
          "Falta o driver ODBC do PostgreSQL. Instale os pacotes \"unixodbc\" e "
          "\"odbc-postgresql\".");
    case OpenFault::UnknownDataSource:
      return QStringLiteral(
          "A fonte de dados ODBC indicada não existe. Confira o nome dado em --connection; "
          "\"odbcinst -q -s\" mostra as fontes cadastradas.");
    case OpenFault::Other:
      break;
  }
  return QStringLiteral("Não foi possível abrir o banco de dados.");
}

}  // namespace

OpenFault faultOf(const HostError& error, const QString& connectionString) {
  const QString text = qt::toQt(error.Description());
  if (text.contains(QLatin1String("Can't open lib"))) return OpenFault::MissingDriver;
  if (!text.contains(QLatin1String("Data source name not found"))) return OpenFault::Other;
  return connectionString.contains(QLatin1String("driver="), Qt::CaseInsensitive)
             ? OpenFault::MissingDriver
             : OpenFault::UnknownDataSource;
}

Database::Database(const QString& connectionString, Cluster* ownServer, Driver driver)
    : connectionString_(connectionString),
      connection_(driver == Driver::Odbc ? odbc::CreateConnection() : postgres::CreateConnection()),
      ownServer_(ownServer) {
  connection_->ConnectionString(qt::fromQt(connectionString));
}

void Database::open() {
  try {
    connection_->Open();
  } catch (const HostError& error) {
    throw Failure(adviceOn(faultOf(error, connectionString_)) + QLatin1String("\n\n") +
                  qt::toQt(error.Description()));
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
  // A lost connection is noticed only at its first failure.
  return answers() || (connection_->State() == host::state::Closed && answers());
}

void Database::reconnect() {
  if (isReachable()) return;
  if (ownServer_) ownServer_->start();
  if (connection_->State() == host::state::Closed) open();
}

}  // namespace tessaria::demo
