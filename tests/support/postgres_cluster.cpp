#include "tests/support/postgres_cluster.h"

#include <filesystem>

#include "tessaria/text.h"

namespace tessaria::test {

std::string PostgresCluster::Missing() { return ServerFolder::Missing(); }

PostgresCluster& PostgresCluster::Shared() {
  static PostgresCluster cluster;
  return cluster;
}

PostgresCluster::PostgresCluster() {
  folder_.Run(folder_.Program("initdb") +
              " -D data -A trust -U postgres -E UTF8 --locale=C.UTF-8 -N >/dev/null");
  Start();
}

void PostgresCluster::Start() {
  // The data does not have to survive a crash of the machine.
  const std::string options = "-c listen_addresses='' -c fsync=off -k " + Folder();
  folder_.Run(folder_.Program("pg_ctl") + " -D data -l log -w -o " + ServerFolder::Quoted(options) +
              " start >/dev/null");
  running_ = true;
}

void PostgresCluster::Stop() {
  running_ = false;
  folder_.Run(folder_.Program("pg_ctl") + " -D data -m immediate -w stop >/dev/null");
}

void PostgresCluster::EnsureRunning() {
  if (!running_) Start();
}

String PostgresCluster::ConnectionString() const {
  return u"Driver={PostgreSQL Unicode};Servername=" + FromUtf8(Folder()) +
         u";Port=5432;Database=postgres;Uid=postgres;";
}

String PostgresCluster::ConnectionString(int port) const {
  return u"Driver={PostgreSQL Unicode};Servername=127.0.0.1;Port=" +
         FromUtf8(std::to_string(port)) + u";Database=postgres;Uid=postgres;";
}

void PostgresCluster::Run(const std::string& sql) const {
  folder_.Run(folder_.Program("psql") + " -h " + Folder() +
              " -U postgres -q -v ON_ERROR_STOP=1 -o /dev/null -c " + ServerFolder::Quoted(sql));
}

// The server's user may not be able to read the file where it is.
void PostgresCluster::RunFile(const std::string& path) const {
  namespace fs = std::filesystem;
  const fs::path file = path;
  const fs::path folder = fs::path(Folder()) / "scripts";
  fs::remove_all(folder);
  fs::copy(file.parent_path(), folder);
  for (const auto& entry : fs::directory_iterator(folder))
    fs::permissions(entry, fs::perms::others_read, fs::perm_options::add);
  fs::permissions(folder, fs::perms::others_read | fs::perms::others_exec, fs::perm_options::add);
  folder_.Run(folder_.Program("psql") + " -h " + Folder() +
              " -U postgres -q -v ON_ERROR_STOP=1 -o /dev/null -f " +
              ServerFolder::Quoted((folder / file.filename()).string()));
}

}  // namespace tessaria::test
