// The items of a record: keys from field to field and row to row, pairs, totals, checks.
#include <QAccessible>
#include <QContextMenuEvent>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <stdexcept>

#include "tests/qt/order_fixture.h"

namespace tessaria::qt::tests {
namespace {

using testing::ElementsAre;

class Items : public OrderFixture {};

TEST_F(Items, ShowsTheItemsOfTheRowAndABlankOne) {
  EXPECT_EQ(grid_->rowCount(), 2);
  EXPECT_EQ(painted(0), "001|Caneta|2,00|1,50|3,00");
  EXPECT_EQ(painted(1), "002|Lápis|10,00|0,80|8,00");
  EXPECT_EQ(grid_->model()->rowCount(), 3);
  EXPECT_EQ(total("quantidade"), "12,00");
  EXPECT_EQ(total("total"), "11,00");
  EXPECT_EQ(grid_->currentRow(), 0);
  EXPECT_EQ(boxOf("produto"), QStringLiteral("001"));
  EXPECT_EQ(boxOf("descricao"), QStringLiteral("Caneta"));
  EXPECT_EQ(boxOf("quantidade"), QStringLiteral("2,00"));
  EXPECT_FALSE(grid_->isChanged());
  EXPECT_FALSE(record_->isChanged());
}

TEST_F(Items, AnotherRowBringsItsItems) {
  EXPECT_TRUE(record_->moveNext());
  settleEvents();
  EXPECT_EQ(grid_->rowCount(), 0);
  EXPECT_TRUE(grid_->isEmpty());
  EXPECT_EQ(boxOf("produto"), QStringLiteral("___"));
  EXPECT_EQ(total("total"), "0,00");
  EXPECT_TRUE(record_->movePrevious());
  EXPECT_EQ(grid_->rowCount(), 2);
}

TEST_F(Items, TabGoesFromFieldToFieldFromRowToRowAndOut) {
  std::vector<std::string> way;
  for (int i = 0; i < 14; ++i) {
    key(Qt::Key_Tab);
    way.push_back(focus() + std::to_string(grid_->currentRow()));
  }
  EXPECT_THAT(way, ElementsAre("produto0", "descricao0", "quantidade0", "preco0", "produto1",
                               "descricao1", "quantidade1", "preco1", "produto2", "descricao2",
                               "quantidade2", "preco2", "btnSalvar2", "numero2"));
  EXPECT_FALSE(record_->isChanged());
}

TEST_F(Items, ShiftTabGoesBackTheSameWay) {
  go(save_);
  std::vector<std::string> way;
  for (int i = 0; i < 5; ++i) {
    key(Qt::Key_Backtab, Qt::ShiftModifier);
    way.push_back(focus() + std::to_string(grid_->currentRow()));
  }
  EXPECT_THAT(way, ElementsAre("preco0", "quantidade0", "descricao0", "produto0", "cliente0"));
  go(cell("produto"));
  key(Qt::Key_Down);
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(focus() + std::to_string(grid_->currentRow()), "preco0");
}

TEST_F(Items, EnterGoesOnAsTabDoes) {
  go(cell("preco"));
  key(Qt::Key_Return);
  EXPECT_EQ(focus(), "produto");
  EXPECT_EQ(grid_->currentRow(), 1);
}

TEST_F(Items, UpAndDownKeepTheColumn) {
  go(cell("quantidade"));
  key(Qt::Key_Down);
  EXPECT_EQ(focus() + std::to_string(grid_->currentRow()), "quantidade1");
  EXPECT_EQ(boxOf("quantidade"), QStringLiteral("10,00"));
  key(Qt::Key_Down);
  EXPECT_EQ(grid_->currentRow(), 2);
  key(Qt::Key_Down);
  EXPECT_EQ(grid_->currentRow(), 2);
  key(Qt::Key_Up, Qt::ControlModifier);
  EXPECT_EQ(grid_->currentRow(), 0);
  key(Qt::Key_Up);
  EXPECT_EQ(grid_->currentRow(), 0);
  key(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(grid_->currentRow(), 2);
  EXPECT_EQ(focus(), "quantidade");
}

TEST_F(Items, WhatIsEnteredInTheBlankRowIsANewItem) {
  go(cell("produto"));
  key(Qt::Key_Down, Qt::ControlModifier);
  write("003");
  key(Qt::Key_Tab);
  EXPECT_EQ(grid_->rowCount(), 3);
  EXPECT_EQ(boxOf("descricao"), QStringLiteral("Régua"));
  key(Qt::Key_Tab);
  write("4");
  key(Qt::Key_Tab);
  write("2,5");
  key(Qt::Key_Tab);
  EXPECT_EQ(painted(2), "003|Régua|4,00|2,50|10,00");
  EXPECT_EQ(total("total"), "21,00");
  EXPECT_EQ(grid_->currentRow(), 3);
  EXPECT_EQ(focus(), "produto");
  EXPECT_TRUE(record_->isChanged());
  save();
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  EXPECT_EQ(stored(), "1:001 2.00 1.50, 2:002 10.00 0.80, 3:003 4.00 2.50");
  EXPECT_FALSE(record_->isChanged());
}

TEST_F(Items, ADescriptionBringsItsCode) {
  go(cell("produto"));
  key(Qt::Key_Down, Qt::ControlModifier);
  key(Qt::Key_Tab);
  write("lá");
  EXPECT_EQ(boxOf("descricao"), QStringLiteral("Lápis"));
  key(Qt::Key_Tab);
  EXPECT_EQ(boxOf("produto"), QStringLiteral("002"));
  EXPECT_EQ(painted(2).substr(0, 4), "002|");
}

TEST_F(Items, ARowThatIsLeftAsBlankAsItWasIsNone) {
  go(cell("produto"));
  key(Qt::Key_Down, Qt::ControlModifier);
  write("003");
  key(Qt::Key_Tab);
  EXPECT_EQ(grid_->rowCount(), 3);
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  editOf(*cell("produto"))->selectAll();
  key(Qt::Key_Delete);
  key(Qt::Key_Up);
  EXPECT_EQ(grid_->rowCount(), 2);
  EXPECT_EQ(grid_->currentRow(), 1);
  EXPECT_FALSE(record_->isChanged());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(Items, AnyNumberOfItems) {
  go(cell("produto"));
  key(Qt::Key_Down, Qt::ControlModifier);
  for (int i = 0; i < 40; ++i) enterRow(i % 2 ? "002" : "003", "1", "2");
  EXPECT_EQ(grid_->rowCount(), 42);
  EXPECT_EQ(total("quantidade"), "52,00");
  // The row that is being entered is on the screen.
  EXPECT_TRUE(grid_->rect().contains(cell("produto")->mapTo(grid_, QPoint(5, 5))));
  save();
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  EXPECT_THAT(stored(), testing::EndsWith("41:003 1.00 2.00, 42:002 1.00 2.00"));
}

// --- Changes

TEST_F(Items, AChangeIsSavedWithTheRow) {
  go(cell("quantidade"));
  key(Qt::Key_Down);
  write("7");
  EXPECT_TRUE(record_->isChanged());  // also before it is settled
  save();
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  EXPECT_EQ(stored(), "1:001 2.00 1.50, 2:002 7.00 0.80");
  EXPECT_EQ(grid_->currentRow(), 1);
  EXPECT_FALSE(grid_->isChanged());
  EXPECT_FALSE(data_->isEditPending());
  EXPECT_FALSE(record_->isChanged());
}

TEST_F(Items, TheSameTextIsNoChange) {
  go(cell("quantidade"));
  write("2");
  key(Qt::Key_Tab);
  EXPECT_FALSE(record_->isChanged());
}

TEST_F(Items, AMoveSavesWhatIsBeingTyped) {
  go(cell("quantidade"));
  write("5");
  EXPECT_TRUE(record_->moveNext());
  settleEvents();
  EXPECT_EQ(stored(), "1:001 5.00 1.50, 2:002 10.00 0.80");
  EXPECT_EQ(grid_->rowCount(), 0);
}

TEST_F(Items, ARowThatNobodyTouchedIsLeftWithoutAnyCheck) {
  int checks = 0;
  record_->setCheck([&]() -> std::optional<RecordForm::Refusal> {
    ++checks;
    return {};
  });
  go(cell("quantidade"));
  key(Qt::Key_Down);
  key(Qt::Key_Up);
  EXPECT_FALSE(record_->isChanged());
  EXPECT_TRUE(record_->moveNext());
  EXPECT_TRUE(record_->movePrevious());
  EXPECT_EQ(checks, 0);
}

TEST_F(Items, UndoReadsTheItemsAgain) {
  go(cell("quantidade"));
  write("5");
  key(Qt::Key_Down);
  grid_->removeRow(0);
  boxes_.willPress(QStringLiteral("Sim"));
  EXPECT_TRUE(record_->undo());
  settleEvents();
  EXPECT_EQ(grid_->rowCount(), 2);
  EXPECT_EQ(painted(0), "001|Caneta|2,00|1,50|3,00");
  EXPECT_FALSE(record_->isChanged());
  EXPECT_EQ(stored(), "1:001 2.00 1.50, 2:002 10.00 0.80");
}

TEST_F(Items, CtrlDeleteRemovesARowAfterAQuestion) {
  go(cell("quantidade"));
  key(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(boxes_.takeTexts(), QStringList{QStringLiteral("Remover o item 1?")});
  EXPECT_EQ(grid_->rowCount(), 2);  // No is the default
  boxes_.willPress(QStringLiteral("Sim"));
  key(Qt::Key_Delete, Qt::ControlModifier);
  EXPECT_EQ(grid_->rowCount(), 1);
  EXPECT_EQ(boxOf("produto"), QStringLiteral("002"));
  EXPECT_EQ(total("total"), "8,00");
  save();
  EXPECT_EQ(stored(), "2:002 10.00 0.80");
  // A new item follows the greatest number.
  go(cell("produto"));
  key(Qt::Key_Down, Qt::ControlModifier);
  enterRow("001", "1", "1");
  save();
  EXPECT_EQ(stored(), "2:002 10.00 0.80, 3:001 1.00 1.00");
}

TEST_F(Items, ANewRowGetsItsItems) {
  EXPECT_TRUE(record_->addRow());
  settleEvents();
  EXPECT_TRUE(grid_->isEmpty());
  go(number_);
  write("3");
  key(Qt::Key_Tab);
  write("Caio");
  key(Qt::Key_Tab);
  enterRow("001", "2", "1,5");
  enterRow("001", "3", "1,5");
  save();
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  EXPECT_EQ(stored(3), "1:001 2.00 1.50, 2:001 3.00 1.50");
}

// --- Checks

TEST_F(Items, AFieldThatRefusesKeepsTheRow) {
  go(cell("produto"));
  write("999");
  key(Qt::Key_Down);
  EXPECT_EQ(grid_->currentRow(), 0);
  EXPECT_EQ(focus(), "produto");
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
}

TEST_F(Items, ARequiredFieldKeepsTheRowAndTheSave) {
  go(cell("quantidade"));
  key(Qt::Key_Down, Qt::ControlModifier);
  write("5");
  key(Qt::Key_Up);
  EXPECT_EQ(grid_->currentRow(), 2);
  EXPECT_EQ(focus(), "produto");
  const QStringList refusal{"Produto: Não Pode Ser Branco, Verifique Por Favor"};
  EXPECT_EQ(boxes_.takeTexts(), refusal) << "by the caption of the column";
  save();
  EXPECT_EQ(focus(), "produto");
  EXPECT_EQ(boxes_.takeTexts(), refusal);
  EXPECT_EQ(stored(), "1:001 2.00 1.50, 2:002 10.00 0.80");
  EXPECT_EQ(boxOf("quantidade"), QStringLiteral("5,00"));
}

TEST_F(Items, TheProgramsCheckNamesTheColumn) {
  grid_->setRowCheck([](const ItemRow& row) -> std::optional<ItemGrid::Refusal> {
    if (row.number("quantidade") > 0) return {};
    return ItemGrid::Refusal{"quantidade", "Falta a quantidade."};
  });
  go(cell("produto"));
  key(Qt::Key_Down, Qt::ControlModifier);
  write("003");
  key(Qt::Key_Up);
  EXPECT_EQ(boxes_.takeTexts(), QStringList{QStringLiteral("Falta a quantidade.")});
  EXPECT_EQ(grid_->currentRow(), 2);
  EXPECT_EQ(focus(), "quantidade");
  go(client_);  // the rest of the form may be filled in first
  save();
  EXPECT_EQ(boxes_.takeTexts(), QStringList{QStringLiteral("Falta a quantidade.")});
  EXPECT_EQ(focus(), "quantidade");
}

TEST_F(Items, ACheckThatThrowsRefuses) {
  grid_->setRowCheck([](const ItemRow& row) -> std::optional<ItemGrid::Refusal> {
    row.value("nenhuma");
    return {};
  });
  go(cell("quantidade"));
  write("3");
  key(Qt::Key_Down);
  EXPECT_EQ(grid_->currentRow(), 0);
  ASSERT_EQ(boxes_.boxes().size(), 1U);
  EXPECT_THAT(boxes_.boxes()[0].text.toStdString(),
              testing::HasSubstr("A grade não tem a coluna \"nenhuma\"."));
}

TEST_F(Items, WhatTheDatabaseRefusesStays) {
  go(cell("quantidade"));
  write("0");
  save();
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
  EXPECT_EQ(stored(), "1:001 2.00 1.50, 2:002 10.00 0.80");
  EXPECT_EQ(boxOf("quantidade"), QStringLiteral("0,00"));
  EXPECT_TRUE(record_->isChanged());
  go(cell("quantidade"));
  write("9");
  save();
  EXPECT_EQ(stored(), "1:001 9.00 1.50, 2:002 10.00 0.80");
}

// --- Other users

TEST_F(Items, AnotherUsersItemsAreNotOverwrittenUnasked) {
  asAnotherUser(u"update itens set quantidade = 50 where pedido = 1 and item = 2");
  go(cell("quantidade"));
  write("9");
  save();
  EXPECT_THAT(boxes_.takeTexts().join(QString()).toStdString(),
              testing::HasSubstr("Outro usuário alterou os itens depois que foram lidos."));
  EXPECT_EQ(stored(), "1:001 2.00 1.50, 2:002 50.00 0.80");
  EXPECT_EQ(painted(0), "001|Caneta|9,00|1,50|13,50");
}

/// With a version column the operator is asked, and "Gravar" stores what is on the form.
TEST_F(Items, TheOperatorDecidesWhoseItemsAreStored) {
  asAnotherUser(u"update pedidos set versao = versao + 1 where numero = 1");
  asAnotherUser(u"update itens set quantidade = 50 where pedido = 1 and item = 2");
  asAnotherUser(u"insert into itens values (1, 3, '003', 1, 1)");
  go(cell("quantidade"));
  write("9");
  inTheNext([](QDialog& window) { window.reject(); });
  save();
  EXPECT_EQ(stored(), "1:001 2.00 1.50, 2:002 50.00 0.80, 3:003 1.00 1.00");
  EXPECT_EQ(painted(0), "001|Caneta|9,00|1,50|13,50");
  inTheNext([](QDialog& window) { window.findChild<QPushButton*>("btnGravar")->click(); });
  save();
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  EXPECT_EQ(stored(), "1:001 9.00 1.50, 2:002 10.00 0.80");
  EXPECT_FALSE(record_->isChanged());
}

TEST_F(Items, AnOrderThatIsDeletedMeanwhileIsSavedAsANewOne) {
  asAnotherUser(u"delete from pedidos where numero = 1");
  go(cell("quantidade"));
  write("9");
  boxes_.willPress(QStringLiteral("Gravar como novo"));
  save();
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
  EXPECT_EQ(stored(), "1:001 9.00 1.50, 2:002 10.00 0.80");
  EXPECT_FALSE(record_->isChanged());
}

/// An empty grid that stands for items nobody has read must not be stored.
TEST_F(Items, ItemsThatCouldNotBeReadAreNotOverwritten) {
  EXPECT_TRUE(record_->moveNext());
  asAnotherUser(u"alter table itens rename to itens_ausentes");
  EXPECT_TRUE(record_->movePrevious());
  settleEvents();
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
  EXPECT_TRUE(grid_->isEmpty());
  asAnotherUser(u"alter table itens_ausentes rename to itens");
  go(client_);
  write("Outra");
  save();
  EXPECT_THAT(boxes_.takeTexts().join(QString()).toStdString(),
              testing::HasSubstr("Os itens não puderam ser lidos e não serão gravados."));
  EXPECT_EQ(stored(), "1:001 2.00 1.50, 2:002 10.00 0.80");
  boxes_.willPress(QStringLiteral("Sim"));
  EXPECT_TRUE(record_->undo());
  EXPECT_EQ(grid_->rowCount(), 2);
}

TEST_F(Items, ALostConnectionLosesNothing) {
  go(cell("quantidade"));
  write("9");
  key(Qt::Key_Tab);
  proxy_->CutNow();
  save();
  EXPECT_EQ(painted(0), "001|Caneta|9,00|1,50|13,50");
  EXPECT_TRUE(record_->isChanged());
  EXPECT_EQ(stored(), "1:001 2.00 1.50, 2:002 10.00 0.80");
}

/// The answer to the commit is lost, and the items were stored: saving again stores nothing twice.
TEST_F(Items, AfterAnAnswerThatWasLostNothingIsStoredTwice) {
  go(cell("produto"));
  key(Qt::Key_Down, Qt::ControlModifier);
  enterRow("003", "4", "2,5");
  proxy_->CutAt(Side::Server, {"COMMIT"});
  save();
  EXPECT_EQ(stored(), "1:001 2.00 1.50, 2:002 10.00 0.80, 3:003 4.00 2.50");
  EXPECT_TRUE(record_->isChanged());
  boxes_.takeTexts();
  boxes_.willPress(QStringLiteral("Sim"));
  boxes_.willPress(QStringLiteral("Sim"));
  save();
  EXPECT_EQ(stored(), "1:001 2.00 1.50, 2:002 10.00 0.80, 3:003 4.00 2.50");
  EXPECT_FALSE(record_->isChanged()) << boxes_.takeTexts().join(QLatin1Char('|')).toStdString();
}

TEST_F(Items, PageDownOpensTheListOfACell) {
  go(cell("produto"));
  key(Qt::Key_Down, Qt::ControlModifier);
  inTheNext([](QDialog& list) {
    press(list, Qt::Key_End);
    settleEvents();
    press(list, Qt::Key_Return);
  });
  key(Qt::Key_PageDown);
  EXPECT_EQ(focus(), "produto");
  EXPECT_NE(boxOf("produto"), QString());
  EXPECT_NE(boxOf("descricao"), QString());
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

// --- The mouse

TEST_F(Items, AClickGoesToACell) {
  const QModelIndex at = grid_->model()->index(1, 2);
  QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, view().visualRect(at).center());
  settleEvents();
  EXPECT_EQ(grid_->currentRow(), 1);
  EXPECT_EQ(focus(), "quantidade");
}

TEST_F(Items, AClickOnTheNumberGoesToTheRow) {
  const QHeaderView& rows = *view().verticalHeader();
  const QPoint at(3, rows.sectionViewportPosition(1) + 5);
  QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, at);
  settleEvents();
  EXPECT_EQ(grid_->currentRow(), 1);
  EXPECT_EQ(focus(), "produto");
}

TEST_F(Items, AClickIsRefusedWithTheRow) {
  go(cell("produto"));
  write("999");
  const QModelIndex at = grid_->model()->index(1, 2);
  QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, view().visualRect(at).center());
  settleEvents();
  EXPECT_EQ(grid_->currentRow(), 0);
  EXPECT_EQ(focus(), "produto");
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
}

TEST_F(Items, TheMenuRemovesARow) {
  go(cell("produto"));
  boxes_.willPress(QStringLiteral("Sim"));
  QTimer::singleShot(50, grid_, [] {
    auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->actions().first()->text(), QStringLiteral("&Remover item"));
    QTest::keyClick(menu, Qt::Key_R);
  });
  const QPoint at = view().visualRect(grid_->model()->index(1, 0)).center();
  QContextMenuEvent event(QContextMenuEvent::Mouse, at, view().viewport()->mapToGlobal(at));
  QApplication::sendEvent(view().viewport(), &event);
  settleEvents();
  EXPECT_EQ(boxes_.takeTexts(), QStringList{QStringLiteral("Remover o item 2?")});
  EXPECT_EQ(grid_->rowCount(), 1);
}

TEST_F(Items, TheWheelScrollsTheRowsAndTheNextKeyComesBack) {
  for (int i = 0; i < 30; ++i)
    grid_->appendRow(
        {{QStringLiteral("produto"), QStringLiteral("001")}, {QStringLiteral("quantidade"), 1}});
  go(cell("produto"));
  QWheelEvent wheel(QPointF(5, 5), cell("produto")->mapToGlobal(QPointF(5, 5)), {}, {0, -1200},
                    Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(grid_, &wheel);  // where the fields let it go
  settleEvents();
  EXPECT_GT(view().verticalScrollBar()->value(), 0);
  EXPECT_FALSE(grid_->rect().intersects(
      QRect(cell("produto")->mapTo(grid_, QPoint()), cell("produto")->size())));
  EXPECT_EQ(focus(), "produto");  // out of sight, and not lost
  key(Qt::Key_Down);
  EXPECT_EQ(grid_->currentRow(), 1);
  EXPECT_TRUE(grid_->rect().contains(cell("produto")->mapTo(grid_, QPoint(5, 5))));
}

TEST_F(Items, NumbersStayAtTheRightWhileOneIsEntered) {
  const auto alignment = [&] {
    return view().model()->headerData(2, Qt::Horizontal, Qt::TextAlignmentRole).toInt() &
           int(Qt::AlignHorizontal_Mask);
  };
  EXPECT_EQ(alignment(), int(Qt::AlignRight));
  go(cell("quantidade"));
  EXPECT_EQ(alignment(), int(Qt::AlignRight));
}

TEST_F(Items, TheLineFollowsTheColumns) {
  view().horizontalHeader()->resizeSection(0, 200);
  settleEvents();
  EXPECT_EQ(cell("produto")->width(), 200);
  EXPECT_EQ(cell("descricao")->x(), 200);
}

// --- The program

TEST_F(Items, TheProgramReadsAndWritesRows) {
  EXPECT_EQ(grid_->value(1, QStringLiteral("PRODUTO")).toString(), QStringLiteral("002"));
  EXPECT_EQ(grid_->total(QStringLiteral("total")), 11);
  grid_->setValue(1, QStringLiteral("quantidade"), 1);
  EXPECT_EQ(total("total"), "3,80");
  grid_->setValue(0, QStringLiteral("produto"), QStringLiteral("003"));
  EXPECT_EQ(boxOf("descricao"), QStringLiteral("Régua"));
  grid_->appendRow({{QStringLiteral("produto"), QStringLiteral("002")},
                    {QStringLiteral("quantidade"), 2},
                    {QStringLiteral("preco"), 0.5}});
  EXPECT_TRUE(record_->save());
  EXPECT_EQ(stored(), "1:003 2.00 1.50, 2:002 1.00 0.80, 3:002 2.00 0.50");
}

TEST_F(Items, BadNamesAndRowsAreErrors) {
  const auto number = [](auto&& call) {
    try {
      call();
    } catch (const HostError& error) {
      return error.Number();
    }
    return Long{0};
  };
  const QString none = QStringLiteral("nenhuma"), product = QStringLiteral("produto");
  EXPECT_EQ(number([&] { grid_->value(0, none); }), 5);
  EXPECT_EQ(number([&] { grid_->value(2, product); }), 9);
  EXPECT_EQ(number([&] { grid_->setValue(0, QStringLiteral("total"), 1); }), 5);
  EXPECT_EQ(number([&] { grid_->appendRow({{none, 1}}); }), 5);
  EXPECT_EQ(number([&] { grid_->removeRow(-1); }), 9);
  EXPECT_EQ(number([&] { grid_->total(none); }), 5);
  EXPECT_EQ(number([&] { grid_->setSettings(items()); }), 5);
  EXPECT_EQ(number([&] { ItemGrid grid{ItemSettings{}}; }), 5);
  EXPECT_EQ(grid_->field(none), nullptr);
  EXPECT_FALSE(grid_->goTo(7));
  EXPECT_EQ(grid_->rowCount(), 2);
}

TEST_F(Items, RowsHaveNamesForScreenReaders) {
  EXPECT_EQ(editOf(*cell("produto"))->accessibleName(), QStringLiteral("Item 1: Produto"));
  EXPECT_EQ(editOf(*cell("descricao"))->accessibleName(), QStringLiteral("Item 1: Descrição"));
  go(cell("produto"));
  key(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(editOf(*cell("produto"))->accessibleName(), QStringLiteral("Item novo: Produto"));
  EXPECT_EQ(grid_->findChild<QLabel*>(QStringLiteral("total_total"))->accessibleName(),
            QStringLiteral("Soma de Total: 11,00"));
}

TEST_F(Items, ScreenReadersTellTheRowsApart) {
  QAccessibleTableInterface* const table =
      QAccessible::queryAccessibleInterface(&view())->tableInterface();
  ASSERT_NE(table, nullptr);
  const auto name = [table](int row, int column) {
    return table->cellAt(row, column)->text(QAccessible::Name);
  };
  EXPECT_EQ(name(0, 0), QStringLiteral("Item 1 Produto: 001"));
  EXPECT_EQ(name(1, 0), QStringLiteral("Item 2 Produto: 002"));
  EXPECT_EQ(name(1, 2), QStringLiteral("Item 2 Quantidade: 10,00"));
  auto* const total = grid_->findChild<QLabel*>(QStringLiteral("total_total"));
  EXPECT_EQ(QAccessible::queryAccessibleInterface(total)->text(QAccessible::Name),
            QStringLiteral("Soma de Total: 11,00"));
}

// --- Numbers that the database gives

class GeneratedItems : public OrderFixture {
 protected:
  ItemSettings items() const override {
    ItemSettings settings = OrderFixture::items();
    settings.table = u"itens_gerados";
    settings.number = u"id";
    settings.isNumberGenerated = true;
    settings.columns[2].initial = 1;
    return settings;
  }
  std::string generated() { return stored(1, u"id", u"itens_gerados"); }
};

TEST_F(GeneratedItems, AreReadAndSavedUnderTheirNumbers) {
  EXPECT_EQ(painted(0), "003|Régua|1,00|0,00|0,00");
  go(cell("produto"));
  key(Qt::Key_Down, Qt::ControlModifier);
  EXPECT_EQ(boxOf("quantidade"), QStringLiteral("1,00"));  // as every new row begins
  enterRow("001", "2", "1,5");
  save();
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
  EXPECT_EQ(generated(), "1:003 1.00 0, 2:001 2.00 1.50");
  EXPECT_FALSE(record_->isChanged());
  go(cell("quantidade"));
  key(Qt::Key_Up);
  write("4");
  save();
  EXPECT_EQ(generated(), "1:003 1.00 0, 2:001 4.00 1.50");
}

TEST_F(GeneratedItems, AreNotStoredTwiceAfterAnAnswerThatWasLost) {
  go(cell("produto"));
  key(Qt::Key_Down, Qt::ControlModifier);
  enterRow("001", "2", "1,5");
  proxy_->CutAt(Side::Server, {"COMMIT"});
  save();
  EXPECT_EQ(generated(), "1:003 1.00 0, 2:001 2.00 1.50");
  boxes_.willPress(QStringLiteral("Sim"));
  boxes_.willPress(QStringLiteral("Sim"));
  save();
  EXPECT_EQ(generated(), "1:003 1.00 0, 2:001 2.00 1.50");
  EXPECT_FALSE(record_->isChanged());
}

TEST_F(GeneratedItems, ARowWithNothingButItsInitialValuesIsNone) {
  go(cell("produto"));
  key(Qt::Key_Down, Qt::ControlModifier);
  key(Qt::Key_Up);
  EXPECT_EQ(grid_->rowCount(), 1);
  EXPECT_FALSE(record_->isChanged());
}

}  // namespace
}  // namespace tessaria::qt::tests
