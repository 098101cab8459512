// The programs of the installed PostgreSQL server, and the user that may run them.
#pragma once

#include <QString>
#include <QStringList>

namespace tessaria::demo {

/// The result of a program that has ended.
struct Outcome {
  bool succeeded = false;
  QString output;  ///< both streams, trimmed
};

struct ProgramCall {
  QString program;
  QStringList arguments;
};

/// The server refuses to run as root: for root its programs run as the user "postgres".
class ServerPrograms {
 public:
  /// The newest installation, or the one of `release` ("15") when that is not empty and installed.
  /// Raises `Failure` when there is none that this user can run.
  static ServerPrograms find(const QString& release);

  /// The call that runs a program of the installation as the server's user.
  ProgramCall callAsServer(const QString& program, const QStringList& arguments) const;
  /// Runs a program of the installation as the server's user and waits for its end.
  Outcome runAsServer(const QString& program, const QStringList& arguments) const;
  /// The same as the user of this process: for clients.
  Outcome run(const QString& program, const QStringList& arguments) const;

  /// Makes the server's user the owner of a folder that this process has made.
  void giveFolder(const QString& folder) const;
  /// Whether the server's user can reach the folder and write to it.
  bool canWrite(const QString& folder) const;

 private:
  explicit ServerPrograms(QString binaries) : binaries_(std::move(binaries)) {}

  QString binaries_;  ///< folder of the programs
};

/// Whether the server needs a user of its own.
bool runsAsRoot();

}  // namespace tessaria::demo
