// The program's own PostgreSQL server, with the order desk's data.
#pragma once

#include <QLockFile>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>
#include <memory>

#include "apps/demo/server_programs.h"

namespace tessaria::demo {

/// A server that is reached through a socket which only its user can open, never by network. Its
/// files are in one folder, which is created and filled at the first start.
class Cluster {
 public:
  enum class StopMode { Orderly, AtOnce };

  /// `folder` need not exist.
  explicit Cluster(QString folder);
  Cluster(const Cluster&) = delete;
  Cluster& operator=(const Cluster&) = delete;
  /// Stops the server.
  ~Cluster();

  /// The folder of the operator's data. For root it is one that the server's user can enter.
  static QString defaultFolder();

  /// Creates what is missing and starts the server. Does nothing when it already runs. Raises
  /// `Failure`: no server installed, a folder that cannot be written, one that another instance
  /// uses, a server that does not start.
  void start();
  /// `AtOnce` ends all connections as a crash would.
  void stop(StopMode mode = StopMode::Orderly);
  bool isRunning() const;

  /// For the driver, without a data source name.
  QString connectionString() const;

 private:
  QString dataFolder() const;
  QString logFile() const;
  void prepareFolder();
  void lock();
  void stopLeftOver() const;
  void makeSocketFolder();
  void createData() const;
  void startServer() const;
  void watchOverServer();
  void loadTables() const;
  bool hasTables() const;
  Outcome query(const QStringList& arguments) const;

  QString folder_;
  std::unique_ptr<ServerPrograms> programs_;
  std::unique_ptr<QLockFile> lock_;
  std::unique_ptr<QTemporaryDir> sockets_;
  std::unique_ptr<QProcess> watcher_;  ///< stops the server when this process has ended
};

}  // namespace tessaria::demo
