#include "tests/support/server_folder.h"

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

}  // namespace

std::string ServerFolder::Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

std::string ServerFolder::Missing() {
  if (FindBinaries().empty()) return "no PostgreSQL server is installed";
  if (geteuid() == 0 && getpwnam(kServerUser) == nullptr) return "there is no user postgres";
  return {};
}

ServerFolder::ServerFolder() : binaries_(FindBinaries()) {
  char name[] = "/tmp/tpgXXXXXX";
  if (mkdtemp(name) == nullptr) throw std::runtime_error("no temporary folder");
  path_ = name;
  if (geteuid() == 0) {
    const passwd* user = getpwnam(kServerUser);
    if (user == nullptr || chown(name, user->pw_uid, user->pw_gid) != 0) {
      throw std::runtime_error("the folder cannot be given to the server's user");
    }
  }
  chmod(name, 0755);
  StartWatcher();
}

ServerFolder::~ServerFolder() {
  close(watcherPipe_);
  waitpid(watcher_, nullptr, 0);
}

std::string ServerFolder::AsServerUser(const std::string& command) const {
  const std::string inFolder = "cd " + path_ + " && " + command;
  if (geteuid() != 0) return inFolder;
  return std::string("runuser -u ") + kServerUser + " -- sh -c " + Quoted(inFolder);
}

void ServerFolder::Run(const std::string& command) const { Command(AsServerUser(command)); }

// The watcher reads from a pipe that only this program holds open, so it wakes when the program
// ends, also by a crash.
void ServerFolder::StartWatcher() {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  const std::string stop = "for p in */postmaster.pid; do " + Program("pg_ctl") +
                           " -D ${p%/*} -m immediate -w stop; done; "
                           "for p in *.pid; do kill -INT $(cat $p); done; sleep 0.1";
  const std::string script =
      "read line; " + AsServerUser(stop) + " >/dev/null 2>&1; rm -rf " + path_;
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

}  // namespace tessaria::test
