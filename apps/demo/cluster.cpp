#include "apps/demo/cluster.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>

#include "apps/demo/failure.h"

static void loadScripts() { Q_INIT_RESOURCE(demo); }

namespace tessaria::demo {
namespace {

constexpr char kUser[] = "pedidos";
constexpr char kDatabase[] = "postgres";
constexpr char kFolderOfRoot[] = "/var/lib/tessaria-demo";

QString lastLines(const QString& text, int count) {
  const QStringList lines = text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
  return lines.mid(std::max<qsizetype>(0, lines.size() - count)).join(QLatin1Char('\n'));
}

QString contentsOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// Client programs read files, not resources.
void writeScripts(const QString& folder) {
  const QDir scripts(QStringLiteral(":/demo/data"));
  for (const QString& name : scripts.entryList())
    if (!QFile::copy(scripts.filePath(name), QDir(folder).filePath(name)))
      throw Failure(QStringLiteral("A pasta %1 não pode ser gravada.").arg(folder));
}

}  // namespace

Cluster::Cluster(QString folder) : folder_(std::move(folder)) {}

Cluster::~Cluster() {
  stop();
  if (!watcher_) return;
  watcher_->closeWriteChannel();
  watcher_->waitForFinished();
}

QString Cluster::defaultFolder() {
  return runsAsRoot() ? QLatin1String(kFolderOfRoot)
                      : QStandardPaths::writableLocation(QStandardPaths::AppDataLocation);
}

QString Cluster::dataFolder() const { return QDir(folder_).filePath(QStringLiteral("banco")); }
QString Cluster::logFile() const { return QDir(folder_).filePath(QStringLiteral("servidor.log")); }

QString Cluster::connectionString() const {
  return QStringLiteral("Driver={PostgreSQL Unicode};Servername=%1;Port=5432;Database=%2;Uid=%3;")
      .arg(sockets_ ? sockets_->path() : QString(), QLatin1String(kDatabase), QLatin1String(kUser));
}

void Cluster::start() {
  if (isRunning()) return;
  const QString release = contentsOf(dataFolder() + QLatin1String("/PG_VERSION")).trimmed();
  programs_ = std::make_unique<ServerPrograms>(ServerPrograms::find(release));
  prepareFolder();
  lock();
  stopLeftOver();
  makeSocketFolder();
  if (!QFileInfo::exists(dataFolder())) createData();
  watchOverServer();
  startServer();
  if (!hasTables()) loadTables();
}

void Cluster::prepareFolder() {
  const bool isNew = !QFileInfo::exists(folder_);
  if (!QDir().mkpath(folder_))
    throw Failure(QStringLiteral("A pasta %1 não pode ser criada.").arg(folder_));
  folder_ = QFileInfo(folder_).absoluteFilePath();
  if (isNew) programs_->giveFolder(folder_);
  if (!programs_->canWrite(folder_))
    throw Failure(QStringLiteral("A pasta %1 não pode ser gravada pelo usuário que executa o "
                                 "PostgreSQL. Indique outra com a opção --data.")
                      .arg(folder_));
}

void Cluster::lock() {
  if (lock_) return;
  auto lock = std::make_unique<QLockFile>(QDir(folder_).filePath(QStringLiteral("em-uso.lock")));
  lock->setStaleLockTime(0);
  if (!lock->tryLock(0))
    throw Failure(QStringLiteral("O banco de dados da pasta %1 já está aberto por outra janela "
                                 "deste programa.")
                      .arg(folder_));
  lock_ = std::move(lock);
}

/// The program may have been killed the last time, so that its server still runs.
void Cluster::stopLeftOver() const {
  if (!QFileInfo::exists(dataFolder() + QLatin1String("/postmaster.pid"))) return;
  programs_->runAsServer(QStringLiteral("pg_ctl"),
                         {QStringLiteral("-D"), dataFolder(), QStringLiteral("-m"),
                          QStringLiteral("fast"), QStringLiteral("-w"), QStringLiteral("stop")});
}

/// A socket path is limited to 107 bytes, so the socket cannot be in the data folder.
void Cluster::makeSocketFolder() {
  if (sockets_) return;
  sockets_ = std::make_unique<QTemporaryDir>(QDir::tempPath() + QLatin1String("/tsXXXXXX"));
  if (!sockets_->isValid())
    throw Failure(QStringLiteral("Não há pasta temporária que possa ser gravada: %1")
                      .arg(sockets_->errorString()));
  programs_->giveFolder(sockets_->path());
}

/// Created under another name first, so that an interrupted creation is never taken for a complete
/// one.
void Cluster::createData() const {
  const QString unfinished = dataFolder() + QLatin1String(".novo");
  QDir(unfinished).removeRecursively();
  const Outcome made = programs_->runAsServer(
      QStringLiteral("initdb"),
      {QStringLiteral("-D"), unfinished, QStringLiteral("-U"), QLatin1String(kUser),
       QStringLiteral("-A"), QStringLiteral("trust"), QStringLiteral("-E"), QStringLiteral("UTF8"),
       QStringLiteral("--locale=C.UTF-8")});
  if (!made.succeeded || !QDir().rename(unfinished, dataFolder()))
    throw Failure(QStringLiteral("O banco de dados não pôde ser criado em %1.\n\n%2")
                      .arg(folder_, lastLines(made.output, 5)));
}

void Cluster::startServer() const {
  const QString options =
      QStringLiteral("-k '%1' -c listen_addresses= -c port=5432").arg(sockets_->path());
  const Outcome started = programs_->runAsServer(
      QStringLiteral("pg_ctl"),
      {QStringLiteral("-D"), dataFolder(), QStringLiteral("-l"), logFile(), QStringLiteral("-w"),
       QStringLiteral("-o"), options, QStringLiteral("start")});
  if (started.succeeded) return;
  throw Failure(QStringLiteral("O servidor do banco de dados não iniciou.\n\n%1\n\nOs detalhes "
                               "estão em %2.")
                    .arg(lastLines(contentsOf(logFile()) + QLatin1Char('\n') + started.output, 6),
                         logFile()));
}

/// Waits on a pipe that only this process holds open, so that a crash ends the server too.
void Cluster::watchOverServer() {
  if (watcher_) return;
  const ProgramCall stop = programs_->callAsServer(
      QStringLiteral("pg_ctl"), {QStringLiteral("-D"), dataFolder(), QStringLiteral("-m"),
                                 QStringLiteral("fast"), QStringLiteral("stop")});
  watcher_ = std::make_unique<QProcess>();
  watcher_->setWorkingDirectory(QStringLiteral("/"));
  watcher_->setStandardOutputFile(QProcess::nullDevice());
  watcher_->setStandardErrorFile(QProcess::nullDevice());
  // In a session of its own, so that it does not get the signals that the terminal sends to the
  // program.
  watcher_->start(
      QStringLiteral("setsid"),
      QStringList{QStringLiteral("sh"), QStringLiteral("-c"),
                  QStringLiteral("read line; folder=$1; shift; \"$@\"; rm -rf \"$folder\""),
                  QStringLiteral("sh"), sockets_->path(), stop.program} +
          stop.arguments);
  watcher_->waitForStarted();
}

Outcome Cluster::query(const QStringList& arguments) const {
  return programs_->run(
      QStringLiteral("psql"),
      QStringList{QStringLiteral("-X"), QStringLiteral("-q"), QStringLiteral("-h"),
                  sockets_->path(), QStringLiteral("-p"), QStringLiteral("5432"),
                  QStringLiteral("-U"), QLatin1String(kUser), QStringLiteral("-d"),
                  QLatin1String(kDatabase), QStringLiteral("-v"),
                  QStringLiteral("ON_ERROR_STOP=1")} +
          arguments);
}

/// A folder created by an earlier version has no orders table and different codes.
bool Cluster::hasTables() const {
  const Outcome found =
      query({QStringLiteral("-At"), QStringLiteral("-c"),
             QStringLiteral("select string_agg(tablename, ' ' order by tablename) from pg_tables "
                            "where tablename in ('clientes', 'pedidos')")});
  if (found.succeeded && found.output == QLatin1String("clientes"))
    throw Failure(QStringLiteral("O banco de dados da pasta %1 é de uma versão anterior deste "
                                 "programa. Apague a pasta, ou indique outra com a opção --data.")
                      .arg(folder_));
  return found.succeeded && !found.output.isEmpty();
}

void Cluster::loadTables() const {
  loadScripts();
  const QTemporaryDir scripts;
  writeScripts(scripts.path());
  const Outcome loaded = query({QStringLiteral("--single-transaction"), QStringLiteral("-f"),
                                scripts.filePath(QStringLiteral("load.sql"))});
  if (!loaded.succeeded)
    throw Failure(QStringLiteral("Os dados iniciais não puderam ser carregados.\n\n%1")
                      .arg(lastLines(loaded.output, 5)));
}

bool Cluster::isRunning() const {
  return programs_ && lock_ &&
         programs_
             ->runAsServer(QStringLiteral("pg_ctl"),
                           {QStringLiteral("-D"), dataFolder(), QStringLiteral("status")})
             .succeeded;
}

void Cluster::stop(StopMode mode) {
  if (!isRunning()) return;
  const auto how = mode == StopMode::Orderly ? QStringLiteral("fast") : QStringLiteral("immediate");
  programs_->runAsServer(QStringLiteral("pg_ctl"),
                         {QStringLiteral("-D"), dataFolder(), QStringLiteral("-m"), how,
                          QStringLiteral("-w"), QStringLiteral("stop")});
}

}  // namespace tessaria::demo
