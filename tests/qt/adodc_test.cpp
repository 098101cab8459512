// The data control: rows, moves, edits, refusals, and the order in which a form loads.
#include "hosts/qt/adodc.h"

#include <QTest>
#include <QToolButton>

#include "control/tstext.h"
#include "hosts/memory/connection.h"
#include "hosts/qt/form.h"
#include "hosts/qt/text.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

class DataControl : public FieldFixture {
 protected:
  DataControl() {
    connection_->ConnectionString(u"Memoria");
    table_ = connection_->AddTable(
        u"Cliente", {{u"Codigo", host::type::Integer}, {u"Nome", host::type::VarWChar}},
        {{Long{1}, u"Ana"}, {Long{2}, u"Bia"}, {Long{3}, u"Caio"}});
    data_ = new Adodc;
    data_->setObjectName(QStringLiteral("dcCliente"));
    window_->layout()->addWidget(data_);
    data_->setConnection(connection_);
    data_->setRecordSource(QStringLiteral("Cliente"));
    bind(*first_, QStringLiteral("Codigo"));
    bind(*second_, QStringLiteral("nome"));
    QObject::connect(data_, &Adodc::moved, [this] { ++moves_; });
    QObject::connect(data_, &Adodc::error, [this](int, const QString& text) { errors_ << text; });
  }
  static void bind(TsText& field, const QString& name) {
    field.setDataSource(QStringLiteral("DCCLIENTE"));
    field.setDataField(name);
  }
  QToolButton& navigation(const char* name) {
    for (QToolButton* button : data_->findChildren<QToolButton*>())
      if (button->accessibleName() == QString::fromUtf8(name)) return *button;
    throw std::logic_error(name);
  }
  QString position() { return data_->findChild<QLabel*>()->text(); }
  QString name() { return second_->value().toString(); }

  std::shared_ptr<memory::Connection> connection_ = memory::Connection::CreateOpen();
  memory::TablePtr table_;
  Adodc* data_ = nullptr;
  int moves_ = 0;
  QStringList errors_;
};

