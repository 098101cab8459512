// The SQL wizard over a large database: thousands of tables and hundreds of columns, by keys.
#include <QScrollBar>
#include <QTableView>
#include <QTreeWidget>

#include "tests/qt_dialogs/wizard_at_server.h"

namespace tessaria::qt::tests {
namespace {

using wizard::Tab;

class WizardLarge : public WizardServer {
 protected:
  QTreeWidget& view(const char* name) { return at<QTreeWidget>(*window, QLatin1String(name)); }
  int countOf(const char* name) { return view(name).topLevelItemCount(); }
  /// The selected row, which the list must show.
  QString selectedIn(const char* name) {
    const QTreeWidget& rows = view(name);
    const auto selected = rows.selectedItems();
    if (selected.size() != 1) return {};
    const QRect place = rows.visualItemRect(selected.first());
    EXPECT_TRUE(rows.viewport()->rect().contains(place.center())) << name;
    return selected.first()->text(0);
  }
  QString goBy(int key, const char* name) {
    tabTo(name);
    strikeKey(key);
    return selectedIn(name);
  }
  QString firstVisibleIn(const char* name) { return view(name).itemAt(0, 0)->text(0); }
};

constexpr int kTables = 2000;
const QString kFirstTable = QStringLiteral("tabela0001");
const QString kLastTable = QStringLiteral("tabela2000");

class WizardManyTables : public WizardLarge {
 protected:
  void SetUp() override {
    WizardLarge::SetUp();
    if (IsSkipped()) return;
    server().Run(
        "drop table cliente, cidade; do $$ begin for i in 1..2000 loop"
        " execute format('create table tabela%s (codigo int, nome int)', lpad(i::text, 4, '0'));"
        " end loop; end $$");
  }
};

TEST_F(WizardManyTables, AnyOfThemIsReachedAndPickedByKeys) {
  run([&] {
    connect();
    ASSERT_EQ(countOf("lst1TabTodas"), kTables);
    EXPECT_EQ(goBy(Qt::Key_End, "lst1TabTodas"), kLastTable);
    pressButton("btn1Inc");
    EXPECT_EQ(goBy(Qt::Key_Home, "lst1TabTodas"), kFirstTable);
    pressButton("btn1Inc");
    tabTo("lst1TabTodas");
    strikeKey(Qt::Key_PageDown, 2);
    EXPECT_GT(selectedIn("lst1TabTodas"), QStringLiteral("tabela0010"));
    EXPECT_EQ(rowsOf(u"lst1TabSel"), (Rows{fromQt(kLastTable), fromQt(kFirstTable)}));
  });
}

TEST_F(WizardManyTables, AllOfThemArePickedAndTheLastIsTheMainOne) {
  run([&] {
    connect();
    pressButton("btn1IncTodos");
    EXPECT_EQ(countOf("lst1TabTodas"), 0);
    ASSERT_EQ(countOf("lst1TabSel"), kTables);
    EXPECT_EQ(goBy(Qt::Key_End, "lst1TabSel"), kLastTable);
    strikeSpace();
    strikeKey(Qt::Key_PageDown, 1, Qt::ControlModifier);
    ASSERT_EQ(parts().Tabs().Tab(), static_cast<Long>(Tab::Links));
    tabTo("cmb2TabPai");
    strikeKey(Qt::Key_End);
    EXPECT_EQ(parts().Combo(u"cmb2TabPai").Text(), fromQt(kLastTable));
    EXPECT_EQ(rowsOf(u"lst2CmpPai"), (Rows{u"codigo", u"nome"}));
    EXPECT_THAT(boxes_.takeTexts(), testing::IsEmpty());
  });
}

/// As in a short list, the first row that is shown is selected then.
TEST_F(WizardManyTables, AfterOneOfThemIsTakenBackTheFirstThatIsShownIsSelected) {
  run([&] {
    connect();
    pressButton("btn1IncTodos");
    goBy(Qt::Key_End, "lst1TabSel");
    pressButton("btn1Exc");
    EXPECT_EQ(countOf("lst1TabSel"), kTables - 1);
    EXPECT_EQ(selectedIn("lst1TabSel"), firstVisibleIn("lst1TabSel"));
    EXPECT_NE(selectedIn("lst1TabSel"), kFirstTable);
    EXPECT_EQ(rowsOf(u"lst1TabTodas"), Rows{fromQt(kLastTable)});
  });
}

constexpr int kColumns = 500;
const QString kLastColumn = QStringLiteral("campo500");

class WizardManyColumns : public WizardLarge {
 protected:
  void SetUp() override {
    WizardLarge::SetUp();
    if (IsSkipped()) return;
    server().Run(
        "drop table cliente, cidade; do $$ begin execute (select 'create table larga (' ||"
        " string_agg(format('campo%s int', lpad(i::text, 3, '0')), ', ' order by i) || ')'"
        " from generate_series(1, 500) i); end $$");
  }
  void pickAllFields() {
    tabTo("lst3Cmp");
    for (int i = 0; i < kColumns; ++i) {
      if (i > 0) strikeKey(Qt::Key_Down);
      strikeKey(Qt::Key_Tab);
      strikeSpace();
      strikeKey(Qt::Key_Backtab, 1, Qt::ShiftModifier);
    }
  }
  void retrieveAll() {
    connect();
    pickFirstTable();
    goTo(Tab::Campos);
    hands->Choose(u"cmb3Tab", 0);
    ASSERT_EQ(countOf("lst3Cmp"), kColumns);
    pickAllFields();
    ASSERT_EQ(countOf("lst3CmpSel"), kColumns);
    goTo(Tab::Grid);
    pressButton("btn4Retrieve");
    ASSERT_EQ(parts().Grid().ColumnCount(), kColumns);
  }
};

TEST_F(WizardManyColumns, TheLastOneIsSetOrderedAndReturnedByKeys) {
  run([&] {
    retrieveAll();
    tabTo("cmb4Coluna");
    strikeKey(Qt::Key_End);
    EXPECT_EQ(parts().Box(u"txt4GrdCaption").Text(), fromQt(kLastColumn));
    tabTo("txt4GrdCaption");
    strikeKey(Qt::Key_A, 1, Qt::ControlModifier);
    type(*window, QStringLiteral("Total"));
    EXPECT_EQ(parts().Grid().Column(kColumns - 1).Caption(), u"Total");
    tabTo("grdWizard");
    auto& bar =
        *at(*window, QStringLiteral("grdWizard")).findChild<QTableView*>()->horizontalScrollBar();
    ASSERT_GT(bar.maximum(), 0);
    for (int before = -1; before != bar.value(); strikeKey(Qt::Key_Right)) before = bar.value();
    EXPECT_EQ(bar.value(), bar.maximum());
    goTo(Tab::Ordem);
    EXPECT_EQ(goBy(Qt::Key_End, "lst5CmpTodos"), kLastColumn);
    pressButton("btn5Inc");
    pressButton("btn5IncTodos");
    EXPECT_EQ(rowsOf(u"lst5CmpSel").size(), std::size_t{kColumns});
    goTo(Tab::Retorno);
    EXPECT_EQ(goBy(Qt::Key_End, "lst7Cmp"), kLastColumn);
    pressButton("btn7CmpChaveInc");
    EXPECT_EQ(parts().Box(u"txt7CampoChave").Text(), fromQt(kLastColumn));
    EXPECT_THAT(boxes_.takeTexts(), testing::IsEmpty());
    hands->Mnemonic(u'c');
  });
  EXPECT_EQ(tag, u"Confirmar");
}

}  // namespace
}  // namespace tessaria::qt::tests
