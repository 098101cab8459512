#include "apps/demo/server_programs.h"

#include <pwd.h>
#include <unistd.h>

#include <QDir>
#include <QFileInfo>
#include <QProcess>
#include <QStandardPaths>
#include <algorithm>

#include "apps/demo/failure.h"

namespace tessaria::demo {
namespace {

constexpr char kServerUser[] = "postgres";
constexpr char kInstallations[] = "/usr/lib/postgresql";
constexpr int kPatience = 120000;  // milliseconds

bool hasServer(const QString& binaries) {
  return QFileInfo(binaries + QLatin1String("/initdb")).isExecutable();
}

/// Installations by release, the newest first.
QStringList releases() {
  QStringList found;
  for (const QString& release :
       QDir(QLatin1String(kInstallations)).entryList(QDir::Dirs | QDir::NoDotAndDotDot))
    if (hasServer(QDir(QLatin1String(kInstallations)).filePath(release + QLatin1String("/bin"))))
      found << release;
  // "9.6" is older than "15".
  std::sort(found.begin(), found.end(),
            [](const QString& a, const QString& b) { return a.toDouble() > b.toDouble(); });
  return found;
}

QString findBinaries(const QString& release) {
  const QStringList found = releases();
  if (!found.isEmpty()) {
    const QString& chosen = found.contains(release) ? release : found.first();
    return QStringLiteral("%1/%2/bin").arg(QLatin1String(kInstallations), chosen);
  }
  return QFileInfo(QStandardPaths::findExecutable(QStringLiteral("initdb"))).path();
}

Outcome runToItsEnd(const ProgramCall& call) {
  QProcess process;
  process.setProcessChannelMode(QProcess::MergedChannels);
  process.setStandardInputFile(QProcess::nullDevice());
  // Any user can enter it; the present one may be closed to the server's user.
  process.setWorkingDirectory(QStringLiteral("/"));
  process.start(call.program, call.arguments);
  const bool ended = process.waitForFinished(kPatience);
  Outcome outcome;
  outcome.output = QString::fromLocal8Bit(process.readAll()).trimmed();
  if (!ended) outcome.output += QStringLiteral("\n%1: %2").arg(call.program, process.errorString());
  outcome.succeeded =
      ended && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
  return outcome;
}

ProgramCall asServerUser(const QString& program, const QStringList& arguments) {
  if (!runsAsRoot()) return {program, arguments};
  return {QStringLiteral("runuser"), QStringList{QStringLiteral("-u"), QLatin1String(kServerUser),
                                                 QStringLiteral("--"), program} +
                                         arguments};
}

}  // namespace

bool runsAsRoot() { return geteuid() == 0; }

ServerPrograms ServerPrograms::find(const QString& release) {
  const QString binaries = findBinaries(release);
  if (!hasServer(binaries))
    throw Failure(QStringLiteral(
        "O PostgreSQL não está instalado neste computador. Instale o pacote \"postgresql\", ou "
        "indique outro banco de dados com a opção --connection."));
  if (runsAsRoot() && !getpwnam(kServerUser))
    throw Failure(QStringLiteral(
        "O PostgreSQL não pode ser executado pelo administrador, e o usuário \"postgres\" não "
        "existe neste computador."));
  return ServerPrograms(binaries);
}

ProgramCall ServerPrograms::callAsServer(const QString& program,
                                         const QStringList& arguments) const {
  return asServerUser(binaries_ + QLatin1Char('/') + program, arguments);
}

Outcome ServerPrograms::runAsServer(const QString& program, const QStringList& arguments) const {
  return runToItsEnd(callAsServer(program, arguments));
}

Outcome ServerPrograms::run(const QString& program, const QStringList& arguments) const {
  return runToItsEnd({binaries_ + QLatin1Char('/') + program, arguments});
}

void ServerPrograms::giveFolder(const QString& folder) const {
  if (!runsAsRoot()) return;
  const passwd* user = getpwnam(kServerUser);
  if (!user || chown(QFile::encodeName(folder).constData(), user->pw_uid, user->pw_gid) != 0)
    throw Failure(
        QStringLiteral("A pasta %1 não pode ser entregue ao usuário \"postgres\".").arg(folder));
}

bool ServerPrograms::canWrite(const QString& folder) const {
  return runToItsEnd(asServerUser(QStringLiteral("test"), {QStringLiteral("-w"), folder}))
      .succeeded;
}

}  // namespace tessaria::demo
