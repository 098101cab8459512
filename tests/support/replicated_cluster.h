// A primary server and its streaming standby.
#pragma once

#include <string>

#include "tessaria/string.h"
#include "tests/support/server_folder.h"

namespace tessaria::test {

/// What the primary has committed the standby has received. Both end with the object or with the
/// program.
class ReplicatedCluster {
 public:
  ReplicatedCluster();
  ReplicatedCluster(const ReplicatedCluster&) = delete;
  ReplicatedCluster& operator=(const ReplicatedCluster&) = delete;

  /// Ends the primary at once, as a crash of its machine would.
  void KillPrimary();
  /// Makes the standby the primary; waits until it takes writes.
  void Promote();

  /// The folder of both sockets.
  const std::string& Folder() const { return folder_.Path(); }
  /// An ODBC connection string to the one whose port is 5432, the primary at first, or 5433.
  String ConnectionString(int port) const;
  /// In the client library's own form, with both servers: it finds the one that takes writes.
  String BothServers() const;

 private:
  void Start(const std::string& data, int port) const;

  ServerFolder folder_;
};

}  // namespace tessaria::test
