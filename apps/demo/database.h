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
  const QString connectionString_;
  host::ConnectionPtr connection_;
  Cluster* ownServer_;
};

/// What keeps a database from being opened.
enum class OpenFault { MissingDriver, UnknownDataSource, Other };
/// The fault that the error tells of. The driver manager has one text for a driver and for a data
/// source that it does not know: what the connection string names decides.
OpenFault faultOf(const HostError& error, const QString& connectionString);

}  // namespace tessaria::demo
