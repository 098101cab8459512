// The data control: rows, moves, edits, refusals, and the order in which a form loads.
#include "tessaria/qt/adodc.h"

#include <QApplication>
#include <QTest>
#include <QToolButton>

#include "tessaria/conversion.h"
#include "tessaria/memory/connection.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/text.h"
#include "tessaria/text.h"
#include "tessaria/tstext.h"
#include "tests/qt/field_fixture.h"
#include "tests/support/faulty_rows.h"

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

TEST_F(DataControl, ItsButtonsStandOutFromADarkWindow) {
  show();
  const auto lightness = [this] {
    const QImage icon = navigation("Próximo").icon().pixmap(16, 16).toImage().convertToFormat(
        QImage::Format_ARGB32);
    int found = -1;
    for (int y = 0; y < icon.height(); ++y)
      for (int x = 0; x < icon.width(); ++x)
        if (icon.pixelColor(x, y).alpha() > 200) found = icon.pixelColor(x, y).lightness();
    return found;
  };
  EXPECT_GE(lightness(), 0);
  EXPECT_LT(lightness(), 100);
  QPalette dark(QColor(40, 40, 40));
  dark.setColor(QPalette::ButtonText, QColor(230, 230, 230));
  window_->setPalette(dark);
  EXPECT_GT(lightness(), 200);
}

