// A form with a key and its description over a real database, and the list that it opens.
#pragma once

#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>
#include <QTableView>
#include <QTest>

#include "tessaria/pesquisa_definition.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/metatypes.h"
#include "tests/qt_dialogs/dialog_fixture.h"
#include "tests/support/database_driver.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::qt::tests {

/// The number of customers in the table; the first page of the list is far shorter.
inline constexpr int kCustomers = 20'000;

class DatabaseListFixture : public DialogFixture {
 protected:
  void SetUp() override {
    const std::string missing = test::PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    server().EnsureRunning();
    server().Run(
        "drop schema public cascade; create schema public;"
        "create table clientes (codigo integer primary key, nome varchar(60), cidade varchar(40),"
        " desde date, limite numeric(12,2), ativo smallint);"
        "insert into clientes select g, 'Nome ' || g, 'Cidade ' || g % 50,"
        " date '2000-01-01' + g % 9000, g * 1.5, 1 from generate_series(1, " +
        std::to_string(kCustomers) + ") g; analyze clientes");
    connection_->ConnectionString(server().ConnectionString());
    connection_->Open();
    owner_->setProperty("dbForm", QVariant::fromValue(connection_));
    description_ = new TsText;
    description_->setObjectName(QStringLiteral("txtNome"));
    description_->setUsaChecaRelacao(false);
    owner_->layout()->addWidget(description_);
    field_->setTipoControle(TsText::Browse);
    field_->setBrowseTable(QStringLiteral("clientes"));
    field_->setBrwCampo(QStringLiteral("codigo"));
    field_->setBrwCampoIrmao(QStringLiteral("nome"));
    field_->setBrwCampoOutros(QStringLiteral("cidade"));
    field_->setTxtIrmao(QStringLiteral("txtNome"));
    field_->setTipoDado(2);
    description_->show();
    other_ = new QLineEdit;
    owner_->layout()->addWidget(other_);
    other_->show();
    field_->setFocus();
    settleEvents();
    field_->refresh();
    settleEvents();
    EXPECT_TRUE(boxes_.boxes().empty());
  }
  ~DatabaseListFixture() override {
    owner_.reset();
    State().dbConexao = nullptr;
    State().vntValorIrmao = Variant::Null();
  }

  static test::PostgresCluster& server() { return test::PostgresCluster::Shared(); }

  /// Opens the list from the field with its key and runs the script in it.
  void look(ModalDriver::Script script) {
    driver_.willShow(QStringLiteral("frmBrowse"), std::move(script));
    openList();
  }
  void openList() {
    field_->setFocus();
    press(*owner_, Qt::Key_PageDown);
    settleEvents();
  }
  void search(QDialog& window, int key, const QString& answer) {
    driver_.willShow(QStringLiteral("frmTsPesquisa"), [answer](QDialog& prompt) {
      strike(prompt, answer);
      press(prompt, Qt::Key_Return);
    });
    press(window, key);
  }
  tessaria::Pesquisa& searches() {
    const auto port = std::dynamic_pointer_cast<host::TsTextWidget>(makeWidget(*field_));
    return *port->Get(u"Pesquisa").As<tessaria::Pesquisa>();
  }
  void addSearch(const String& caption, const String& campo, Long tipo, Long like,
                 const String& mask = {}, Long indice = 0) {
    searches().Add(indice, caption, campo, tipo, like, mask, 2700, 0, false, false, 0, 0, u"");
  }

  static QTableView& view(QDialog& window) { return *window.findChild<QTableView*>(); }
  static int rowCount(QDialog& window) { return view(window).model()->rowCount(); }
  static int currentRow(QDialog& window) { return view(window).currentIndex().row(); }
  static QString cell(QDialog& window, int row, int column) {
    return view(window).model()->index(row, column).data().toString();
  }
  static QLabel& warning(QDialog& window) {
    return *at(window, QStringLiteral("grdBrowse")).findChild<QLabel*>();
  }
  static void scrollDown(QDialog& window) {
    QScrollBar& bar = *view(window).verticalScrollBar();
    bar.setValue(bar.maximum());
    settleEvents();
  }

  host::ConnectionPtr connection_ = test::NewConnectionOfTheDriver();
  TsText* description_ = nullptr;
  QLineEdit* other_ = nullptr;  ///< a widget that is not a field of the library
};

}  // namespace tessaria::qt::tests
