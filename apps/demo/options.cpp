#include "apps/demo/options.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>
#include <cstdlib>

#include "apps/demo/cluster.h"
#include "apps/demo/failure.h"

namespace tessaria::demo {
namespace {

Driver driverOf(const QString& name) {
  if (name == QLatin1String("odbc")) return Driver::Odbc;
  if (name == QLatin1String("postgres")) return Driver::Postgres;
  throw Failure(QStringLiteral("Não há driver \"%1\": os drivers são odbc e postgres.").arg(name));
}

}  // namespace

Options readOptions(const QStringList& arguments) {
  const QCommandLineOption data(
      QStringLiteral("data"),
      QStringLiteral("Pasta do banco de dados próprio (a pasta do usuário)."),
      QStringLiteral("PASTA"), Cluster::defaultFolder());
  const QCommandLineOption connection(
      QStringLiteral("connection"),
      QStringLiteral("Texto de conexão de outro banco, no lugar do próprio."),
      QStringLiteral("TEXTO"));
  const QCommandLineOption driver(
      QStringLiteral("driver"),
      QStringLiteral("odbc, ou postgres: a biblioteca do próprio PostgreSQL."),
      QStringLiteral("NOME"), QStringLiteral("odbc"));
  const QCommandLineOption play(
      QStringLiteral("play"),
      QStringLiteral("Faz sozinho uma sessão de um operador, num banco de dados temporário, e "
                     "grava as telas na pasta."),
      QStringLiteral("PASTA"));
  const QCommandLineOption dark(QStringLiteral("dark"), QStringLiteral("Cores escuras."));
  const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")},
                                QStringLiteral("Mostra esta ajuda."));
  QCommandLineParser parser;
  parser.setApplicationDescription(QStringLiteral("Mesa de pedidos de uma pequena distribuidora."));
  parser.addOptions({data, connection, driver, play, dark, help});
  if (!parser.parse(arguments) || !parser.positionalArguments().isEmpty())
    throw Failure(QStringLiteral("Opção desconhecida ou incompleta.\n\n") + parser.helpText());
  if (parser.isSet(help)) {
    std::fputs(qPrintable(parser.helpText()), stdout);
    std::exit(EXIT_SUCCESS);
  }
  if (parser.isSet(play) && parser.value(play).isEmpty())
    throw Failure(QStringLiteral("Falta a pasta das telas de --play."));
  if (parser.isSet(play) && (parser.isSet(connection) || parser.isSet(data)))
    throw Failure(
        QStringLiteral("A sessão de --play usa um banco de dados próprio e temporário: não a "
                       "combine com --connection nem com --data."));
  return {parser.value(data), parser.value(connection), parser.value(play),
          driverOf(parser.value(driver)), parser.isSet(dark)};
}

}  // namespace tessaria::demo
