#include "tests/designer/pair_operator.h"

#include <QApplication>
#include <QTest>
#include <QTimer>
#include <cstdio>

#include "tessaria/qt/adodc.h"
#include "tests/designer/data_source.h"
#include "tests/designer/operator_hands.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::tests {
namespace {

constexpr char kSchema[] =
    "create table cidades (sigla text primary key, uf text);"
    "create table clientes (codigo integer primary key, nome varchar(40), cidade text, ativo bool);"
    "create table pedidos (numero integer primary key, cliente integer);"
    "insert into cidades values ('ASS', 'SP');"
    "insert into clientes values (1, 'Ana', 'ASS', true), (2, 'Bruno', 'ASS', true),"
    " (3, 'Carla', null, true), (4, 'Davi', 'ASS', false);"
    "insert into pedidos values (10, 1);";

void print(const char* what, const QWidget& form) {
  std::printf("%s: %s %s\n", what, qPrintable(field(form, "txtCodigo").text().remove(u'_')),
              qPrintable(field(form, "txtNome").text()));
}

/// Home comes last: every other key completes a description when it is released.
void replaceBy(const QString& text) {
  press(Qt::Key_End);
  press(Qt::Key_Home, Qt::ShiftModifier);
  type(text);
}

/// For the guide, whose folder of pictures the environment names.
void picture(QWidget& list) {
  const QString folder = qEnvironmentVariable("TESSARIA_PICTURES");
  if (!folder.isEmpty()) list.grab().save(folder + QStringLiteral("/designer-lista.png"));
}

/// Takes the last row of the list, which opens meanwhile.
void chooseLast() {
  QTimer::singleShot(0, [] {
    if (!QTest::qWaitFor([] { return QApplication::activeModalWidget() != nullptr; })) return;
    QTest::qWait(200);
    picture(*QApplication::activeModalWidget());
    press(Qt::Key_End);
    press(Qt::Key_Return);
  });
}

}  // namespace

void openShop() {
  auto& cluster = test::PostgresCluster::Shared();
  cluster.Run(kSchema);
  nameSource(QString::fromStdString(cluster.Folder()) + QStringLiteral("/odbc.ini"));
  qt::Adodc::setConnectionFactory(connect);
}

int operatePair(QWidget& form) {
  const Boxes boxes;
  if (!showForm(form)) return 1;
  field(form, "txtCodigo").setFocus();
  QTest::qWait(50);
  print("bound", form);
  replaceBy(QStringLiteral("2"));
  press(Qt::Key_Tab);
  print("typed", form);
  replaceBy(QStringLiteral("Bru"));
  press(Qt::Key_Tab);
  print("completed", form);
  field(form, "txtCodigo").setFocus();
  QTest::qWait(50);
  chooseLast();
  press(Qt::Key_PageDown);
  print("chosen", form);
  return 0;
}

}  // namespace tessaria::tests
