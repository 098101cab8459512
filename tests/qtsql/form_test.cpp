// A form over a database that the program has opened with Qt's SQL module.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QVBoxLayout>
#include <memory>
#include <stdexcept>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/field_settings.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/tstext.h"
#include "tessaria/qtsql/adopt.h"
#include "tests/qt/operator.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::qt::tests {
namespace {

class FormOverQtSql : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    const std::string missing = test::PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    const auto& cluster = test::PostgresCluster::Shared();
    test::PostgresCluster::Shared().EnsureRunning();
    database_ = QSqlDatabase::addDatabase(QString::fromLatin1(GetParam()), kName);
    if (QByteArray(GetParam()) == "QPSQL") {
      database_.setHostName(QString::fromStdString(cluster.Folder()));
      database_.setDatabaseName(QStringLiteral("postgres"));
      database_.setUserName(QStringLiteral("postgres"));
    } else {
      database_.setDatabaseName(QString::fromStdU16String(cluster.ConnectionString()));
    }
    ASSERT_TRUE(database_.open()) << database_.lastError().text().toStdString();
    for (const char* statement :
         {"drop schema public cascade", "create schema public",
          "create table cidades (codigo varchar(3) primary key, nome varchar(40))",
          "create table clientes (codigo integer primary key, nome varchar(40), cidade varchar(3))",
          "insert into clientes values (1, 'Ana', null)"})
      ask(statement);
    makeForm();
  }
  void TearDown() override {
    window_.reset();
    database_ = QSqlDatabase();
    QSqlDatabase::removeDatabase(kName);
  }

  std::string ask(const char* statement) {
    QSqlQuery query(database_);
    if (!query.exec(QString::fromUtf8(statement)))
      throw std::runtime_error(query.lastError().text().toStdString());
    return query.next() ? query.value(0).toString().toStdString() : std::string();
  }
  void makeForm() {
    window_ = std::make_unique<QWidget>();
    setConnection(*window_, qtsql::Adopt(database_));
    auto* layout = new QVBoxLayout(window_.get());
    data_ = new Adodc(DataControlSettings{.name = u"dados", .recordSource = u"clientes"});
    name_ =
        new TsText(FieldSettings{.name = u"nome", .dataSource = u"dados", .dataField = u"nome"});
    const LookupSettings cities{.table = u"cidades",
                                .columns = {{.field = u"codigo"}, {.field = u"nome"}}};
    const FieldPair city =
        MakePair(cities, {.name = u"cidade", .dataSource = u"dados", .dataField = u"cidade"},
                 {.name = u"nome_da_cidade"});
    city_ = new TsText(city.code);
    cityName_ = new TsText(city.description);
    for (QWidget* widget : std::initializer_list<QWidget*>{name_, city_, cityName_, data_})
      layout->addWidget(widget);
    showActive(*window_);
    settleEvents();
  }
  void enter(TsText* field, const char* text) {
    field->setFocus(Qt::TabFocusReason);
    settleEvents();
    editOf(*field)->selectAll();
    type(*window_, QString::fromUtf8(text));
    settleEvents();
  }

  const QString kName = QStringLiteral("loja");
  BoxKeeper boxes_;
  QSqlDatabase database_;
  std::unique_ptr<QWidget> window_;
  Adodc* data_ = nullptr;
  TsText *name_ = nullptr, *city_ = nullptr, *cityName_ = nullptr;
};

/// A city that only the program's open transaction holds completes the pair.
TEST_P(FormOverQtSql, WorksInTheProgramsTransaction) {
  EXPECT_EQ(editOf(*name_)->text(), QStringLiteral("Ana"));
  ASSERT_TRUE(database_.transaction());
  ask("insert into cidades values ('001', 'Mogi das Cruzes')");
  enter(city_, "001");
  enter(name_, "Bia");
  EXPECT_EQ(cityName_->text(), QStringLiteral("Mogi das Cruzes"));
  EXPECT_TRUE(data_->saveRow());
  EXPECT_EQ(ask("select nome || cidade from clientes"), "Bia001");
  ASSERT_TRUE(database_.rollback());
  EXPECT_EQ(ask("select nome || coalesce(cidade, '') from clientes"), "Ana");
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_P(FormOverQtSql, NeedsNoSecondSession) {
  enter(name_, "Bia");
  EXPECT_TRUE(data_->saveRow());
  const auto rows = connectionOf(*window_)->Execute(u"select pg_backend_pid()::text");
  EXPECT_EQ(toQt(CStr(rows->Fields().Item(0)->Value())).toStdString(),
            ask("select pg_backend_pid()::text"));
  EXPECT_EQ(ask("select count(*) from pg_stat_activity where backend_type = 'client backend'"),
            "1");
  EXPECT_EQ(ask("select nome from clientes"), "Bia");
}

TEST_P(FormOverQtSql, ADatabaseThatIsClosedUnderAFormLosesNothingTyped) {
  enter(name_, "Bia");
  database_.close();
  EXPECT_FALSE(data_->saveRow());
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
  EXPECT_EQ(editOf(*name_)->text(), QStringLiteral("Bia"));
  EXPECT_TRUE(data_->isEditPending());
}

INSTANTIATE_TEST_SUITE_P(Qt, FormOverQtSql, testing::Values("QPSQL", "QODBC"));

}  // namespace
}  // namespace tessaria::qt::tests