TEST_F(DataControl, OpensItsRowsAtTheFirstShowBeforeItsControlsAreLoaded) {
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

TEST_F(DataControl, AMoveWritesAnAmountThatIsRetypedAsShown) {
  const auto prices =
      connection_->AddTable(u"Preco", {{u"Valor", host::type::Double}}, {{1.239}, {2.0}});
  data_->setRecordSource(QStringLiteral("Preco"));
  bind(*first_, QStringLiteral("Valor"));
  second_->setDataSource({});
  first_->setMascara(QStringLiteral("$$$.$$"));
  show();
  first_->setFocus();
  settleEvents();
  EXPECT_EQ(box().text(), QStringLiteral("1,24"));
  type(*window_, QStringLiteral("1,24"));
  press(*window_, Qt::Key_PageDown, Qt::AltModifier);
  EXPECT_EQ(moves_, 1);
  EXPECT_EQ(*prices->Rows()[0].Cells[0].TryGet<double>(), 1.24);
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

TEST_F(DataControl, ADeletedRowIsReplacedByTheNextOne) {
  show();
  EXPECT_TRUE(data_->deleteRow());
  EXPECT_EQ(name(), QStringLiteral("Bia"));
  EXPECT_EQ(table_->Rows().size(), 2u);
  data_->moveLast();
  EXPECT_TRUE(data_->deleteRow());
  EXPECT_EQ(name(), QStringLiteral("Bia"));
}

TEST_F(DataControl, DeletingANewRowReturnsToTheFormerRow) {
  show();
  data_->moveNext();
  EXPECT_TRUE(data_->addRow());
  EXPECT_TRUE(data_->deleteRow());
  EXPECT_EQ(name(), QStringLiteral("Bia"));
  EXPECT_EQ(position(), QStringLiteral("Registro 2"));
  EXPECT_EQ(table_->Rows().size(), 3u);
}

TEST_F(DataControl, ARowIsDeletedEvenIfTheStepToTheNextOneFails) {
  const auto rows = std::make_shared<test::FaultyRows>();
  data_->setConnection(std::make_shared<test::FaultyConnection>(connection_, rows));
  show();
  data_->moveNext();
  rows->failsMoveNext = true;
  EXPECT_TRUE(data_->deleteRow());
  EXPECT_EQ(boxes_.takeTexts(), QStringList({"server closed the connection"}));
  EXPECT_EQ(name(), QStringLiteral("Ana"));
  EXPECT_EQ(table_->Rows().size(), 2u);
}

TEST_F(DataControl, TheProgramsOwnDeleteIsNotAPendingEdit) {
  int leaving = 0;
  QObject::connect(data_, &Adodc::leavingRow, [&] { ++leaving; });
  show();
  data_->recordSet()->Delete();
  EXPECT_FALSE(data_->isEditPending());
  EXPECT_TRUE(data_->moveNext());
  EXPECT_EQ(name(), QStringLiteral("Bia"));
  data_->recordSet()->Delete();
  EXPECT_TRUE(data_->moveLast());
  EXPECT_EQ(name(), QStringLiteral("Caio"));
  data_->recordSet()->Delete();
  EXPECT_TRUE(data_->moveFirst());
  EXPECT_EQ(position(), QStringLiteral("Sem registros"));
  EXPECT_EQ(leaving, 0);
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(DataControl, ARowIsReadAgainAsItIsStoredNow) {
  show();
  table_->Change(0, u"Nome", u"Alice");
  type(*window_, QStringLiteral("7"));
  EXPECT_TRUE(data_->readRowAgain());
  EXPECT_FALSE(data_->isEditPending());
  EXPECT_EQ(name(), QStringLiteral("Alice"));
  EXPECT_EQ(moves_, 1);
}

TEST_F(DataControl, ARowThatIsReadAgainMayBeGone) {
  show();
  table_->Remove(0);
  EXPECT_TRUE(data_->readRowAgain());
  EXPECT_EQ(name(), QStringLiteral("Bia"));
  EXPECT_EQ(position(), QStringLiteral("Registro 1"));
}

TEST_F(DataControl, AMarkedRowIsNotLeftUnasked) {
  show();
  int asked = 0;
  bool refuses = true;
  QObject::connect(data_, &Adodc::leavingRow, [&](bool& refused) {
    ++asked;
    refused = refuses;
  });
  EXPECT_TRUE(data_->moveNext());
  EXPECT_EQ(asked, 0);
  data_->markRowChanged();
  EXPECT_FALSE(data_->moveNext());
  EXPECT_EQ(name(), QStringLiteral("Bia"));
  refuses = false;
  EXPECT_TRUE(data_->moveNext());
  EXPECT_TRUE(data_->movePrevious());
  EXPECT_EQ(asked, 2);
}

TEST_F(DataControl, ARefreshWritesWhatWasTyped) {
  show();
  second_->setFocus();
  settleEvents();
  type(*window_, QStringLiteral("Outra"));
  EXPECT_TRUE(data_->refresh());
  EXPECT_EQ(*table_->Rows()[0].Cells[1].TryGet<String>(), u"Outra");
  EXPECT_EQ(name(), QStringLiteral("Outra"));
}

TEST_F(DataControl, ARefreshWhoseWriteIsRefusedKeepsTheRowsAndTheEdit) {
  show();
  second_->setFocus();
  settleEvents();
  type(*window_, QStringLiteral("Outra"));
  const auto rows = data_->recordSet();
  table_->RefuseNextWrite(HostError(errors::ProviderError, u"violates check constraint"));
  EXPECT_FALSE(data_->refresh());
  EXPECT_EQ(boxes_.takeTexts(), QStringList({"violates check constraint"}));
  EXPECT_EQ(data_->recordSet(), rows);
  EXPECT_TRUE(data_->isEditPending());
  EXPECT_EQ(name(), QStringLiteral("Outra"));
}

// --- Rows in doubt

class RowInDoubt : public DataControl {
 protected:
  /// A new row for which the answer of the server was lost. The table has no key to find it by.
  void loseNewRow(bool stored) {
    show();
    data_->addRow();
    second_->setValue(QStringLiteral("Davi"));
    connection_->LoseNextAnswer(stored);
    EXPECT_FALSE(data_->saveRow());
    EXPECT_EQ(boxes_.takeTexts().size(), 1);
  }
  int rowsOf(const char16_t* name) {
    int count = 0;
    for (const auto& row : table_->Rows()) count += CStr(row.Cells[1]) == name ? 1 : 0;
    return count;
  }
};

TEST_F(RowInDoubt, ARefreshLooksForTheNewRowAndLeavesTheDecisionToTheOperator) {
  for (const bool stored : {true, false}) {
    SCOPED_TRACE(stored);
    if (!stored) {
      data_->cancelRow();
      table_->Delete(table_->Rows().back().Id, table_->Rows().back().Version);
      boxes_.takeTexts();
    }
    loseNewRow(stored);
    EXPECT_FALSE(data_->refresh());  // this opens the connection again
    const QStringList texts = boxes_.takeTexts();
    ASSERT_EQ(texts.size(), 1);
    EXPECT_EQ(texts[0].contains(QStringLiteral("o registro 4 tem os mesmos valores")), stored);
    EXPECT_EQ(name(), QStringLiteral("Davi"));
    EXPECT_EQ(position(), QStringLiteral("Novo registro"));
    EXPECT_EQ(rowsOf(u"Davi"), stored ? 1 : 0);
    EXPECT_TRUE(stored ? data_->cancelRow() : data_->saveRow());
    EXPECT_EQ(boxes_.takeTexts(), QStringList());
    EXPECT_EQ(rowsOf(u"Davi"), 1);
    EXPECT_TRUE(data_->refresh());
    EXPECT_EQ(data_->recordSet()->RecordCount(), 4);
  }
}

TEST_F(RowInDoubt, ARefreshFindsTheNewRowAsItsColumnsStoreIt) {
  table_ = connection_->AddTable(
      u"Produto",
      {{.Name = u"Codigo", .Type = host::type::Integer},
       {.Name = u"Nome", .Type = host::type::WChar, .DefinedSize = 5},
       {.Name = u"Preco", .Type = host::type::Numeric, .Precision = 11, .NumericScale = 2}});
  table_->ChangeWhatIsWritten([](memory::Row& row) { row[1] = RTrim(CStr(row[1])); });
  data_->setRecordSource(QStringLiteral("Produto"));
  show();
  data_->addRow();
  data_->recordSet()->Fields().Item(u"Nome")->Value(u"Davi ");
  data_->recordSet()->Fields().Item(u"Preco")->Value(u"1,239");
  connection_->LoseNextAnswer(true);
  EXPECT_FALSE(data_->saveRow());
  boxes_.takeTexts();
  EXPECT_FALSE(data_->refresh());
  const QStringList texts = boxes_.takeTexts();
  ASSERT_EQ(texts.size(), 1);
  EXPECT_TRUE(texts[0].contains(QStringLiteral("o registro 1 tem os mesmos valores")));
}

TEST_F(RowInDoubt, ARefreshDoesNotRuleOutARowThatTheDatabaseChanged) {
  table_->ChangeWhatIsWritten([](memory::Row& row) { row[1] = UCase(CStr(row[1])); });
  loseNewRow(true);
  EXPECT_FALSE(data_->refresh());
  const QStringList texts = boxes_.takeTexts();
  ASSERT_EQ(texts.size(), 1);
  EXPECT_TRUE(texts[0].contains(QStringLiteral("O banco de dados pode ter gravado outros")));
  EXPECT_EQ(rowsOf(u"DAVI"), 1);
}

TEST_F(RowInDoubt, ADeletionThatIsGivenUpIsReportedAsADeletion) {
  show();
  connection_->LoseNextAnswer(true);
  EXPECT_FALSE(data_->deleteRow());
  boxes_.takeTexts();
  EXPECT_TRUE(data_->cancelRow());
  const QStringList texts = boxes_.takeTexts();
  ASSERT_EQ(texts.size(), 1);
  EXPECT_TRUE(texts[0].startsWith(QStringLiteral("O registro pode ter sido excluído ou não")));
}

TEST_F(RowInDoubt, SavingOrMovingNeverStoresItTwice) {
  loseNewRow(true);
  connection_->Open();
  for (int i = 0; i < 3; ++i) {
    EXPECT_FALSE(data_->saveRow());
    EXPECT_FALSE(data_->moveFirst());
    EXPECT_FALSE(data_->addRow());
  }
  EXPECT_EQ(boxes_.takeTexts().size(), 9);
  EXPECT_EQ(rowsOf(u"Davi"), 1);
  EXPECT_EQ(name(), QStringLiteral("Davi"));
}

TEST_F(RowInDoubt, GivingItUpReportsThatItMayBeStored) {
  for (bool (Adodc::*giveUp)() : {&Adodc::cancelRow, &Adodc::deleteRow}) {
    loseNewRow(true);
    EXPECT_TRUE((data_->*giveUp)());
    const QStringList texts = boxes_.takeTexts();
    ASSERT_EQ(texts.size(), 1);
    EXPECT_TRUE(texts[0].startsWith(QStringLiteral("O registro pode ter sido gravado ou não")));
    EXPECT_FALSE(data_->isEditPending());
    EXPECT_TRUE(data_->refresh());
    EXPECT_EQ(boxes_.takeTexts(), QStringList());
  }
}

TEST_F(RowInDoubt, ARefreshWithoutAServerKeepsTheRowAndItsDoubt) {
  loseNewRow(true);
  connection_->FailNext(HostError(errors::ProviderError, u"no server"));
  EXPECT_FALSE(data_->refresh());
  EXPECT_EQ(name(), QStringLiteral("Davi"));
  EXPECT_TRUE(data_->isEditPending());
  EXPECT_TRUE(data_->recordSet()->IsInDoubt());
  EXPECT_EQ(rowsOf(u"Davi"), 1);
}

TEST_F(DataControl, ASearchGoesToTheFirstRowThatMatches) {
  show();
  data_->moveLast();
  EXPECT_TRUE(data_->findRow(QStringLiteral("Nome = 'Bia'")));
  EXPECT_EQ(name(), QStringLiteral("Bia"));
  EXPECT_FALSE(data_->findRow(QStringLiteral("Nome = 'Zoe'")));
  EXPECT_EQ(name(), QStringLiteral("Bia"));
}

TEST_F(DataControl, ASearchThatCannotBeReadStaysOnTheRow) {
  show();
  data_->moveNext();
  for (const char* criteria : {"Nome ~ 'A'", "Nada = 1", "Codigo like '1%'"}) {
    EXPECT_FALSE(data_->findRow(QLatin1String(criteria)));
    EXPECT_EQ(boxes_.takeTexts().size(), 1) << criteria;
    EXPECT_EQ(data_->recordSet()->AbsolutePosition(), 2);
    EXPECT_EQ(name(), QStringLiteral("Bia"));
  }
}

TEST_F(DataControl, AValueThatTheRowRefusesStopsTheMove) {
  table_->RefuseField(u"Nome", HostError(errors::ProviderError, u"value too long"));
  show();
  second_->setFocus();
  settleEvents();
  type(*window_, QStringLiteral("Outra"));
  EXPECT_FALSE(data_->moveNext());
  EXPECT_EQ(boxes_.takeTexts(), QStringList({"value too long"}));
  EXPECT_EQ(boxes_.boxes()[0].title, QStringLiteral("Erro ao Atualizar o Campo 'txtSegundo'"));
  EXPECT_EQ(second_->text(), QStringLiteral("Outra"));
  EXPECT_EQ(first_->value().toInt(), 1);
  EXPECT_EQ(focusedField(), second_);
}

TEST_F(DataControl, AValueThatTheRowRefusesDoesNotPressTheDefaultButton) {
  int clicks = 0;
  QObject::connect(button_, &QPushButton::clicked, [&] { ++clicks; });
  button_->setDefault(true);
  table_->RefuseField(u"Codigo", HostError(errors::ProviderError, u"out of range"));
  show();
  type(*window_, QStringLiteral("7"));
  press(*window_, Qt::Key_Return);
  EXPECT_EQ(clicks, 0);
  EXPECT_EQ(boxes_.takeTexts(), QStringList({"out of range"}));
}

TEST_F(DataControl, KeysMoveFromAnyWidgetAndKeepTheFocus) {
  show();
  second_->setFocus();
  settleEvents();
  type(*window_, QStringLiteral("Ângela"));
  press(*window_, Qt::Key_PageDown, Qt::AltModifier);
  EXPECT_EQ(name(), QStringLiteral("Bia"));
  EXPECT_EQ(*table_->Rows()[0].Cells[1].TryGet<String>(), u"Ângela");
  EXPECT_EQ(focusedField(), second_);
  press(*window_, Qt::Key_End, Qt::AltModifier);
  EXPECT_EQ(name(), QStringLiteral("Caio"));
  press(*window_, Qt::Key_PageUp, Qt::AltModifier);
  EXPECT_EQ(name(), QStringLiteral("Bia"));
  press(*window_, Qt::Key_Home, Qt::AltModifier);
  EXPECT_EQ(name(), QStringLiteral("Ângela"));
  EXPECT_TRUE(navigation("Próximo").toolTip().contains(QLatin1Char('(')));
}

TEST_F(DataControl, TheProgramMayTakeTheKeysForItself) {
  navigation("Próximo").parentWidget()->setProperty("NavigationKeys", false);
  show();
  second_->setFocus();
  settleEvents();
  press(*window_, Qt::Key_End, Qt::AltModifier);
  EXPECT_EQ(name(), QStringLiteral("Ana"));
  EXPECT_EQ(navigation("Próximo").toolTip(), QStringLiteral("Próximo"));
}

TEST_F(DataControl, WithTwoDataControlsTheKeysMoveTheOneOfTheFocusedField) {
  auto* other = new Adodc;
  other->setObjectName(QStringLiteral("dcOutro"));
  window_->layout()->addWidget(other);
  other->setConnection(connection_);
  other->setRecordSource(QStringLiteral("Cliente"));
  first_->setDataSource(QStringLiteral("dcOutro"));
  show();
  for (int presses = 0; presses < 2; ++presses) press(*window_, Qt::Key_PageDown, Qt::AltModifier);
  EXPECT_EQ(first_->value().toInt(), 3);
  EXPECT_EQ(name(), QStringLiteral("Ana"));
}

TEST_F(DataControl, WithoutRowsTheButtonsAreDisabled) {
  table_->Remove(0), table_->Remove(0), table_->Remove(0);
  EXPECT_FALSE(navigation("Próximo").isEnabled());
  show();
  for (const char* button : {"Primeiro", "Anterior", "Próximo", "Último"})
    EXPECT_FALSE(navigation(button).isEnabled()) << button;
  press(*window_, Qt::Key_PageDown, Qt::AltModifier);
  EXPECT_EQ(moves_, 0);
  EXPECT_TRUE(data_->addRow());
  EXPECT_TRUE(navigation("Próximo").isEnabled());
  EXPECT_TRUE(data_->cancelRow());
  EXPECT_FALSE(navigation("Próximo").isEnabled());
}

using AdodcSignal = void (*)(Adodc*, std::function<void()>);

TEST_F(DataControl, AHandlerMayDestroyTheFormOrTheDataControlAlone) {
  const std::pair<const char*, AdodcSignal> signals_[] = {
      {"moved", [](Adodc* data,
                   auto end) { QObject::connect(data, &Adodc::moved, qApp, [end] { end(); }); }},
      {"leavingRow", [](Adodc* data, auto end) {
         QObject::connect(data, &Adodc::leavingRow, qApp, [end] { end(); });
       }}};
  for (const bool wholeForm : {false, true}) {
    for (const auto& [name, connectTo] : signals_) {
      SCOPED_TRACE(name);
      QPointer<QWidget> form(new QWidget);
      auto* layout = new QVBoxLayout(form);
      QPointer<Adodc> data(new Adodc);
      data->setObjectName(QStringLiteral("dcCliente"));
      data->setConnection(connection_);
      data->setRecordSource(QStringLiteral("Cliente"));
      auto* field = new TsText;
      field->setUsaChecaRelacao(false);
      layout->addWidget(data);
      layout->addWidget(field);
      bind(*field, QStringLiteral("Nome"));
      showActive(*form);
      field->setFocus();
      settleEvents();
      field->setValue(field->text() + QLatin1Char('x'));
      connectTo(data, [&] { wholeForm ? delete form : delete data; });
      press(*form, Qt::Key_PageDown, Qt::AltModifier);
      if (data) click(*data->findChild<QToolButton*>());
      EXPECT_FALSE(data);
      EXPECT_EQ(form.isNull(), wholeForm);
      delete form;
    }
  }
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
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

TEST_F(DataControl, WithoutOneOfItsOwnItUsesTheConnectionOfItsForm) {
  data_->setConnection(nullptr);
  setConnection(*window_, connection_);
  EXPECT_EQ(connectionOf(*window_), connection_);
  EXPECT_TRUE(data_->refresh());
  EXPECT_EQ(data_->connection(), connection_);
}

TEST_F(DataControl, WithoutAConnectionItSaysSo) {
  data_->setConnection(nullptr);
  window_->setProperty("dbForm", {});
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

TEST_F(DataControl, AFormWithoutDbFormReportsTheMissingConnection) {
  first_->setTipoControle(TsText::Browse);
  show();
  ASSERT_EQ(boxes_.boxes().size(), 1u);
  EXPECT_TRUE(boxes_.boxes()[0].text.startsWith(
      QStringLiteral("Não foi Possível Conectar 'dbForm'. Contate Administrador de Sistema.")));
}

TEST_F(DataControl, AMissingDataControlIsReported) {
  first_->setDataSource(QStringLiteral("dcNada"));
  show();
  ASSERT_EQ(boxes_.boxes().size(), 1u);
  const QString text = boxes_.boxes()[0].text;
  EXPECT_TRUE(
      text.startsWith(QStringLiteral("Não foi Possível Localizar o Data Control 'dcNada'.")));
  const QString reason = QStringLiteral("Controle não encontrado: 'dcNada', em DataSource de '") +
                         first_->objectName() + QLatin1Char('\'');
  EXPECT_TRUE(text.contains(reason)) << text.toStdString();
}

TEST_F(DataControl, AControlAddedLaterIsAlsoShown) {
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
