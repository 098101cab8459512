// A folder of the test's own in which servers run as a user that they accept.
#pragma once

#include <string>

namespace tessaria::test {

/// Goes with the program, also when that crashes: a small separate process waits for the end, stops
/// the servers whose data or process files are in it, and removes it.
class ServerFolder {
 public:
  /// Throws std::runtime_error when there can be none.
  ServerFolder();
  ServerFolder(const ServerFolder&) = delete;
  ServerFolder& operator=(const ServerFolder&) = delete;
  ~ServerFolder();

  /// The reason why this machine cannot have a database server; empty when it can.
  static std::string Missing();

  /// Short, because the path of a socket has 107 bytes at most.
  const std::string& Path() const { return path_; }
  /// The path of one of the newest server's programs.
  std::string Program(const std::string& name) const { return binaries_ + "/" + name; }
  /// Runs a command line in the folder as the servers' user. Throws std::runtime_error when it
  /// fails.
  void Run(const std::string& command) const;
  /// A text as one word of a command line.
  static std::string Quoted(const std::string& text);

 private:
  std::string AsServerUser(const std::string& command) const;
  void StartWatcher();

  std::string binaries_;
  std::string path_;
  int watcherPipe_ = -1;
  int watcher_ = -1;
};

}  // namespace tessaria::test
