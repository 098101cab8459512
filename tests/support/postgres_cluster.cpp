#include "tests/support/postgres_cluster.h"

#include <fcntl.h>
#include <pwd.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <vector>

#include "tessaria/text.h"

namespace tessaria::test {
namespace {

namespace fs = std::filesystem;

// The server refuses to run as root.
constexpr const char* kServerUser = "postgres";

// The folder of the newest server's programs; empty when there is none.
std::string FindBinaries() {
  std::vector<fs::path> found;
  std::error_code error;
  for (const auto& entry : fs::directory_iterator("/usr/lib/postgresql", error)) {
    if (fs::exists(entry.path() / "bin" / "initdb")) found.push_back(entry.path() / "bin");
  }
  if (found.empty()) return {};
  // "9.6" is older than "15".
  return *std::max_element(found.begin(), found.end(), [](const fs::path& a, const fs::path& b) {
    const auto release = [](const fs::path& path) {
      return std::strtod(path.parent_path().filename().c_str(), nullptr);
    };
    return release(a) < release(b);
  });
}

void Command(const std::string& command) {
  if (std::system(command.c_str()) != 0) throw std::runtime_error("failed: " + command);
}

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

}  // namespace

std::string PostgresCluster::Missing() {
  if (FindBinaries().empty()) return "no PostgreSQL server is installed";
  if (geteuid() == 0 && getpwnam(kServerUser) == nullptr) return "there is no user postgres";
  return {};
}

PostgresCluster& PostgresCluster::Shared() {
  static PostgresCluster cluster;
  return cluster;
}

PostgresCluster::PostgresCluster() : binaries_(FindBinaries()) {
  // A short name, because the path of a socket has 107 bytes at most.
  char name[] = "/tmp/tpgXXXXXX";
  if (mkdtemp(name) == nullptr) throw std::runtime_error("no temporary folder");
  folder_ = name;
  if (geteuid() == 0) {
    const passwd* user = getpwnam(kServerUser);
    if (user == nullptr || chown(name, user->pw_uid, user->pw_gid) != 0) {
      throw std::runtime_error("the folder cannot be given to the server's user");
    }
  }
  chmod(name, 0755);
  StartWatcher();
  Command(AsServerUser(binaries_ + "/initdb -D " + folder_ +
                       "/data -A trust -U postgres -E UTF8 --locale=C.UTF-8 -N >/dev/null"));
  Start();
}

PostgresCluster::~PostgresCluster() {
  close(watcherPipe_);
  waitpid(watcher_, nullptr, 0);
}

std::string PostgresCluster::AsServerUser(const std::string& command) const {
  const std::string inFolder = "cd " + folder_ + " && " + command;
  if (geteuid() != 0) return inFolder;
  return std::string("runuser -u ") + kServerUser + " -- sh -c " + Quoted(inFolder);
}

// The watcher reads from a pipe that only this program holds open, so it wakes when the program
// ends, also by a crash.
void PostgresCluster::StartWatcher() {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  const std::string script =
      "read line; " +
      AsServerUser(binaries_ + "/pg_ctl -D " + folder_ + "/data -m immediate -w stop") +
      " >/dev/null 2>&1; rm -rf " + folder_;
  watcher_ = fork();
  if (watcher_ == 0) {
    setsid();
    dup2(ends[0], STDIN_FILENO);
    const int nothing = open("/dev/null", O_WRONLY);
    dup2(nothing, STDOUT_FILENO);
    dup2(nothing, STDERR_FILENO);
    execl("/bin/sh", "sh", "-c", script.c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  close(ends[0]);
  watcherPipe_ = ends[1];
}

void PostgresCluster::Start() {
  // The data does not have to survive a crash of the machine.
  const std::string options = "-c listen_addresses='' -c fsync=off -k " + folder_;
  Command(AsServerUser(binaries_ + "/pg_ctl -D " + folder_ + "/data -l " + folder_ + "/log -w -o " +
                       Quoted(options) + " start >/dev/null"));
  running_ = true;
}

void PostgresCluster::Stop() {
  running_ = false;
  Command(
      AsServerUser(binaries_ + "/pg_ctl -D " + folder_ + "/data -m immediate -w stop >/dev/null"));
}

void PostgresCluster::EnsureRunning() {
  if (!running_) Start();
}

String PostgresCluster::ConnectionString() const {
  return u"Driver={PostgreSQL Unicode};Servername=" + FromUtf8(folder_) +
         u";Port=5432;Database=postgres;Uid=postgres;";
}

String PostgresCluster::ConnectionString(int port) const {
  return u"Driver={PostgreSQL Unicode};Servername=127.0.0.1;Port=" +
         FromUtf8(std::to_string(port)) + u";Database=postgres;Uid=postgres;";
}

void PostgresCluster::Run(const std::string& sql) const {
  Command(AsServerUser(binaries_ + "/psql -h " + folder_ +
                       " -U postgres -q -v ON_ERROR_STOP=1 -o /dev/null -c " + Quoted(sql)));
}

}  // namespace tessaria::test
