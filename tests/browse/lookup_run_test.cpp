// The run of a lookup, from the place of its window to the returned key.
#include "browse/lookup_run.h"

#include "tests/browse/run_fixture.h"
#include "tests/support/comma_locale.h"
#include "tests/support/odd_names.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LookupRun : public RunTest {
 protected:
  /// The current row when the list opens.
  Long StartRow(RunArguments& a) {
    Long row = 0;
    Run(a, [&](memory::Dialog& shown) {
      row = shown.Find<host::DataGrid>(u"grdBrowse").DataSource()->AbsolutePosition();
      Leave(shown);
    });
    return row;
  }
  Long StartRow(const Variant& value) {
    RunArguments a;
    a.Value = value;
    return StartRow(a);
  }
  std::vector<String> MenuOfAnyList() {
    std::vector<String> texts;
    RunArguments a;
    Run(a, [&](memory::Dialog& shown) {
      texts = shown.Find<memory::ToolBar>(u"barBrowse").MenuTexts();
      EXPECT_EQ(shown.Find<memory::ToolBar>(u"barBrowse").ButtonEnabled(), !texts.empty());
      Leave(shown);
    });
    return texts;
  }
};

// --- The window ---------------------------------------------------------------------------------

TEST_F(LookupRun, TheTitleIsTheTableUnlessThereIsOne) {
  const auto titleOf = [&](const String& given) {
    String title;
    RunArguments a;
    a.Title = given;
    Run(a, [&](memory::Dialog& shown) {
      title = shown.Find<host::DialogLabel>(u"lblTitulo").Caption();
      Leave(shown);
    });
    return title;
  };
  EXPECT_EQ(titleOf(u""), u"clientes");
  EXPECT_EQ(titleOf(u"Clientes da Loja"), u"Clientes da Loja");
}

TEST_F(LookupRun, TheWindowStaysInsideTheScreenInStepsOfTen) {
  desktop->ScreenSize(12000, 9000);
  desktop->DialogSize(6000, 4000);
  const struct {
    float Top, Left;
    Long ExpectedTop, ExpectedLeft;
  } cases[] = {{1000, 2000, 1000, 2000},
               {4550, 5850, 4550, 5850},
               {4551, 5851, 4541, 5841},
               {6000, 9000, 4550, 5850},
               {6003, 9007, 4543, 5847}};
  for (const auto& c : cases) {
    RunArguments a;
    a.Top = c.Top;
    a.Left = c.Left;
    Run(a, [&](memory::Dialog& shown) {
      EXPECT_EQ(shown.Top(), c.ExpectedTop);
      EXPECT_EQ(shown.Left(), c.ExpectedLeft);
      Leave(shown);
    });
  }
}

TEST_F(LookupRun, TheColumnsAreThoseOfTheDefinition) {
  columns.Add(u"codigo", u"Código", u"000", 900, true);
  columns.Add(u"nome", u"Nome", u"", 3000, true);
  RunArguments a;
  Run(a, [](memory::Dialog& shown) {
    auto& grid = shown.Find<memory::DataGrid>(u"grdBrowse");
    EXPECT_THAT(grid.Captions(), ElementsAre(u"Código", u"Nome", u"cidade"));
    EXPECT_EQ(grid.CellText(0), u"001");
    Leave(shown);
  });
  EXPECT_EQ(columns.Count(), 2);
}

TEST_F(LookupRun, TheBoxIsMarkedAsTheListOpensSoThatItsFieldDoesNotValidate) {
  RunArguments a;
  Run(a, [&](memory::Dialog& shown) {
    EXPECT_EQ(box.Tag, u"Nao Dispara Valida");
    Leave(shown);
  });
  EXPECT_EQ(box.Tag, u"Nao Dispara Valida");
}

// --- The menu -----------------------------------------------------------------------------------

TEST_F(LookupRun, WithNoSearchesTheButtonIsDisabled) {
  EXPECT_THAT(MenuOfAnyList(), IsEmpty());
  searches = nullptr;
  EXPECT_THAT(MenuOfAnyList(), IsEmpty());
}

