// The lists of the SQL wizard's window and the buttons beside them, by keys: rows that are moved,
// taken out of a long list, or added to one.
#include <QTreeWidget>

#include "tests/qt_dialogs/wizard_window.h"

namespace tessaria::qt::tests {
namespace {

using wizard::Tab;

struct Moves {
  Tab tab;
  const char *list, *up, *down, *takeOut;
};

class WizardLists : public WizardWindow {
 protected:
  static constexpr int kMany = 60;

  /// More rows than the list can show.
  void fill(StringView name) {
    for (int i = 1; i <= kMany; ++i) list(name).Add(u"campo" + fromQt(QString::number(i)));
    settleEvents();
  }
  QTreeWidget& view(const char* name) { return at<QTreeWidget>(*window, QLatin1String(name)); }
  /// The selected row can be seen.
  void expectShown(const char* name) {
    const auto selected = view(name).selectedItems();
    ASSERT_EQ(selected.size(), 1) << name;
    const QRect place = view(name).visualItemRect(selected.first());
    EXPECT_TRUE(view(name).viewport()->rect().contains(place.center())) << name;
  }
};

class WizardMoves : public WizardLists, public testing::WithParamInterface<Moves> {};

TEST_P(WizardMoves, SpacePressesUpAndDown) {
  const Moves& moves = GetParam();
  const String name = fromQt(QString::fromLatin1(moves.list));
  run([&] {
    bringToFront(moves.tab);
    for (const auto* row : {u"um", u"dois", u"tres"}) list(name).Add(row);
    tabTo(moves.list);
    strikeKey(Qt::Key_End);
    pressButton(moves.up);
    EXPECT_EQ(rowsOf(name), (Rows{u"um", u"tres", u"dois"}));
    strikeSpace();
    EXPECT_EQ(rowsOf(name), (Rows{u"tres", u"um", u"dois"})) << "the button keeps the focus";
    strikeSpace();
    EXPECT_EQ(rowsOf(name), (Rows{u"tres", u"um", u"dois"})) << "it is the first";
    pressButton(moves.down);
    EXPECT_EQ(rowsOf(name), (Rows{u"um", u"tres", u"dois"}));
    ASSERT_TRUE(list(name).SelectedItem());
    EXPECT_EQ(list(name).SelectedItem()->Text(), u"tres");
    // A condition that was moved has lost its choices, which each box on the way complains of.
    EXPECT_EQ(boxes_.boxes().empty(), moves.tab != Tab::Where);
    for (const Box& box : boxes_.boxes()) EXPECT_EQ(box.owner, QStringLiteral("frmMontaSql"));
    EXPECT_TRUE(window->isVisible());
  });
}

TEST_P(WizardMoves, AfterARowOfALongListIsTakenOutTheFirstThatIsShownIsSelected) {
  const Moves& moves = GetParam();
  run([&] {
    bringToFront(moves.tab);
    fill(fromQt(QString::fromLatin1(moves.list)));
    tabTo(moves.list);
    strikeKey(Qt::Key_End);
    expectShown(moves.list);
    pressButton(moves.takeOut);
    EXPECT_EQ(view(moves.list).topLevelItemCount(), kMany - 1);
    expectShown(moves.list);
    EXPECT_EQ(view(moves.list).selectedItems().value(0), view(moves.list).itemAt(0, 0));
    EXPECT_NE(view(moves.list).selectedItems().value(0), view(moves.list).topLevelItem(0));
  });
}

struct Adds {
  Tab tab;
  const char *from, *button, *to;
};

TEST_F(WizardLists, ARowThatIsAddedToALongListIsShown) {
  run([&] {
    for (const Adds& adds : {Adds{Tab::Campos, "lst3Cmp", "btn3Concatena", "lst3Concatena"},
                             Adds{Tab::Retorno, "lst7Cmp", "btn7CmpRetInc", "lst7CmpRet"}}) {
      bringToFront(adds.tab);
      fill(fromQt(QString::fromLatin1(adds.from)));
      tabTo(adds.from);
      for (int i = 0; i < kMany; ++i) {
        tabTo(adds.from);
        strikeKey(i == 0 ? Qt::Key_Home : Qt::Key_Down);
        pressButton(adds.button);
      }
      EXPECT_EQ(view(adds.to).topLevelItemCount(), kMany);
      expectShown(adds.to);
      EXPECT_EQ(view(adds.to).selectedItems().value(0), view(adds.to).topLevelItem(kMany - 1));
    }
    EXPECT_THAT(boxes_.takeTexts(), testing::IsEmpty());
  });
}

INSTANTIATE_TEST_SUITE_P(
    Qt, WizardMoves,
    testing::Values(
        Moves{Tab::Campos, "lst3CmpSel", "btn3CmpSelSobe", "btn3CmpSelDesce", "btn3CmpSelExclui"},
        Moves{Tab::Campos, "lst3Concatena", "btn3ConcSobe", "btn3ConcDesce", "btn3ConcExclui"},
        Moves{Tab::Ordem, "lst5CmpSel", "btn5CmpSobe", "btn5CmpDesce", "Btn5Exc"},
        Moves{Tab::Where, "lst6CmpSel", "btn6CmpSobe", "btn6CmpDesce", "btn6CmpExc"},
        Moves{Tab::Retorno, "lst7CmpRet", "btn7CmpRetSobe", "btn7CmpRetDesce", "btn7CmpRetExc"}),
    [](const auto& each) { return std::string(each.param.list); });

}  // namespace
}  // namespace tessaria::qt::tests
