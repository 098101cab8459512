// Up and down in the lists of the SQL wizard's window, by keys.
#include <QPushButton>

#include "tests/qt_dialogs/wizard_window.h"

namespace tessaria::qt::tests {
namespace {

using wizard::Tab;

struct Moves {
  Tab tab;
  const char *list, *up, *down;
};

class WizardMoves : public WizardWindow, public testing::WithParamInterface<Moves> {};

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

INSTANTIATE_TEST_SUITE_P(
    Qt, WizardMoves,
    testing::Values(Moves{Tab::Campos, "lst3CmpSel", "btn3CmpSelSobe", "btn3CmpSelDesce"},
                    Moves{Tab::Campos, "lst3Concatena", "btn3ConcSobe", "btn3ConcDesce"},
                    Moves{Tab::Ordem, "lst5CmpSel", "btn5CmpSobe", "btn5CmpDesce"},
                    Moves{Tab::Where, "lst6CmpSel", "btn6CmpSobe", "btn6CmpDesce"},
                    Moves{Tab::Retorno, "lst7CmpRet", "btn7CmpRetSobe", "btn7CmpRetDesce"}),
    [](const auto& each) { return std::string(each.param.list); });

}  // namespace
}  // namespace tessaria::qt::tests