TEST_F(LookupRun, TheMenuHasTheSearchesASeparatorAndAllRows) {
  AddSearch(1, u"Nome");
  AddSearch(2, u"Cidade");
  EXPECT_THAT(MenuOfAnyList(), ElementsAre(u"Nome", u"Cidade", u"-", u"Traz Todos os Registros"));
}

TEST_F(LookupRun, SearchesOfOneNumberShareAnEntryWhenTheyFollowEachOther) {
  AddSearch(1, u"A");
  AddSearch(1, u"B");
  AddSearch(2, u"C");
  AddSearch(1, u"D");
  RunArguments a;
  Run(a, [](memory::Dialog& shown) {
    auto& bar = shown.Find<memory::ToolBar>(u"barBrowse");
    EXPECT_THAT(bar.MenuTexts(),
                ElementsAre(u"A + B", u"C", u"D", u"-", u"Traz Todos os Registros"));
    EXPECT_EQ(bar.Menu(1).Tag, u"1");
    EXPECT_EQ(bar.Menu(2).Tag, u"2");
    Leave(shown);
  });
}

// Entries from the older text form are numbered by the position of their text's end.
TEST_F(LookupRun, SearchesNumberedByTextPositionsAreListedAndRunNothing) {
  AddSearch(8, u"Nome");
  AddSearch(16, u"Cidade");
  RunArguments a;
  Run(a, [this](memory::Dialog& shown) {
    auto& bar = shown.Find<memory::ToolBar>(u"barBrowse");
    EXPECT_THAT(bar.MenuTexts(), ElementsAre(u"Nome", u"Cidade", u"-", u"Traz Todos os Registros"));
    EXPECT_EQ(bar.Menu(2).Tag, u"16");
    connection->TakeStatements();
    shown.ClickMenu(u"barBrowse", 1);
    shown.ClickMenu(u"barBrowse", 2);
    bar.OnButtonClick();
    EXPECT_THAT(connection->TakeStatements(), IsEmpty());
    Leave(shown);
  });
  EXPECT_EQ(desktop->Shown().size(), 1u);  // no prompt
}

// --- The row to start on
// --------------------------------------------------------------------------

TEST_F(LookupRun, ABlankValueTakesTheKeyOfTheFirstRow) {
  for (const Variant& blank : {Variant(), Variant::Null(), Variant(u"")}) {
    RunArguments a;
    a.Value = blank;
    EXPECT_EQ(StartRow(a), 1);
    EXPECT_EQ(CStr(a.Value), u"1");  // passed by reference: the caller sees the change
  }
}

TEST_F(LookupRun, ANumberIsLookedUpExactly) {
  EXPECT_EQ(StartRow(Variant(Long{15})), 2);
  EXPECT_EQ(StartRow(Variant(7.0)), 3);
  EXPECT_EQ(StartRow(Variant(Long{2})), 1);  // not in the list: opens at the first row
}

