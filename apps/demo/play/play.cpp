#include "apps/demo/play/play.h"

#include <QDir>
#include <QTemporaryDir>
#include <cstdio>

#include "apps/demo/cluster.h"
#include "apps/demo/database.h"
#include "apps/demo/failure.h"
#include "apps/demo/main_window.h"
#include "apps/demo/play/conflict_session.h"
#include "apps/demo/play/customer_session.h"
#include "apps/demo/play/lock_session.h"
#include "apps/demo/play/order_session.h"
#include "tessaria/error.h"

namespace tessaria::demo {
namespace {

void say(const QString& line) {
  std::printf("%s\n", qPrintable(line));
  std::fflush(stdout);
}

QStringList checkRow(const QString& connectionString, const ExpectedRow& expected) {
  say(QLatin1Char('\n') + expected.title);
  const QList<Row> rows = readRows(connectionString, expected.statement);
  if (rows.size() == 1) return compareAndPrint(rows.first(), expected.row);
  return {QStringLiteral("%1: há %2 registros, e não um").arg(expected.title).arg(rows.size())};
}

QStringList checkRows(const QString& connectionString, const QList<ExpectedRow>& expected) {
  QStringList wrong;
  try {
    for (const ExpectedRow& row : expected) wrong += checkRow(connectionString, row);
  } catch (const HostError& error) {
    wrong << QString::fromUtf8(error.what());
  }
  return wrong;
}

/// Creates what the operator attaches to the order.
OrderPapers makePapers(const QString& place) {
  const QDir folder(place + QLatin1String("/documentos"));
  QDir().mkpath(folder.filePath(QStringLiteral("notas")));
  for (const char* name : {"ordem-de-compra.pdf", "proposta.pdf", "notas/leia-me.txt"}) {
    QFile file(folder.filePath(QLatin1String(name)));
    if (!file.open(QIODevice::WriteOnly) || file.write("Mesa de pedidos\n") < 0)
      throw Failure(QStringLiteral("%1 não pôde ser gravado.").arg(file.fileName()));
  }
  return {folder.filePath(QStringLiteral("ordem-de-compra.pdf")),
          folder.filePath(QStringLiteral("notas")),
          folder.filePath(QStringLiteral("proposta.pdf"))};
}

int verdict(const QStringList& wrong) {
  if (wrong.isEmpty()) {
    say(QStringLiteral("\nTudo certo: o banco de dados contém o que foi digitado."));
    return EXIT_SUCCESS;
  }
  say(QStringLiteral("\nErrado:"));
  for (const QString& line : wrong) say(QStringLiteral("  ") + line);
  return EXIT_FAILURE;
}

}  // namespace

int play(const QString& folder, Driver driver) {
  if (!folder.isEmpty() && !QDir().mkpath(folder))
    throw Failure(QStringLiteral("A pasta %1 não pode ser criada.").arg(folder));
  const QTemporaryDir place(QDir::tempPath() + QLatin1String("/tdXXXXXX"));
  QFile::setPermissions(place.path(), QFile::permissions(place.path()) | QFile::ExeOther);
  Cluster server(place.filePath(QStringLiteral("mesa")));
  server.start();
  Database database(server.connectionString(), &server, driver);
  database.open();
  MainWindow window(database);
  window.show();
  Player player(window, folder);
  say(QStringLiteral("Sessão de um operador:"));
  const OrderPapers papers = makePapers(place.path());
  playCustomerSession(player);
  playLockSession(player, server.connectionString());
  playConflictSession(player, server.connectionString());
  playOrderSession(player, papers, server.connectionString());
  const QStringList wrong =
      player.failures() +
      checkRows(server.connectionString(), rowsAfterCustomerSession() + rowsAfterConflictSession() +
                                               rowsAfterOrderSession(papers));
  if (!folder.isEmpty()) say(QStringLiteral("\nTelas: %1").arg(QDir(folder).absolutePath()));
  return verdict(wrong);
}

}  // namespace tessaria::demo
