#include "tests/support/pgbouncer.h"

#include <filesystem>

#include "tessaria/text.h"

namespace tessaria::test {
namespace {

constexpr const char* kProgram = "/usr/sbin/pgbouncer";

}  // namespace

std::string Pgbouncer::Missing() {
  const std::string missing = ServerFolder::Missing();
  if (!missing.empty() || std::filesystem::exists(kProgram)) return missing;
  return "no pgbouncer is installed";
}

// Sessions of the server are taken in turn, so that two transactions in a row seldom meet the same.
Pgbouncer::Pgbouncer(const std::string& serverFolder, const std::string& mode,
                     const std::string& more) {
  const std::string settings =
      "[databases]\n* = host=" + serverFolder +
      " port=5432\n[pgbouncer]\nauth_type=trust\nauth_file=users\n"
      "listen_addr=\nlisten_port=6432\nserver_round_robin=1\nserver_login_retry=0.2\n"
      "ignore_startup_parameters=extra_float_digits\npidfile=bouncer.pid\n"
      "logfile=bouncer.log\nmin_pool_size=4\npool_mode=" +
      mode + "\nunix_socket_dir=" + folder_.Path() + "\n" + more;
  folder_.Run("printf '\"postgres\" \"\"\\n' > users");
  folder_.Run("printf %s " + ServerFolder::Quoted(settings) + " > bouncer.ini");
  folder_.Run(std::string(kProgram) + " -q -d bouncer.ini");
  folder_.Run(
      "for i in $(seq 50); do " + folder_.Program("psql") + " -h " + folder_.Path() +
      " -p 6432 -U postgres -c 'select 1' >/dev/null 2>&1 && exit 0; sleep 0.1; done; exit 1");
}

Pgbouncer::~Pgbouncer() = default;

void Pgbouncer::PointTo(int port) {
  folder_.Run("sed -i s/port=5432/port=" + std::to_string(port) + "/ bouncer.ini");
  folder_.Run("kill -HUP $(cat bouncer.pid) && sleep 0.2");
}

String Pgbouncer::ConnectionString() const {
  return u"Driver={PostgreSQL Unicode};Servername=" + FromUtf8(folder_.Path()) +
         u";Port=6432;Database=postgres;Uid=postgres;";
}

}  // namespace tessaria::test
