// A record set as a model: shown, sorted, edited in a table and through a mapper.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QDataWidgetMapper>
#include <QDate>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QVBoxLayout>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/qt/recordset_model.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/tstext.h"
#include "tests/qt/operator.h"
#include "tests/qt/printers.h"
#include "tests/support/database_driver.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::qt::tests {
namespace {

class RowsAsModel : public testing::Test {
 protected:
  void SetUp() override {
    const std::string missing = test::PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    test::PostgresCluster& cluster = test::PostgresCluster::Shared();
    cluster.EnsureRunning();
    connection_ = test::NewConnectionOfTheDriver();
    connection_->ConnectionString(cluster.ConnectionString());
    connection_->Open();
    for (const char16_t* statement :
         {u"drop schema public cascade", u"create schema public",
          u"create table clientes (codigo integer primary key, nome varchar(40) not null, valor "
          u"numeric(10,2) check (valor >= 0), nascimento date)",
          u"insert into clientes values (1, 'Ana', 10.5, '1980-02-29'), (2, 'Zélia', 1234.5, "
          u"null), (3, 'Caio', null, null)"})
      connection_->Execute(statement);
    model_ = std::make_unique<RecordsetModel>(open(u"select * from clientes order by codigo"));
    tester_ = std::make_unique<QAbstractItemModelTester>(
        model_.get(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    QObject::connect(model_.get(), &RecordsetModel::failed,
                     [this](int number, const QString&) { failures_ << number; });
  }
  host::RecordsetPtr open(const char16_t* statement) {
    return connection_->OpenRecordset(statement, host::CursorType::Static,
                                      host::LockType::Optimistic);
  }
  QModelIndex at(int row, const char* field) const {
    return model_->index(row, model_->columnOf(field));
  }
  std::string shown(int row, const char* field) const {
    return at(row, field).data().toString().toStdString();
  }
  std::string column(const char* field) const {
    QStringList texts;
    for (int row = 0; row < model_->rowCount(); ++row) texts << at(row, field).data().toString();
    return texts.join(QLatin1Char(' ')).toStdString();
  }
  std::string stored(const char16_t* expression) {
    const auto rows =
        connection_->Execute(u"select coalesce((" + String(expression) + u")::text, '')");
    return toQt(CStr(rows->Fields().Item(0)->Value())).toStdString();
  }

  BoxKeeper boxes_;
  host::ConnectionPtr connection_;
  std::unique_ptr<RecordsetModel> model_;
  std::unique_ptr<QAbstractItemModelTester> tester_;
  QList<int> failures_;
};

TEST_F(RowsAsModel, ShowsRowsAndValues) {
  EXPECT_EQ(model_->rowCount(), 3);
  EXPECT_EQ(model_->columnCount(), 4);
  EXPECT_EQ(model_->columnOf("NOME"), 1);
  EXPECT_EQ(model_->columnOf("nenhum"), -1);
  EXPECT_EQ(model_->headerData(1, Qt::Horizontal).toString(), QStringLiteral("nome"));
  model_->setCaption(1, QStringLiteral("Nome"));
  model_->setFormat(2, QStringLiteral("#,##0.00"));
  model_->setFormat(3, QStringLiteral("dd/mm/yyyy"));
  EXPECT_EQ(model_->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Nome"));
  EXPECT_EQ(shown(1, "valor"), "1.234,50");
  EXPECT_EQ(shown(0, "nascimento"), "29/02/1980");
  EXPECT_EQ(shown(2, "valor"), "");
  EXPECT_EQ(at(0, "nascimento").data(Qt::EditRole).toDate(), QDate(1980, 2, 29));
  EXPECT_TRUE(at(2, "valor").data(Qt::EditRole).isNull());
  EXPECT_EQ(at(1, "valor").data(Qt::TextAlignmentRole).value<Qt::Alignment>(),
            Qt::AlignRight | Qt::AlignVCenter);
  EXPECT_FALSE(model_->index(3, 0).isValid());
}

TEST_F(RowsAsModel, ColumnsThatThereAreNotAreErrors) {
  for (const int column : {-1, 4}) {
    EXPECT_THROW(model_->setCaption(column, {}), HostError);
    EXPECT_THROW(model_->setFormat(column, {}), HostError);
  }
}

TEST_F(RowsAsModel, SortsAsTheRecordSetDoes) {
  model_->sort(1, Qt::DescendingOrder);
  EXPECT_EQ(column("nome"), "Zélia Caio Ana");
  model_->sort(2);
  EXPECT_EQ(column("nome"), "Caio Ana Zélia");
  model_->sort(-1);
  EXPECT_EQ(column("nome"), "Ana Zélia Caio");
}

TEST_F(RowsAsModel, CannotBeChangedUnlessAsked) {
  EXPECT_FALSE(at(0, "nome").flags().testFlag(Qt::ItemIsEditable));
  EXPECT_FALSE(model_->setData(at(0, "nome"), QStringLiteral("Bia")));
  EXPECT_FALSE(model_->removeRows(0, 1));
  EXPECT_EQ(model_->rowCount(), 3);
}

TEST_F(RowsAsModel, AnEditIsPendingUntilItIsSubmitted) {
  model_->setEditable(true);
  EXPECT_TRUE(model_->setData(at(0, "nome"), QStringLiteral("Bia")));
  EXPECT_EQ(model_->editedRow(), 0);
  EXPECT_EQ(shown(0, "nome"), "Bia");
  EXPECT_EQ(stored(u"select nome from clientes where codigo = 1"), "Ana");
  EXPECT_TRUE(model_->submit());
  EXPECT_EQ(model_->editedRow(), -1);
  EXPECT_EQ(stored(u"select nome from clientes where codigo = 1"), "Bia");
  EXPECT_TRUE(model_->submit());
}

TEST_F(RowsAsModel, AnEditOfAnotherRowWritesTheFirst) {
  model_->setEditable(true);
  EXPECT_TRUE(model_->setData(at(0, "nome"), QStringLiteral("Bia")));
  EXPECT_TRUE(model_->setData(at(2, "valor"), 7.25));
  EXPECT_EQ(model_->editedRow(), 2);
  EXPECT_EQ(stored(u"select nome from clientes where codigo = 1"), "Bia");
  model_->revert();
  EXPECT_EQ(shown(2, "valor"), "");
  EXPECT_EQ(stored(u"select count(valor) from clientes"), "2");
}

TEST_F(RowsAsModel, WhatTheDatabaseRefusesStaysAsItWasTyped) {
  model_->setEditable(true);
  EXPECT_TRUE(model_->setData(at(0, "valor"), -1));
  EXPECT_FALSE(model_->submit());
  EXPECT_EQ(failures_.size(), 1);
  EXPECT_EQ(model_->editedRow(), 0);
  EXPECT_FALSE(model_->setData(at(1, "valor"), 1));  // the first is refused once more
  EXPECT_EQ(at(0, "valor").data(Qt::EditRole).toDouble(), -1);
  EXPECT_TRUE(model_->setData(at(0, "valor"), 1));
  EXPECT_TRUE(model_->submit());
  EXPECT_EQ(stored(u"select valor from clientes where codigo = 1"), "1.00");
}

TEST_F(RowsAsModel, AValueOfTheWrongKindIsRefusedAtOnce) {
  model_->setEditable(true);
  EXPECT_FALSE(model_->setData(at(0, "nascimento"), QStringLiteral("ontem")));
  EXPECT_EQ(failures_.size(), 1);
  EXPECT_EQ(at(0, "nascimento").data(Qt::EditRole).toDate(), QDate(1980, 2, 29));
}

TEST_F(RowsAsModel, AnotherUsersChangeIsNotOverwritten) {
  model_->setEditable(true);
  EXPECT_TRUE(model_->setData(at(0, "nome"), QStringLiteral("Bia")));
  connection_->Execute(u"update clientes set nome = 'Eva' where codigo = 1");
  EXPECT_FALSE(model_->submit());
  EXPECT_THAT(failures_, testing::ElementsAre(-2147217864));
  EXPECT_EQ(stored(u"select nome from clientes where codigo = 1"), "Eva");
  EXPECT_EQ(shown(0, "nome"), "Bia");
}

TEST_F(RowsAsModel, WithoutAListenerAFailureIsABox) {
  RecordsetModel model(open(u"select * from clientes order by codigo"));
  model.setEditable(true);
  EXPECT_TRUE(model.setData(model.index(0, 2), -1));
  EXPECT_FALSE(model.submit());
  EXPECT_EQ(boxes_.boxes().size(), 1U);
}

TEST_F(RowsAsModel, RowsAreAddedAndRemoved) {
  model_->setEditable(true);
  EXPECT_TRUE(model_->addRow(
      {{QStringLiteral("codigo"), 9}, {QStringLiteral("nome"), QStringLiteral("Davi")}}));
  EXPECT_EQ(column("codigo"), "1 2 3 9");
  EXPECT_FALSE(model_->addRow(
      {{QStringLiteral("codigo"), 9}, {QStringLiteral("nome"), QStringLiteral("Eva")}}));
  EXPECT_EQ(column("codigo"), "1 2 3 9");
  EXPECT_EQ(failures_.size(), 1);
  EXPECT_TRUE(model_->removeRows(1, 2));
  EXPECT_EQ(column("codigo"), "1 9");
  EXPECT_EQ(stored(u"select string_agg(codigo::text, ' ' order by codigo) from clientes"), "1 9");
  EXPECT_FALSE(model_->removeRows(1, 2));
}

TEST_F(RowsAsModel, ALargeResultIsReadAsTheViewComesToIt) {
  RecordsetModel model(
      open(u"select n as codigo, 'linha ' || n as texto from "
           u"generate_series(1, 60000) as n"));
  QTableView view;
  view.setModel(&model);
  view.resize(400, 300);
  showActive(view);
  EXPECT_LT(model.rowCount(), 60000);
  while (model.canFetchMore({})) model.fetchMore({});
  EXPECT_EQ(model.rowCount(), 60000);
  view.scrollToBottom();
  QTRY_VERIFY_WITH_TIMEOUT(model.index(59999, 1).data().toString() == QStringLiteral("linha 60000"),
                           20000);
  view.scrollToTop();
  QTRY_VERIFY_WITH_TIMEOUT(model.index(0, 1).data().toString() == QStringLiteral("linha 1"), 20000);
}

TEST_F(RowsAsModel, ATableIsEditedByKeys) {
  model_->setEditable(true);
  QTableView view;
  view.setModel(model_.get());
  showActive(view);
  view.setCurrentIndex(at(1, "nome"));
  view.setFocus();
  QTest::keyClick(&view, Qt::Key_F2);
  auto* editor = view.findChild<QLineEdit*>();
  ASSERT_NE(editor, nullptr);
  editor->selectAll();
  QTest::keyClicks(editor, QStringLiteral("Lia"));
  QTest::keyClick(editor, Qt::Key_Return);
  settleEvents();
  EXPECT_EQ(stored(u"select nome from clientes where codigo = 2"), "Lia");
}

/// What is read is the settled value: "7,5" as it stands in the box is no number.
TEST_F(RowsAsModel, AMapperThatSubmitsItselfStoresTheSettledValue) {
  model_->setEditable(true);
  QWidget window;
  auto* layout = new QVBoxLayout(&window);
  auto* amount = new TsText;
  amount->setObjectName(QStringLiteral("valor"));
  amount->setMascara(QStringLiteral("$$$$$$.$$"));
  amount->setMaxLength(9);
  amount->setTipoDado(5);
  amount->setPromptInclude(true);
  auto* other = new QLineEdit;
  layout->addWidget(amount);
  layout->addWidget(other);
  QDataWidgetMapper mapper;
  mapper.setModel(model_.get());
  mapper.setSubmitPolicy(QDataWidgetMapper::AutoSubmit);
  mapper.addMapping(amount, model_->columnOf("valor"));
  mapper.toFirst();
  showActive(window);
  amount->setFocus();
  settleEvents();
  EXPECT_EQ(editOf(*amount)->text(), QStringLiteral("10,50"));
  editOf(*amount)->selectAll();
  type(window, QStringLiteral("7,5"));
  other->setFocus();
  settleEvents();
  EXPECT_TRUE(model_->submit());
  EXPECT_EQ(stored(u"select valor from clientes where codigo = 1"), "7.50");
}

TEST_F(RowsAsModel, ClosedAndMissingRowsAreEmpty) {
  model_->rows()->Close();
  EXPECT_FALSE(model_->setData(at(0, "nome"), QStringLiteral("x")));
  EXPECT_TRUE(at(0, "nome").data().isNull());
  model_->setRows(nullptr);
  EXPECT_EQ(model_->rowCount(), 0);
  EXPECT_EQ(model_->columnCount(), 0);
  EXPECT_TRUE(model_->submit());
  EXPECT_FALSE(model_->addRow({}));
}

}  // namespace
}  // namespace tessaria::qt::tests
