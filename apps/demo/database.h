// The program's connection to its database.
#pragma once

#include <QString>

#include "tessaria/error.h"
#include "tessaria/host/data.h"

namespace tessaria::demo {

class Cluster;

/// One connection for the whole program, which survives the server's absence.
class Database {
 public:
  /// `ownServer` is the server behind the connection where that is the program's own, else
  /// nullptr; it outlives the database.
  explicit Database(const QString& connectionString, Cluster* ownServer = nullptr);

  /// Raises `Failure` with what is to be done about it.
  void open();
  /// Whether the server answers; a lost connection is made anew first.
  bool isReachable();
  /// The same, and starts the program's own server when that is down. Raises `Failure`.
  void reconnect();

  const host::ConnectionPtr& connection() const { return connection_; }

 private:
  host::ConnectionPtr connection_;
  Cluster* ownServer_;
};

/// Whether the error tells that the driver is not installed.
bool tellsOfMissingDriver(const HostError& error);

}  // namespace tessaria::demo
