// For a build with ODBC.
#include "apps/designer/connections.h"

#include <tessaria/odbc/connection.h>
#include <tessaria/odbc/data_sources.h>
#include <tessaria/qt/text.h>

namespace tessaria::designer {

qt::Adodc::ConnectionFactory connections() {
  return [](const QString& connectionString) {
    auto connection = odbc::CreateConnection();
    connection->ConnectionString(qt::fromQt(connectionString));
    return connection;
  };
}

qt::DataLayer dataLayer() { return {odbc::DataSourceNames, odbc::CreateConnection}; }

}  // namespace tessaria::designer