TEST_F(LookupRun, ANumberWithDecimalsOrADateIsLookedUpAsItsText) {
  const struct {
    Long Type;
    Variant First, Second;
  } cases[] = {
      {host::type::Double, 1.25, 1.5},
      {host::type::Numeric, DecimalFromText(u"1.25"), DecimalFromText(u"1.5")},
      {host::type::Date, FromCivil({2020, 2, 1}), FromCivil({2020, 1, 2})},
  };
  for (const auto& c : cases) {
    rows = {{{u"codigo", c.Type}}, {{c.First}, {c.Second}}};
    EXPECT_EQ(StartRow(c.Second), 2);
    EXPECT_EQ(StartRow(c.First), 1);
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(LookupRun, NeighbouringNumbersAreDistinguished) {
  const struct {
    Long Type;
    Variant First, Second;
  } cases[] = {
      {host::type::Double, 0.3, 0.1 + 0.2},
      {host::type::Double, 1e15 + 0.125, 1e15 + 0.25},
      {host::type::Double, 1e-7, 1.00000000000001e-7},
      {host::type::Single, 0.3F, 0.30000004F},
      {host::type::Date, FromCivil({2020, 1, 2, 10, 20, 30}), FromCivil({2020, 1, 2, 10, 20, 31})},
      {host::type::Date, FromCivil({1899, 12, 30, 1, 0, 0}), FromCivil({1899, 12, 30, 0, 0, 0})},
      {host::type::Boolean, true, false},
      {host::type::Boolean, false, true},
  };
  for (const auto& c : cases) {
    rows = {{{u"codigo", c.Type}}, {{c.First}, {c.Second}}};
    EXPECT_EQ(StartRow(c.Second), 2) << ToUtf8(CStr(c.Second));
    EXPECT_EQ(StartRow(c.First), 1) << ToUtf8(CStr(c.First));
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(LookupRun, AFieldIsFoundWhateverItsNameContains) {
  for (const StringView name :
       {u"código do cliente", u"a=b", u"a<b", u"[a", u"a\"b", u"a'b", u"like"}) {
    rows = {{{String(name), host::type::Integer}}, {{Long{1}}, {Long{2}}}};
    EXPECT_EQ(StartRow(Variant(Long{2})), 2) << ToUtf8(name);
    rows = {{{String(name)}}, {{u"um"}, {u"dois"}}};
    EXPECT_EQ(StartRow(Variant(u"dois")), 2) << ToUtf8(name);
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(LookupRun, ATextIsLookedUpByItsStart) {
  rows = NamesFirst();
  EXPECT_EQ(StartRow(Variant(u"Br")), 2);
  EXPECT_EQ(StartRow(Variant(u"D'A")), 4);
  EXPECT_EQ(StartRow(Variant(u"Zulmira")), 1);
}

TEST_F(LookupRun, ATextOnANumericKeyIsTheProvidersError) {
  RunArguments a;
  a.Value = Variant(u"15");
  EXPECT_EQ(RunUnseen(a), u"");
  EXPECT_EQ(end, ListEnd::Failed);
  const auto boxes = app.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].Title, u"Erro: 3001 - Função: mdlObjTxt.VerBrowse");
  EXPECT_THAT(desktop->Shown(), IsEmpty());
}

// --- The answer
// -----------------------------------------------------------------------------------

TEST_F(LookupRun, ReturnsTheKeyOfTheChosenRow) {
  RunArguments a;
  EXPECT_EQ(Run(a,
                [](memory::Dialog& shown) {
                  shown.SelectRow(u"grdBrowse", 3);
                  shown.Click(u"btnConfirmar");
                }),
            u"7");
  EXPECT_TRUE(State().vntValorIrmao.IsEmpty());  // cleared, and set for a description only
}

TEST_F(LookupRun, ReturnsAKeyThatIsNotATextAsItsText) {
  const struct {
    Long Type;
    Variant Key;
    StringView Result;
  } cases[] = {{host::type::Double, 1.5, u"1,5"},
               {host::type::Numeric, DecimalFromText(u"12.75"), u"12,75"},
               {host::type::Date, FromCivil({2016, 5, 3}), u"03/05/2016"}};
  for (const auto& c : cases) {
    rows = {{{u"codigo", c.Type}}, {{c.Key}}};
    RunArguments a;
    EXPECT_EQ(Run(a, Confirm), c.Result);
  }
}

TEST_F(LookupRun, AValueThatBeginsWithAWildcardIsFoundByItself) {
  rows = {{{u"nome"}},
          {{u"Ana"}, {u"50%"}, {u"a*15"}, {u"*15"}, {u"%"}, {u"x%y"}, {u"%y"}, {u"*Xis e mais"}}};
  const struct {
    StringView Value, Found;
  } cases[] = {{u"*15", u"*15"}, {u"%", u"%"},     {u"*", u"*15"},
               {u"%y", u"%y"},   {u"50%", u"50%"}, {u"*xis", u"*Xis e mais"},
               {u"*z", u"Ana"},  {u"%%", u"Ana"}};
  for (const auto& c : cases) {
    RunArguments a;
    a.Campo = u"nome";
    a.Value = String(c.Value);
    EXPECT_EQ(Run(a, Confirm), c.Found) << ToUtf8(c.Value);
  }
}

TEST_F(LookupRun, AColumnWithAnyNameIsFoundAndSorted) {
  for (const char16_t* name : kOddNames) {
    SCOPED_TRACE(ToUtf8(name));
    rows = {{{name}, {u"codigo", host::type::Integer}},
            {{u"Bruno", Long{2}}, {u"Carla", Long{3}}, {u"Ana", Long{1}}}};
    RunArguments a;
    a.Value = String(u"Carla");
    EXPECT_EQ(Run(a, Confirm), u"Carla");
    EXPECT_EQ(Run(a,
                  [](memory::Dialog& shown) {
                    shown.ClickHeader(u"grdBrowse", 0);
                    Confirm(shown);
                  }),
              u"Ana");
    EXPECT_EQ(Run(a,
                  [](memory::Dialog& shown) {
                    shown.Type(u"b");
                    Confirm(shown);
                  }),
              u"Bruno");
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(LookupRun, ACancelReturnsTheOldValue) {
  const struct {
    Variant Old;
    StringView Result;
  } cases[] = {{Variant(Long{15}), u"15"},
               {Variant(), u""},
               {Variant::Null(), u""},
               {Variant(1.5), u"1,5"},
               {Variant(Long{99}), u"99"}};
  for (const auto& c : cases) {
    RunArguments a;
    a.Value = c.Old;
    EXPECT_EQ(Run(a, Leave), c.Result);
    EXPECT_EQ(end, ListEnd::NoChoice);
  }
  EXPECT_TRUE(State().vntValorIrmao.IsNull());
}

TEST_F(LookupRun, ACancelReturnsAnOldDateAsItsText) {
  const Date day = FromCivil({2016, 5, 3});
  rows = {{{u"data", host::type::Date}}, {{day}}};
  RunArguments a;
  a.Value = day;
  EXPECT_EQ(Run(a, Leave), u"03/05/2016");
}

TEST_F(LookupRun, EventsAreProcessedOnceAfterTheWindowHoweverItCloses) {
  const struct {
    StringView Button;
    int Pumps;
  } cases[] = {
      {u"", 1}, {u"btnVoltar", 3}, {u"btnConfirmar", 3}};  // a button itself processes events twice
  for (const auto& c : cases) {
    int before = 0;
    RunArguments a;
    Run(a, [&](memory::Dialog& shown) {
      before = app.EventPumps();
      if (c.Button.empty())
        shown.CloseWindow();
      else
        shown.Click(c.Button);
    });
    EXPECT_EQ(app.EventPumps() - before, c.Pumps) << ToUtf8(c.Button);
  }
}

TEST_F(LookupRun, ClosingTheWindowIsACancel) {
  RunArguments a;
  a.Value = Variant(Long{15});
  EXPECT_EQ(Run(a, [](memory::Dialog& shown) { shown.CloseWindow(); }), u"15");
}

TEST_F(LookupRun, ADescriptionLeavesItsKeyAsASqlLiteral) {
  using namespace host;
  const struct {
    Long Type;
    Variant Key;
    Variant Literal;
  } cases[] = {{type::Integer, Variant(Long{15}), Variant(Long{15})},
               {type::Double, Variant(1.5), Variant(1.5)},
               {type::VarWChar, Variant(u"B7"), Variant(u"'B7'")},
               {type::VarWChar, Variant(u"D'A"), Variant(u"'D''A'")},
               {type::VarWChar, Variant::Null(), Variant(u"''")},
               {type::Date, Variant(FromCivil({2016, 5, 3})), Variant(u"'03/05/2016'")}};
  for (const auto& c : cases) {
    rows = {{{u"nome"}, {u"codigo", c.Type}}, {{u"Ana", c.Key}}};
    RunArguments a;
    a.Tipo = TipoControle::Descricao;
    a.Campo = u"nome";
    a.SiblingField = u"codigo";
    EXPECT_EQ(Run(a, Confirm), u"Ana");
    EXPECT_TRUE(Same(State().vntValorIrmao, c.Literal));
  }
}

TEST_F(LookupRun, TheKeyOfEveryKindOfNumberIsANumberAndNullIsNoCondition) {
  const CommaLocale locale;
  const struct {
    std::vector<Long> Types;
    Variant Key;
    StringView Text;
  } kinds[] = {{{17, 18, 19, 21, 16, 128, 2, 3, 20}, Long{7}, u"7"},
               {{139, 131, 4, 5, 14, 6}, 1.5, u"1.5"}};
  for (const auto& kind : kinds) {
    for (const Long type : kind.Types) {
      SCOPED_TRACE(type);
      for (const Variant& key : {kind.Key, Variant::Null()}) {
        rows = {{{u"nome"}, {u"codigo", type}}, {{u"Ana", key}}};
        RunArguments a;
        a.Tipo = TipoControle::Descricao;
        a.Campo = u"nome";
        a.SiblingField = u"codigo";
        EXPECT_EQ(Run(a, Confirm), u"Ana");
        EXPECT_FALSE(State().vntValorIrmao.TryGet<String>());
        EXPECT_EQ(SqlText(State().vntValorIrmao), key.IsNull() ? StringView() : kind.Text);
      }
    }
  }
}

TEST_F(LookupRun, ADescriptionWithoutAKeyFieldLeavesNone) {
  State().vntValorIrmao = u"'12'";
  rows = NamesFirst();
  RunArguments a;
  a.Tipo = TipoControle::Descricao;
  a.Campo = u"nome";
  a.SiblingField = u"";
  EXPECT_EQ(Run(a, Confirm), u"Ana");
  EXPECT_TRUE(State().vntValorIrmao.IsEmpty());
}

TEST_F(LookupRun, ASiblingFieldIsLookedUpByItsBareName) {
  const struct {
    StringView Written, Column;
  } fields[] = {{u"codigo", u"codigo"},
                {u"c.codigo", u"codigo"},
                {u"loja.c.codigo", u"codigo"},
                {u"\"codigo\"", u"codigo"},
                {u"c.\"Código do Cliente\"", u"Código do Cliente"},
                {u"[c].[Código]", u"Código"},
                {u"`c`.`codigo`", u"codigo"},
                {u"\"a.b\"", u"a.b"},
                {u"c.codigo as chave", u"chave"},
                {u"max(c.codigo) As \"Chave\"", u"Chave"}};
  for (const auto& field : fields) {
    SCOPED_TRACE(ToUtf8(field.Written));
    rows = {{{u"nome"}, {String(field.Column), host::type::Integer}}, {{u"Ana", Long{7}}}};
    RunArguments a;
    a.Tipo = TipoControle::Descricao;
    a.Campo = u"nome";
    a.SiblingField = field.Written;
    EXPECT_EQ(Run(a, Confirm), u"Ana");
    EXPECT_TRUE(Same(State().vntValorIrmao, Variant(Long{7})));
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(LookupRun, AMissingSiblingFieldIsReportedAndTheKeyIsStillReturned) {
  State().vntValorIrmao = u"'12'";
  rows = NamesFirst();
  RunArguments a;
  a.Tipo = TipoControle::Descricao;
  a.SiblingField = u"outro";
  EXPECT_EQ(Run(a, Confirm), u"Ana");
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(HostError(errors::ItemNotFound), u"VerBrowse")));
  EXPECT_EQ(end, ListEnd::Failed);
  EXPECT_TRUE(Same(State().vntValorIrmao, Variant(u"'12'")));
}

}  // namespace
}  // namespace tessaria::test
