// A pooler of the test's own in front of a server.
#pragma once

#include <string>

#include "tessaria/string.h"
#include "tests/support/server_folder.h"

namespace tessaria::test {

/// Ends with its object or with the program.
class Pgbouncer {
 public:
  /// Of the server whose socket with port 5432 is in that folder. `mode` is "session" or
  /// "transaction". Transactions of one client go to different sessions of the server. `more` are
  /// lines of its settings.
  Pgbouncer(const std::string& serverFolder, const std::string& mode, const std::string& more = {});
  Pgbouncer(const Pgbouncer&) = delete;
  Pgbouncer& operator=(const Pgbouncer&) = delete;
  ~Pgbouncer();

  /// Sends new sessions to the server with that port, as after the loss of the first one.
  void PointTo(int port);

  /// The reason why this machine cannot have one; empty when it can.
  static std::string Missing();

  /// An ODBC connection string without a data source name.
  String ConnectionString() const;

 private:
  ServerFolder folder_;
};

}  // namespace tessaria::test
