// The keys of the list.
#include "tests/browse/grid_fixture.h"
#include "tests/support/faulty_rows.h"

namespace tessaria::test {
namespace {

using memory::Key;
using testing::ElementsAre;
using testing::IsEmpty;
namespace modifier = memory::modifier;

class GridKeys : public GridForm {
 protected:
  /// The menu entry that a key clicks: a search opens a prompt, the last entry fetches; 0 for none.
  Long EntryOf(Integer code, Integer shift) {
    connection->TakeStatements();
    const auto prompts =
        PromptsOf([&](memory::Dialog& shown) { shown.Press(static_cast<Key>(code), shift); });
    if (!connection->TakeStatements().empty()) return Bar().MenuCount();
    if (prompts.empty()) return 0;
    return CLng(Variant(prompts.front().substr(String(u"Pesquisa Busca ").size())));
  }
  /// The row to which a typed text leads, starting from a row.
  Long RowAfter(StringView keys, Long from) {
    Long row = 0;
    form.dcBrowse->AbsolutePosition(from);
    Show([&](memory::Dialog& shown) {
      shown.Type(keys);
      row = form.dcBrowse->AbsolutePosition();
      shown.CloseWindow();
    });
    return row;
  }
};

TEST_F(GridKeys, TheKeysOfAnEntryByItsPosition) {
  const StringView keys[] = {u"",
                             u"F2, Ctrl+1",
                             u"F3, Ctrl+2",
                             u"F4, Ctrl+3",
                             u"F6, Ctrl+4",
                             u"F7, Ctrl+5",
                             u"F8, Ctrl+6",
                             u"F9, Ctrl+7",
                             u"F10, Ctrl+8",
                             u"F11, Ctrl+9",
                             u"F12",
                             u"",
                             u""};
  for (std::size_t position = 0; position < std::size(keys); ++position)
    EXPECT_EQ(frmBrowse::MenuShortcuts(static_cast<Long>(position)), keys[position]) << position;
}

TEST_F(GridKeys, ControlAndADigitClickAnEntryFromAnywhere) {
  AddSearches(10);
  Connect();
  for (Integer code = 49; code <= 57; ++code)
    EXPECT_EQ(EntryOf(code, modifier::Control), code - 48);
  EXPECT_EQ(EntryOf(48, modifier::Control), 0);
  EXPECT_EQ(EntryOf(58, modifier::Control), 0);
  EXPECT_EQ(EntryOf(49, modifier::None), 0);
  EXPECT_EQ(EntryOf(49, modifier::Control | modifier::Shift), 0);
  EXPECT_THAT(PromptsOf([](memory::Dialog& shown) {
                shown.FocusOn(u"btnVoltar");
                shown.Press(static_cast<Key>(50), modifier::Control);
              }),
              ElementsAre(u"Pesquisa Busca 2"));
}

TEST_F(GridKeys, FunctionKeysClickAnEntryFromTheGrid) {
  AddSearches(12);
  Connect();
  const struct {
    Integer Code;
    Long Position;
  } keys[] = {{112, 0}, {113, 1}, {114, 2}, {115, 3}, {116, 0},  {117, 4}, {118, 5},
              {119, 6}, {120, 7}, {121, 8}, {122, 9}, {123, 10}, {124, 0}};
  for (const auto& key : keys) {
    EXPECT_EQ(EntryOf(key.Code, modifier::None), key.Position) << key.Code;
    for (const Integer held : {modifier::Shift, modifier::Alt,
                               static_cast<Integer>(modifier::Control | modifier::Shift)})
      EXPECT_EQ(EntryOf(key.Code, held), key.Position) << key.Code << " " << held;
    EXPECT_EQ(EntryOf(key.Code, modifier::Control), 0) << key.Code;
  }
  EXPECT_THAT(PromptsOf([](memory::Dialog& shown) {
                shown.FocusOn(u"btnVoltar");
                shown.Press(static_cast<Key>(113));
              }),
              IsEmpty());
}

TEST_F(GridKeys, TheSeparatorCountsInThePositions) {
  AddSearches(1);
  Connect();
  EXPECT_EQ(EntryOf(49, modifier::Control), 1);
  EXPECT_EQ(EntryOf(50, modifier::Control), 0);  // the separator: no search has its number
  EXPECT_EQ(EntryOf(51, modifier::Control), 3);  // all rows
  EXPECT_EQ(EntryOf(52, modifier::Control), 0);
  EXPECT_EQ(EntryOf(114, modifier::None), 0);
  EXPECT_EQ(EntryOf(115, modifier::None), 3);
  EXPECT_EQ(EntryOf(117, modifier::None), 0);
}

TEST_F(GridKeys, TheSeparatorRunsTheSearchThatHasItsPosition) {
  form.Pesquisa = std::make_shared<Pesquisa>();
  for (const Long number : {1, 3})
    form.Pesquisa->Add(number, u"Busca " + CStr(Variant(number)), u"nome", 8, 1, u"", 2000, 0,
                       false, false, 0, 0, u"");
  FillMenu(2);
  Connect();
  EXPECT_EQ(EntryOf(49, modifier::Control), 1);
  EXPECT_EQ(EntryOf(50, modifier::Control), 0);  // no search has the second entry's position
  EXPECT_EQ(EntryOf(51, modifier::Control), 3);
  EXPECT_EQ(EntryOf(115, modifier::None), 3);
  EXPECT_THAT(PromptsOf([](memory::Dialog& shown) { shown.ClickMenu(u"barBrowse", 3); }),
              ElementsAre(u"Pesquisa Busca 3"));
}

TEST_F(GridKeys, WithNoSearchesNoKeyFetchesAllRows) {
  Connect();
  connection->TakeStatements();
  EXPECT_EQ(EntryOf(49, modifier::Control), 0);
  EXPECT_EQ(EntryOf(113, modifier::None), 0);
}

TEST_F(GridKeys, ControlAndPageGoToTheEnds) {
  Connect();
  Show([&](memory::Dialog& shown) {
    shown.Press(Key::PageDown, modifier::Control);
    EXPECT_EQ(form.dcBrowse->AbsolutePosition(), 4);
    shown.Press(Key::PageUp, modifier::Control);
    EXPECT_EQ(form.dcBrowse->AbsolutePosition(), 1);
    EXPECT_EQ(Grid().Looks(), 2);
    shown.Press(Key::PageDown);
    shown.Press(Key::PageDown, modifier::Control | modifier::Shift);
    EXPECT_EQ(form.dcBrowse->AbsolutePosition(), 1);
    shown.CloseWindow();
  });
}

TEST_F(GridKeys, WithoutRowsTheKeysToTheEndsDoNothing) {
  rows.Cells.clear();
  Connect();
  Show([&](memory::Dialog& shown) {
    shown.FocusOn(u"grdBrowse");
    shown.Press(Key::PageDown, modifier::Control);
    shown.Press(Key::PageUp, modifier::Control);
    EXPECT_THAT(shown.UnhandledErrors(), IsEmpty());
    EXPECT_EQ(Grid().Looks(), 0);
    shown.CloseWindow();
  });
}

TEST_F(GridKeys, ALetterOrDigitJumpsToTheFirstRowThatBeginsWithIt) {
  rows = NamesFirst();
  for (const Long type :
       {host::type::VarWChar, host::type::VarChar, host::type::WChar, host::type::Char}) {
    rows.Columns[0].Type = type;
    Connect();
    EXPECT_EQ(RowAfter(u"d", 1), 4);
    EXPECT_EQ(RowAfter(u"D", 5), 4);
    EXPECT_EQ(RowAfter(u"9", 1), 5);
  }
}

TEST_F(GridKeys, EachKeyStartsAgainAtTheTop) {
  rows = NamesFirst();
  Connect();
  EXPECT_EQ(RowAfter(u"bb", 1), 2);
  EXPECT_EQ(RowAfter(u"b", 3), 2);
  EXPECT_EQ(RowAfter(u"da", 1), 1);
}

TEST_F(GridKeys, ALetterThatNoRowBeginsWithChangesNothing) {
  rows = NamesFirst();
  Connect();
  EXPECT_EQ(RowAfter(u"z", 3), 3);
}

TEST_F(GridKeys, OtherCharactersDoNotJump) {
  rows = NamesFirst();
  rows.Cells[0][0] = u"-";
  rows.Cells[1][0] = u"ç";
  Connect();
  EXPECT_EQ(RowAfter(u"-ç_ %", 4), 4);
}

TEST_F(GridKeys, AFirstFieldThatIsNotATextDoesNotJump) {
  const struct {
    Long Type;
    Variant First, Second;
  } fields[] = {{host::type::Integer, Long{7}, Long{1}},
                {host::type::Numeric, DecimalFromText(u"7.5"), DecimalFromText(u"1")},
                {host::type::Date, FromCivil({2017, 7, 7}), FromCivil({2016, 1, 1})},
                {host::type::Boolean, true, false}};
  for (const auto& field : fields) {
    rows = {{{u"campo", field.Type}}, {{field.First}, {field.Second}}};
    Connect();
    EXPECT_EQ(RowAfter(u"7aV0", 2), 2);
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// Enter confirms the highlighted row.
TEST_F(GridKeys, AJumpThatTheProviderRefusesKeepsTheRow) {
  rows = {{{u"nome"}}, {{u"Ana"}, {u"Bruno"}}};
  Connect();
  const auto faulty = std::make_shared<FaultyRows>();
  faulty->real = form.dcBrowse;
  faulty->failsFind = true;
  form.dcBrowse = faulty;
  form.dcBrowse->AbsolutePosition(2);
  Show([&](memory::Dialog& shown) {
    shown.Type(u"a");
    EXPECT_EQ(shown.UnhandledErrors().size(), 1u);
    EXPECT_EQ(form.dcBrowse->AbsolutePosition(), 2);
    EXPECT_EQ(Grid().Looks(), 1);
    shown.CloseWindow();
  });
}

TEST_F(GridKeys, AJumpFindsAFieldWhoseNameHasBlanks) {
  rows = {{{u"nome inteiro"}}, {{u"Ana"}, {u"Bruno"}}};
  Connect();
  EXPECT_EQ(RowAfter(u"b", 1), 2);
}

TEST_F(GridKeys, AfterARefusedSearchNoKeyReachesTheHiddenRows) {
  rows = NamesFirst();
  AddSearches(1);
  Connect();
  Show([&](memory::Dialog& shown) {
    RefuseSearch(shown);
    shown.FocusOn(u"grdBrowse");
    shown.Press(Key::PageDown, modifier::Control);
    shown.Type(u"b");
    EXPECT_EQ(form.dcBrowse->AbsolutePosition(), 1);
    shown.Press(Key::Enter);
    EXPECT_TRUE(shown.IsShown());
    EXPECT_THAT(shown.UnhandledErrors(), IsEmpty());
    shown.Press(Key::Escape);
    EXPECT_FALSE(shown.IsShown());
  });
  EXPECT_FALSE(form.lGravar);
}

TEST_F(GridKeys, AnEmptyListDoesNotJump) {
  rows = NamesFirst();
  rows.Cells.clear();
  Connect();
  Show([](memory::Dialog& shown) {
    shown.Type(u"a");
    EXPECT_THAT(shown.UnhandledErrors(), IsEmpty());
    shown.CloseWindow();
  });
}

}  // namespace
}  // namespace tessaria::test
