// The program's connection to its database.
#pragma once

#include <QString>

#include "tessaria/error.h"
#include "tessaria/host/data.h"

namespace tessaria::demo {

class Cluster;

/// What the connection goes over.
enum class Driver { Odbc, Postgres };

/// One connection for the whole program, which survives the server's absence.
class Database {
 public:
  /// `ownServer` is the server of the connection when that is the program's own, else nullptr; it
  /// outlives the database.
  explicit Database(const QString& connectionString, Cluster* ownServer = nullptr,
                    Driver driver = Driver::Odbc);

  /// Raises `Failure`, whose text says what the operator can do.
  void open();
  /// Whether the server answers; a lost connection is opened again first.
  bool isReachable();
  /// The same, and starts the program's own server when it is down. Raises `Failure`.
  void reconnect();

  const host::ConnectionPtr& connection() const { return connection_; }

 private:
  const QString connectionString_;
  host::ConnectionPtr connection_;
  Cluster* ownServer_;
};

/// What keeps a database from being opened.
enum class OpenFault { MissingDriver, UnknownDataSource, Other };
/// The fault behind the error. The driver manager has the same text for an unknown driver and an
/// unknown data source: the function decides by what the connection string names.
OpenFault faultOf(const HostError& error, const QString& connectionString);

}  // namespace tessaria::demo
