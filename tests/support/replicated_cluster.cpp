#include "tests/support/replicated_cluster.h"

#include "tessaria/text.h"

namespace tessaria::test {

// A commit waits until the standby has it, so that nothing that was confirmed can be missing.
ReplicatedCluster::ReplicatedCluster() {
  const std::string psql =
      folder_.Program("psql") + " -h " + folder_.Path() + " -U postgres -q -o /dev/null -c ";
  folder_.Run(folder_.Program("initdb") +
              " -D primary -A trust -U postgres -E UTF8 --locale=C.UTF-8 --no-sync >/dev/null");
  Start("primary", 5432);
  folder_.Run(folder_.Program("pg_basebackup") + " -h " + folder_.Path() +
              " -U postgres -D standby -R --no-sync -c fast -X stream -d " +
              ServerFolder::Quoted("application_name=standby") + " >/dev/null");
  Start("standby", 5433);
  folder_.Run(psql +
              ServerFolder::Quoted("alter system set synchronous_standby_names = 'standby'"));
  folder_.Run(psql + ServerFolder::Quoted("select pg_reload_conf()"));
}

void ReplicatedCluster::Start(const std::string& data, int port) const {
  const std::string options =
      "-c listen_addresses='' -c fsync=off -p " + std::to_string(port) + " -k " + folder_.Path();
  folder_.Run(folder_.Program("pg_ctl") + " -D " + data + " -l " + data + ".log -w -o " +
              ServerFolder::Quoted(options) + " start >/dev/null");
}

void ReplicatedCluster::KillPrimary() {
  folder_.Run(folder_.Program("pg_ctl") + " -D primary -m immediate -w stop >/dev/null");
}

// The new primary has no standby to wait for.
void ReplicatedCluster::Promote() {
  folder_.Run(folder_.Program("pg_ctl") + " -D standby -w promote >/dev/null");
  const std::string psql = folder_.Program("psql") + " -h " + folder_.Path() +
                           " -p 5433 -U postgres -q -o /dev/null -c ";
  folder_.Run(psql + ServerFolder::Quoted("alter system set synchronous_standby_names = ''"));
  folder_.Run(psql + ServerFolder::Quoted("select pg_reload_conf()"));
}

String ReplicatedCluster::ConnectionString(int port) const {
  return u"Driver={PostgreSQL Unicode};Servername=" + FromUtf8(folder_.Path()) + u";Port=" +
         FromUtf8(std::to_string(port)) + u";Database=postgres;Uid=postgres;";
}

String ReplicatedCluster::BothServers() const {
  const String path = FromUtf8(folder_.Path());
  return u"host=" + path + u"," + path +
         u" port=5432,5433 dbname=postgres user=postgres target_session_attrs=read-write";
}

}  // namespace tessaria::test
