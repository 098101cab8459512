// A real server under the name of any data source.
#pragma once

#include <fstream>
#include <memory>
#include <sstream>

#include "tests/support/database_driver.h"
#include "tests/support/passing_connection.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::test {

/// Opens the cluster whatever the data source is called.
class ServerConnection final : public PassingConnection {
 public:
  ServerConnection() : PassingConnection(NewConnectionOfTheDriver()) {}
  void ConnectionString(const String&) override {
    real_->ConnectionString(PostgresCluster::Shared().ConnectionString());
  }
  using PassingConnection::ConnectionString;
};

/// A connection to the server, which then has the empty schemas public and vendas.
inline host::ConnectionPtr EmptyServer() {
  PostgresCluster::Shared().EnsureRunning();
  auto server = std::make_shared<ServerConnection>();
  server->ConnectionString(u"");
  server->Open();
  for (const auto* statement :
       {u"drop schema public cascade", u"drop schema if exists vendas cascade",
        u"create schema public", u"create schema vendas"})
    server->Execute(statement);
  return server;
}

/// Gives the server cdate and str, by the script that is installed.
inline void AddWizardFunctions() {
  std::ifstream script(TESSARIA_WIZARD_FUNCTIONS);
  std::ostringstream text;
  text << script.rdbuf();
  PostgresCluster::Shared().Run(text.str());
}

}  // namespace tessaria::test
