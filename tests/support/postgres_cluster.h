// A PostgreSQL server of the test's own.
#pragma once

#include <string>

#include "tessaria/string.h"
#include "tests/support/server_folder.h"

namespace tessaria::test {

/// Starts with the first call of `Shared` and ends with the program, also when that crashes: a
/// small separate process waits for the end, stops the server and removes its folder.
class PostgresCluster {
 public:
  /// The cluster of this program. Throws std::runtime_error when it cannot be started.
  static PostgresCluster& Shared();
  /// The reason why this machine cannot have a cluster; empty when it can.
  static std::string Missing();

  PostgresCluster(const PostgresCluster&) = delete;
  PostgresCluster& operator=(const PostgresCluster&) = delete;

  /// An ODBC connection string without a data source name.
  String ConnectionString() const;
  /// The same through a port of this machine, on which a proxy listens.
  String ConnectionString(int port) const;
  /// The path of the server's socket.
  std::string Socket() const { return Folder() + "/.s.PGSQL.5432"; }
  /// The folder of the socket; data source files may be written there.
  const std::string& Folder() const { return folder_.Path(); }
  /// Runs SQL with the command line client, outside any connection of the test.
  void Run(const std::string& sql) const;
  /// The same with a file, which may include others of its folder.
  void RunFile(const std::string& path) const;

  /// Ends all sessions at once, as a crash of the server's machine would.
  void Stop();
  void Start();
  /// Starts the server again if a test left it stopped.
  void EnsureRunning();

 private:
  PostgresCluster();

  ServerFolder folder_;
  bool running_ = false;
};

}  // namespace tessaria::test
