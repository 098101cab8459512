// Rows of the wizard's lists.
#include "wizard/list_rows.h"

#include "tests/support/printers.h"
#include "tests/wizard/wizard_fixture.h"

namespace tessaria::test {
namespace {

using wizard::Direction;

class WizardLists : public WizardTest {
 protected:
  WizardLists() {
    for (const auto* text : {u"a", u"b", u"c"}) list.Add(text);
  }
  host::DialogListView& list = Parts().List(u"lst6CmpSel");

  Long NumberOf(const std::function<void()>& body) {
    try {
      body();
    } catch (const HostError& error) {
      return error.Number();
    }
    return 0;
  }
};

TEST_F(WizardLists, ARowMovesByOnePlaceAndStaysSelected) {
  list.Item(2).Selected(true);
  MoveItem(list, Direction::Sobe);
  EXPECT_EQ(RowsOf(u"lst6CmpSel"), (Rows{u"b", u"a", u"c"}));
  EXPECT_EQ(Selected(u"lst6CmpSel"), u"b");
  MoveItem(list, Direction::Desce);
  MoveItem(list, Direction::Desce);
  EXPECT_EQ(RowsOf(u"lst6CmpSel"), (Rows{u"a", u"c", u"b"}));
  EXPECT_EQ(Selected(u"lst6CmpSel"), u"b");
}

TEST_F(WizardLists, NothingMovesBeyondTheEnds) {
  list.Item(1).Selected(true);
  MoveItem(list, Direction::Sobe);
  list.Item(3).Selected(true);
  MoveItem(list, Direction::Desce);
  EXPECT_EQ(RowsOf(u"lst6CmpSel"), (Rows{u"a", u"b", u"c"}));
}

TEST_F(WizardLists, ARowThatMovesKeepsItsTextOnly) {
  host::ListRow& row = list.Item(3);
  row.Tag = u"t";
  row.Checked(true);
  row.AddSubItem(u"=");
  row.Selected(true);
  MoveItem(list, Direction::Sobe);
  const host::ListRow& moved = list.Item(2);
  EXPECT_EQ(moved.Text(), u"c");
  EXPECT_EQ(moved.Tag, u"");
  EXPECT_FALSE(moved.Checked());
  EXPECT_EQ(moved.SubItemCount(), 0);
}

TEST_F(WizardLists, WithoutASelectedRowThereIsNothingToMoveOrRemove) {
  list.Clear();
  EXPECT_EQ(NumberOf([&] { MoveItem(list, Direction::Sobe); }), errors::ObjectNotSet);
  EXPECT_EQ(NumberOf([&] { wizard::RemoveSelected(list); }), errors::ObjectNotSet);
  wizard::SelectFirstVisible(list);
}

TEST_F(WizardLists, ARemovedRowLeavesTheFirstVisibleOneSelected) {
  list.Item(2).Selected(true);
  wizard::RemoveSelected(list);
  EXPECT_EQ(RowsOf(u"lst6CmpSel"), (Rows{u"a", u"c"}));
  EXPECT_EQ(Selected(u"lst6CmpSel"), u"a");
}

TEST_F(WizardLists, CopiesHaveTheTextsOrAllSubItems) {
  list.Item(1).AddSubItem(u"=");
  list.Item(1).AddSubItem(u"txtNome");
  const auto rows = wizard::RowsOf(list);
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[0].Text, u"a");
  EXPECT_EQ(rows[0].SubItems, (std::vector<String>{u"=", u"txtNome"}));
  List(u"lstSel").Add(u"old");
  wizard::CopyTexts(list, List(u"lstSel"));
  EXPECT_EQ(RowsOf(u"lstSel"), (Rows{u"a", u"b", u"c"}));
  EXPECT_EQ(wizard::CheckedRow(list), nullptr);
}

}  // namespace
}  // namespace tessaria::test