TEST_F(DataControl, OpensItsRowsAtTheFirstShowAheadOfItsControls) {
  show();
  EXPECT_EQ(name(), QStringLiteral("Ana"));
  EXPECT_EQ(first_->value().toInt(), 1);
  EXPECT_EQ(position(), QStringLiteral("Registro 1"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(DataControl, ReportsTheConnectionsText) {
  EXPECT_EQ(data_->connectionString(), QStringLiteral("Memoria"));
  const auto port = std::dynamic_pointer_cast<host::DataControl>(makeWidget(*data_));
  EXPECT_EQ(port->TypeName(), u"Adodc");
  EXPECT_EQ(port->RecordSource(), u"Cliente");
  EXPECT_EQ(port->RecordSet(), nullptr);
  port->Refresh();
  EXPECT_NE(port->RecordSet(), nullptr);
}

TEST_F(DataControl, TheFourButtonsMove) {
  show();
  click(navigation("Próximo"));
  EXPECT_EQ(name(), QStringLiteral("Bia"));
  click(navigation("Último"));
  EXPECT_EQ(name(), QStringLiteral("Caio"));
  click(navigation("Próximo"));
  EXPECT_EQ(name(), QStringLiteral("Caio"));
  click(navigation("Anterior"));
  EXPECT_EQ(name(), QStringLiteral("Bia"));
  click(navigation("Primeiro"));
  click(navigation("Anterior"));
  EXPECT_EQ(name(), QStringLiteral("Ana"));
  EXPECT_EQ(moves_, 6);
}

TEST_F(DataControl, AMoveWritesWhatWasTyped) {
  show();
  second_->setFocus();
  settleEvents();
  type(*window_, QStringLiteral("Ângela"));
  EXPECT_TRUE(data_->moveNext());
  EXPECT_EQ(name(), QStringLiteral("Bia"));
  EXPECT_EQ(*table_->Rows()[0].Cells[1].TryGet<String>(), u"Ângela");
}

TEST_F(DataControl, ARefusedWriteStaysOnTheRowWithTheDriversText) {
  show();
  second_->setFocus();
  settleEvents();
  type(*window_, QStringLiteral("Outra"));
  table_->RefuseNextWrite(HostError(errors::ProviderError, u"violates check constraint"));
  EXPECT_FALSE(data_->moveNext());
  EXPECT_EQ(boxes_.takeTexts(), QStringList({"violates check constraint"}));
  EXPECT_EQ(errors_, QStringList({"violates check constraint"}));
  EXPECT_EQ(name(), QStringLiteral("Outra"));
  EXPECT_TRUE(data_->isEditPending());
  EXPECT_EQ(moves_, 0);
  EXPECT_TRUE(data_->saveRow());
  EXPECT_EQ(*table_->Rows()[0].Cells[1].TryGet<String>(), u"Outra");
}

TEST_F(DataControl, AFieldThatRefusesStopsTheMove) {
  second_->setMascara(QStringLiteral("dd/mm/yyyy"));
  second_->setDataSource({});
  show();
  second_->setFocus();
  settleEvents();
  type(*window_, QStringLiteral("31022017"));
  EXPECT_FALSE(data_->moveNext());
  click(navigation("Próximo"));
  EXPECT_EQ(first_->value().toInt(), 1);
  EXPECT_EQ(boxes_.takeTexts().size(), 2);
  EXPECT_EQ(focusedField(), second_);
}

TEST_F(DataControl, ANewRowIsWrittenOrDropped) {
  show();
  EXPECT_TRUE(data_->addRow());
  EXPECT_EQ(position(), QStringLiteral("Novo registro"));
  EXPECT_EQ(name(), QString());
  second_->setValue(QStringLiteral("Davi"));
  first_->setValue(4);
  EXPECT_TRUE(data_->saveRow());
  EXPECT_EQ(table_->Rows().size(), 4u);
  EXPECT_TRUE(data_->addRow());
  second_->setValue(QStringLiteral("Eva"));
  EXPECT_TRUE(data_->cancelRow());
  EXPECT_EQ(table_->Rows().size(), 4u);
  EXPECT_NE(name(), QStringLiteral("Eva"));
}

TEST_F(DataControl, ADeletedRowGivesWayToTheNextOne) {
  show();
  EXPECT_TRUE(data_->deleteRow());
  EXPECT_EQ(name(), QStringLiteral("Bia"));
  EXPECT_EQ(table_->Rows().size(), 2u);
  data_->moveLast();
  EXPECT_TRUE(data_->deleteRow());
  EXPECT_EQ(name(), QStringLiteral("Bia"));
}

TEST_F(DataControl, ANewRowDroppedOnAnEmptyTableHasNoRow) {
  table_->Remove(0), table_->Remove(0), table_->Remove(0);
  show();
  EXPECT_EQ(position(), QStringLiteral("Sem registros"));
  EXPECT_TRUE(data_->moveNext());
  EXPECT_TRUE(data_->addRow());
  EXPECT_TRUE(data_->cancelRow());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(DataControl, AStatementThatFailsIsShown) {
  data_->setRecordSource(QStringLiteral("Select Nada"));
  connection_->FailNext(HostError(errors::ProviderError, u"no such table"));
  EXPECT_FALSE(data_->refresh());
  EXPECT_EQ(boxes_.takeTexts(), QStringList({"no such table"}));
}

TEST_F(DataControl, WithoutAConnectionItSaysSo) {
  data_->setConnection(nullptr);
  EXPECT_FALSE(data_->refresh());
  EXPECT_EQ(boxes_.boxes().size(), 1u);
}

TEST_F(DataControl, MakesItsOwnConnectionThroughTheFactory) {
  QString asked;
  Adodc::setConnectionFactory([&](const QString& text) {
    asked = text;
    connection_->Close();
    return connection_;
  });
  data_->setConnectionString(QStringLiteral("DSN=Loja"));
  EXPECT_TRUE(data_->refresh());
  EXPECT_EQ(asked, QStringLiteral("DSN=Loja"));
  EXPECT_EQ(connection_->State(), host::state::Open);
  Adodc::setConnectionFactory(nullptr);
}

TEST_F(DataControl, AProgramMayLoadTheFormItself) {
  data_->setRefreshesForm(false);
  show();
  data_->moveNext();
  EXPECT_EQ(name(), QStringLiteral("Ana"));
  data_->refreshForm();
  EXPECT_EQ(name(), QStringLiteral("Bia"));
}

TEST_F(DataControl, TheFirstShowGoesToUnboundControlsFirst) {
  QStringList order;
  first_->setDataField({});
  auto* third = new TsText;
  third->setObjectName(QStringLiteral("txtChave"));
  third->setUsaChecaRelacao(false);
  window_->layout()->addWidget(third);
  bind(*third, QStringLiteral("Codigo"));
  third->setTipoControle(TsText::Browse);
  window_->setProperty("dbForm", QVariant::fromValue<host::ConnectionPtr>(connection_));
  for (TsText* field : {second_, third, first_})
    QObject::connect(field, &TsText::shown, [&order, field] { order << field->objectName(); });
  show();
  EXPECT_EQ(order, QStringList({"txtPrimeiro", "txtChave", "txtSegundo"}));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(DataControl, AFormWithoutDbFormTellsItsKeys) {
  first_->setTipoControle(TsText::Browse);
  show();
  ASSERT_EQ(boxes_.boxes().size(), 1u);
  EXPECT_TRUE(boxes_.boxes()[0].text.startsWith(
      QStringLiteral("Não foi Possível Conectar 'dbForm'. Contate Administrador de Sistema.")));
}

TEST_F(DataControl, AMissingDataControlIsTold) {
  first_->setDataSource(QStringLiteral("dcNada"));
  show();
  ASSERT_EQ(boxes_.boxes().size(), 1u);
  EXPECT_TRUE(boxes_.boxes()[0].text.startsWith(
      QStringLiteral("Não foi Possível Localizar o Data Control 'dcNada'.")));
}

TEST_F(DataControl, AControlAddedLaterShowsToo) {
  show();
  auto* late = new TsText;
  late->setObjectName(QStringLiteral("txtTarde"));
  bind(*late, QStringLiteral("Nome"));
  window_->layout()->addWidget(late);
  late->show();
  settleEvents();
  EXPECT_EQ(late->value().toString(), QStringLiteral("Ana"));
}

}  // namespace
}  // namespace tessaria::qt::tests
