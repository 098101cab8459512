// A form over a database that the program has opened with Qt's SQL module.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QLineEdit>
#include <QVBoxLayout>
#include <memory>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/field_settings.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/tstext.h"
#include "tessaria/qtsql/adopt.h"
#include "tests/qtsql/qt_database.h"

namespace tessaria::qt::tests {
namespace {

class FormOverQtSql : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    if (!database_.open(GetParam())) GTEST_SKIP() << QtDatabase::missing();
    for (const char* statement :
         {"drop schema public cascade", "create schema public",
          "create table cidades (codigo varchar(3) primary key, nome varchar(40))",
          "create table clientes (codigo integer primary key, nome varchar(40), cidade varchar(3))",
          "insert into clientes values (1, 'Ana', null)"})
      database_.ask(statement);
    makeForm();
  }
  std::string ask(const char* statement) { return database_.ask(statement); }
  void makeForm() {
    window_ = std::make_unique<QWidget>();
    setConnection(*window_, qtsql::Adopt(database_.get()));
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

  BoxKeeper boxes_;
  QtDatabase database_;
  std::unique_ptr<QWidget> window_;
  Adodc* data_ = nullptr;
  TsText *name_ = nullptr, *city_ = nullptr, *cityName_ = nullptr;
};

/// A city that only the program's open transaction holds completes the pair.
TEST_P(FormOverQtSql, WorksInTheProgramsTransaction) {
  EXPECT_EQ(editOf(*name_)->text(), QStringLiteral("Ana"));
  ASSERT_TRUE(database_.get().transaction());
  ask("insert into cidades values ('001', 'Mogi das Cruzes')");
  enter(city_, "001");
  enter(name_, "Bia");
  EXPECT_EQ(cityName_->text(), QStringLiteral("Mogi das Cruzes"));
  EXPECT_TRUE(data_->saveRow());
  EXPECT_EQ(ask("select nome || cidade from clientes"), "Bia001");
  ASSERT_TRUE(database_.get().rollback());
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
  database_.get().close();
  EXPECT_FALSE(data_->saveRow());
  const QStringList told = boxes_.takeTexts();
  ASSERT_EQ(told.size(), 1);
  EXPECT_THAT(told[0].toStdString(), testing::HasSubstr("está fechada ou foi perdida."));
  EXPECT_EQ(editOf(*name_)->text(), QStringLiteral("Bia"));
  EXPECT_TRUE(data_->isEditPending());
}

TEST_P(FormOverQtSql, ADatabaseThatIsRemovedUnderAFormLosesNothingTyped) {
  enter(name_, "Bia");
  database_.get() = QSqlDatabase();
  QSqlDatabase::removeDatabase(QtDatabase::name());
  EXPECT_FALSE(data_->saveRow());
  const QStringList told = boxes_.takeTexts();
  ASSERT_EQ(told.size(), 1);
  EXPECT_THAT(told[0].toStdString(), testing::HasSubstr("está fechada ou foi perdida."));
  EXPECT_EQ(editOf(*name_)->text(), QStringLiteral("Bia"));
  EXPECT_TRUE(data_->isEditPending());
  window_.reset();
}

INSTANTIATE_TEST_SUITE_P(Qt, FormOverQtSql, testing::Values("QPSQL", "QODBC"));

}  // namespace
}  // namespace tessaria::qt::tests
