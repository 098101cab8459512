// A window with pairs of a key and its description, over a real PostgreSQL.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

#include "tessaria/qt/metatypes.h"
#include "tessaria/qt/text.h"
#include "tessaria/thread_state.h"
#include "tests/qt/key_queue.h"
#include "tests/qt/operator.h"
#include "tests/qt/printers.h"
#include "tests/qt/watched_connection.h"
#include "tests/support/database_driver.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::qt::tests {

class CompletionFixture : public testing::Test {
 protected:
  struct Pair {
    TsText* key;
    TsText* name;
  };

  void SetUp() override {
    const std::string missing = test::PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    cluster().EnsureRunning();
    const auto real = test::NewConnectionOfTheDriver();
    real->ConnectionString(cluster().ConnectionString());
    real->Open();
    connection_ = std::make_shared<WatchedConnection>(real);
    for (const char16_t* statement : kSchema) real->Execute(statement);
    newWindow();
  }
  void TearDown() override {
    window_.reset();
    State().dbConexao = nullptr;
    State().vntValorIrmao = Variant::Null();
  }

  static test::PostgresCluster& cluster() { return test::PostgresCluster::Shared(); }

  /// An empty form over the connection.
  void newWindow() {
    window_ = std::make_unique<QWidget>();
    window_->setObjectName(QStringLiteral("frmPedido"));
    window_->setProperty("dbForm", QVariant::fromValue<host::ConnectionPtr>(connection_));
    new QVBoxLayout(window_.get());
  }
  template <class W>
  W* add(W* widget, const QString& name) {
    widget->setObjectName(name);
    window_->layout()->addWidget(widget);
    return widget;
  }
  /// Adds the fields "cod" + name and "des" + name, each with its lookup.
  Pair addPair(const QString& name, const QString& table, const QString& where = {}) {
    const Pair pair{add(new TsText, QStringLiteral("cod") + name),
                    add(new TsText, QStringLiteral("des") + name)};
    const auto define = [&](TsText* field, TsText* sibling, const char* campo, const char* other) {
      field->setTxtIrmao(sibling->objectName());
      field->setBrowseTable(table);
      field->setBrwCampo(QLatin1String(campo));
      field->setBrwCampoIrmao(QLatin1String(other));
      field->setBrwWhere(where);
    };
    pair.key->setTipoControle(TsText::Browse);
    pair.name->setTipoControle(TsText::Descricao);
    define(pair.key, pair.name, "codigo", "nome");
    define(pair.name, pair.key, "nome", "codigo");
    return pair;
  }
  /// Shows one pair of cities and a button, with the focus in the description.
  void showCity(const QString& table = QStringLiteral("cidades")) {
    city_ = addPair(QStringLiteral("Cidade"), table);
    button_ = add(new QPushButton(QStringLiteral("Gravar")), QStringLiteral("btnGravar"));
    show();
    enter(city_.name);
  }
  void show() {
    showActive(*window_);
    connection_->takeStatements();
  }
  static void enter(QWidget* widget) {
    widget->setFocus();
    settleEvents();
  }
  QLineEdit& box() { return *editOf(*city_.name); }
  QString focusName() const {
    QWidget* focus = window_->focusWidget();
    auto* field = focus ? qobject_cast<TsText*>(focus->parentWidget()) : nullptr;
    return field ? field->objectName() : focus ? focus->objectName() : QString();
  }

  // --- Keys as the window system queues them, not yet delivered ----------------------------------
  void queue(QEvent::Type type, int key, const QString& text = {}, bool repeated = false) {
    queueKeyEvent(*window_, type, key, text, repeated);
  }
  void queueKey(int key, const QString& text = {}) {
    queue(QEvent::KeyPress, key, text);
    queue(QEvent::KeyRelease, key, text);
  }
  void queueText(const QString& text) {
    for (QChar c : text) queueKey(keyOf(c), QString(c));
  }
  static int keyOf(QChar c) { return c.toUpper().unicode(); }
  /// Processes events until none are left.
  static void settleAll() {
    for (int i = 0; i < 20; ++i) QCoreApplication::processEvents();
  }

  /// Checks the description's box: the typed part, and the completed part, which is selected.
  void expectBox(const QString& typed, const QString& completed) {
    EXPECT_EQ(box().text(), typed + completed);
    EXPECT_EQ(box().selectedText(), completed);
    if (!completed.isEmpty()) {
      EXPECT_EQ(box().selectionStart(), typed.size());
    } else {
      EXPECT_EQ(box().cursorPosition(), typed.size());
    }
  }

  static constexpr const char16_t* kSchema[] = {
      u"drop schema public cascade",
      u"create schema public",
      u"create table estados (codigo char(2) primary key, nome varchar(30))",
      u"insert into estados values ('SP', 'São Paulo'), ('MG', 'Minas Gerais'), ('RJ', 'Rio')",
      u"create table cidades (codigo varchar(5) primary key, nome varchar(60), uf char(2))",
      u"insert into cidades values ('00001', 'Santos', 'SP'), ('00002', 'São Carlos', 'SP'),"
      u" ('00003', 'Água Funda', 'SP'), ('00004', 'Uberaba', 'MG'), ('00005', 'Maria da Fé', 'MG'),"
      u" ('00006', 'Maria', 'RJ'), ('00007', 'Santa Bárbara d''Oeste', 'SP'),"
      u" ('00008', '100% Rural', 'MG'), ('00009', 'A_B', 'MG'), ('00010', E'C:\\\\temp', 'MG'),"
      u" ('00011', 'X''; drop table cidades; --', 'MG'), ('00012', null, 'MG'),"
      u" ('00013', 'Ubatuba', 'SP')",
      u"create table condicoes (codigo integer primary key, nome varchar(30))",
      u"insert into condicoes values (1, 'À vista'), (15, 'Trinta dias')",
      u"create view cidades_lentas as select c.* from cidades c, (select pg_sleep(0.06)) e"};

  BoxKeeper boxes_;
  std::shared_ptr<WatchedConnection> connection_;
  std::unique_ptr<QWidget> window_;
  Pair city_{};
  QPushButton* button_ = nullptr;
};

}  // namespace tessaria::qt::tests
