#include "tests/designer/pair_operator.h"

#include <QApplication>
#include <QFile>
#include <QMessageBox>
#include <QTest>
#include <QTextStream>
#include <QTimer>
#include <cstdio>
#include <stdexcept>

#include "tessaria/odbc/connection.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/metatypes.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/tstext.h"
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

host::ConnectionPtr connect(const QString& text) {
  auto connection = odbc::CreateConnection();
  connection->ConnectionString(qt::fromQt(text));
  return connection;
}

qt::TsText& field(const QWidget& form, const char* name) {
  auto* found = form.findChild<qt::TsText*>(QLatin1String(name));
  if (!found) throw std::runtime_error(std::string("no field ") + name);
  return *found;
}

void print(const char* what, const QWidget& form) {
  std::printf("%s: %s %s\n", what, qPrintable(field(form, "txtCodigo").text().remove(u'_')),
              qPrintable(field(form, "txtNome").text()));
}

void type(const QString& text) {
  for (const QChar c : text) QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
  QTest::qWait(50);
}

void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
  QTest::keyClick(QApplication::focusWidget(), key, modifiers);
  QTest::qWait(50);
}

/// Home comes last: every other key completes a description when it is released.
void replaceBy(const QString& text) {
  press(Qt::Key_End);
  press(Qt::Key_Home, Qt::ShiftModifier);
  type(text);
}

/// Boxes that nobody expects are printed and closed.
class Boxes final : public QObject {
 public:
  Boxes() { qApp->installEventFilter(this); }
  bool eventFilter(QObject* object, QEvent* event) override {
    auto* box = qobject_cast<QMessageBox*>(object);
    if (!box || event->type() != QEvent::Show) return false;
    std::printf("box: %s\n", qPrintable(box->text()));
    QTimer::singleShot(0, box, &QDialog::reject);
    return false;
  }
};

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
  QString source = qt::toQt(cluster.ConnectionString());
  source.remove(u'{')
      .remove(u'}')
      .replace(u';', u'\n')
      .replace(QLatin1String("Uid"), QLatin1String("Username"));
  const QString path = QString::fromStdString(cluster.Folder()) + QStringLiteral("/odbc.ini");
  QFile file(path);
  if (!file.open(QIODevice::WriteOnly)) throw std::runtime_error("no data source");
  QTextStream(&file) << "[loja]\n" << source << '\n';
  qputenv("ODBCINI", path.toUtf8());
  qt::Adodc::setConnectionFactory(connect);
}

int operatePair(QWidget& form) {
  const Boxes boxes;
  const auto connection = connect(QStringLiteral("DSN=loja"));
  connection->Open();
  form.setProperty("dbForm", QVariant::fromValue(connection));
  form.show();
  if (!QTest::qWaitForWindowActive(&form)) return 1;
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
