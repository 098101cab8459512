// The button of a lookup: the texts that define the list, what it returns, and which errors pass.

#include "tessaria/comforts.h"
#include "tests/control/button_fixture.h"

namespace tessaria::test {
namespace {

using memory::Key;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// --- Texts of the control and of its definition -------------------------------------------------

TEST_F(ButtonTest, TheControlsOwnTextsOverrideThoseOfItsDefinition) {
  const auto own = AddStored(u"txtProprio", {{u"BrowseTable", u"clientes"},
                                             {u"BrwCampo", u"codigo"},
                                             {u"BrwCampoIrmao", u"nome"},
                                             {u"BrwCampoOutros", u"cidade"},
                                             {u"BrwGroupBy", u"Group by codigo"},
                                             {u"BrwWhere", u"certo = 1"},
                                             {u"BrwTitulo", u"Clientes da Loja"}});
  (*own)->TipoControle(TipoControle::Browse);
  form->Show();
  const auto definition = (*own)->Browse();
  definition->BrowseTable(u"errada");
  definition->BrwCampo(u"errado");
  definition->BrwCampoIrmao(u"errado");
  definition->BrwCampoOutros(u"errado");
  definition->BrwGroupBy(u"Group by errado");
  definition->BrwWhere(u"errado = 1");
  definition->BrwTitulo(u"Errado");
  const auto statement = [&] {
    connection->TakeStatements();
    desktop->WillShow(u"frmBrowse", [](memory::Dialog& shown) {
      EXPECT_EQ(shown.Find<host::DialogLabel>(u"lblTitulo").Caption(), u"Clientes da Loja");
      shown.CloseWindow();
    });
    own->btnBrowse().OnClick();
    const auto statements = connection->TakeStatements();
    return statements.empty() ? String() : statements.front();
  };
  EXPECT_EQ(statement(),
            u"Select codigo, nome, cidade From clientes Where certo = 1 And codigo Is Not Null "
            u"Group by codigo Order by 1");
  definition->BrwLeftJoin(u"clientes c");  // the control has none of its own
  EXPECT_EQ(statement(),
            u"Select codigo, nome, cidade From clientes c Where certo = 1 And codigo Is Not Null "
            u"Group by codigo Order by 1");
}

// --- The answer ---------------------------------------------------------------------------------

// The key of the chosen row narrows the completion that the same key-up starts.
TEST_F(ButtonTest, ADescriptionChosenByPageDownIsNotCompletedToALongerOne) {
  list = {{{u"nome"}, {u"codigo"}}, {{u"Ana", u"1"}, {u"Ana Maria", u"2"}}};
  connection->OnStatement = [this](const String& statement) -> memory::Rows {
    if (InStr(statement, u"Order by 1") != 0) return list;
    if (StartsWith(statement, u"Select codigo")) return {{{u"codigo"}}, {{u"1"}}};
    const std::size_t row = InStr(statement, u"codigo = '1'") != 0 ? 0 : 1;
    return {list.Columns, {list.Cells[row]}};
  };
  const auto key = AddField(u"txtCodigo");
  Control().TxtIrmao(u"txtCodigo");
  Show(TipoControle::Descricao);
  Control().BrwCampo(u"nome");
  Control().BrwCampoIrmao(u"codigo");
  form->Focus(u"txtCampo");
  desktop->WillShow(u"frmBrowse", Pick(1));
  form->Press(Key::PageDown);
  EXPECT_EQ(Box().Text(), u"Ana");
  EXPECT_THAT(Control().Value(), IsValue(u"Ana"));
  EXPECT_THAT((*key)->Value(), IsValue(u"1"));
}

/// Two rows with the same description, and their keys.
class Homonyms : public ButtonTest, public testing::WithParamInterface<bool> {
 protected:
  Homonyms() {
    setComforts({.SearchWithoutFormerKey = GetParam()});
    list = {{{u"nome"}, {u"codigo"}}, {{u"Ana", u"1"}, {u"Ana", u"2"}}};
    connection->OnStatement = [this](const String& statement) -> memory::Rows {
      if (InStr(statement, u"Order by 1") != 0) return list;
      const char16_t* code = InStr(statement, u"codigo = '2'") != 0 ? u"2" : u"1";
      if (StartsWith(statement, u"Select codigo")) return {{{u"codigo"}}, {{code}}};
      return {list.Columns, {{u"Ana", code}}};
    };
    key = AddField(u"txtCodigo");
    Control().TxtIrmao(u"txtCodigo");
    Show(TipoControle::Descricao);
    Control().BrwCampo(u"nome");
    Control().BrwCampoIrmao(u"codigo");
  }
  ~Homonyms() override { setComforts({}); }
  /// By the keyboard, as the operator does.
  void PickByPageDown(Script script) {
    desktop->WillShow(u"frmBrowse", std::move(script));
    form->Press(Key::PageDown);
  }

  FieldPtr key;
};

INSTANTIATE_TEST_SUITE_P(SearchWithoutFormerKey, Homonyms, testing::Bool());

TEST_P(Homonyms, TheChosenRowGivesItsOwnKeyAlsoWhenSomethingWasTypedBefore) {
  for (const bool byKey : {false, true}) {
    SCOPED_TRACE(byKey);
    (*key)->Value(u"1");
    form->Focus(u"txtCampo");
    form->Type(u"An");
    if (byKey)
      PickByPageDown(Pick(2));
    else
      Click(u"frmBrowse", Pick(2));
    EXPECT_EQ(Box().Text(), u"Ana");
    EXPECT_THAT((*key)->Value(), IsValue(u"2"));
    form->Focus(u"chkAtivo");
    EXPECT_THAT(Control().Value(), IsValue(u"Ana"));
    EXPECT_THAT((*key)->Value(), IsValue(u"2"));
  }
}

TEST_P(Homonyms, ACancelledListRestoresTheKeyOfTheField) {
  form->Focus(u"txtCampo");
  PickByPageDown(Pick(2));
  form->Focus(u"chkAtivo");
  form->Focus(u"txtCampo");
  form->Type(u"An");
  Click(u"frmBrowse", Close);
  EXPECT_EQ(Box().Text(), u"Ana");
  EXPECT_THAT((*key)->Value(), IsValue(u"2"));
}

// The key of a choice counts as a former key when something else is typed.
TEST_P(Homonyms, TextTypedAfterAChoiceIsSearchedAsTheComfortSays) {
  form->Focus(u"txtCampo");
  PickByPageDown(Pick(2));
  connection->TakeStatements();
  form->Type(u"B");
  const String statement = connection->TakeStatements().at(0);
  EXPECT_EQ(InStr(statement, u"codigo = '2'") == 0, GetParam()) << ToUtf8(statement);
}

/// Homonyms whose list has one search, with a prompt that completes or not.
class HomonymsWithASearch : public Homonyms {
 protected:
  void AddSearch(bool completes) {
    const auto searches = (*key)->Pesquisa();
    searches->Clear();
    searches->Add(1, u"Nome", u"nome", 8, 1, u"", 2000, 0, completes, false, 0, 0, u"");
  }
  /// Enters the pair of the second row, opens its list, and starts the search.
  void Search(Script prompt, Script afterwards) {
    (*key)->Value(u"1");
    form->Focus(u"txtCampo");
    PickByPageDown(Pick(2));
    form->Focus(u"chkAtivo");
    EXPECT_THAT((*key)->Value(), IsValue(u"2"));
    form->Focus(u"txtCampo");
    PickByPageDown([&](memory::Dialog& shown) {
      desktop->WillShow(u"frmTsPesquisa", prompt);
      shown.Press(Key{113});  // F2
      afterwards(shown);
    });
  }
  static Script Leave(StringView button) {
    return [button](memory::Dialog& prompt) {
      prompt.Type(u"An");
      prompt.Click(button);
    };
  }
};

INSTANTIATE_TEST_SUITE_P(SearchWithoutFormerKey, HomonymsWithASearch, testing::Bool());

TEST_P(HomonymsWithASearch, AListCancelledAfterAPromptKeepsTheKeyOfThePair) {
  for (const bool completes : {false, true}) {
    for (const StringView button : {u"btnOk", u"btnCancelar"}) {
      SCOPED_TRACE(ToUtf8(button) + (completes ? ", completing" : ""));
      AddSearch(completes);
      Search(Leave(button), Close);
      EXPECT_EQ(Box().Text(), u"Ana");
      EXPECT_THAT((*key)->Value(), IsValue(u"2"));
      form->Focus(u"chkAtivo");
      EXPECT_THAT((*key)->Value(), IsValue(u"2"));
      EXPECT_THAT(app.TakeBoxes(), IsEmpty());
    }
  }
}

TEST_P(HomonymsWithASearch, ARowThatIsChosenAfterAPromptGivesItsOwnKey) {
  for (const bool completes : {false, true}) {
    SCOPED_TRACE(completes);
    AddSearch(completes);
    Search(Leave(u"btnCancelar"), Pick(1));
    EXPECT_THAT((*key)->Value(), IsValue(u"1"));
    form->Focus(u"chkAtivo");
  }
}

TEST_P(HomonymsWithASearch, AListInsideAPromptDoesNotChangeTheOuterKey) {
  AddSearch(true);
  const auto opensAList = [&](const Script& inner) {
    return [&, inner](memory::Dialog& prompt) {
      desktop->WillShow(u"frmBrowse", inner);
      prompt.Type(u"An");
      prompt.Press(Key::PageDown);
      prompt.Click(u"btnCancelar");
    };
  };
  for (const Script& inner : {Script(Close), Pick(1), Pick(2)}) {
    Search(opensAList(inner), Close);
    EXPECT_THAT((*key)->Value(), IsValue(u"2"));
    form->Focus(u"chkAtivo");
    Search(opensAList(inner), Pick(1));
    EXPECT_THAT((*key)->Value(), IsValue(u"1"));
    form->Focus(u"chkAtivo");
  }
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
}

TEST_F(ButtonTest, AKeyThatIsCutAtTheFieldsLengthKeepsWholeCharacters) {
  Show(TipoControle::Browse);
  Control().MaxLength(4);
  list.Cells = {{u"Ana\U0001F600", u"Ana"}};
  form->Focus(u"txtCampo");
  Click(u"frmBrowse", Pick(1));
  EXPECT_THAT(Control().Value(), IsValue(u"Ana"));
}

TEST_F(ButtonTest, ARowDeletedWhileTheListIsOpenReturnsItsKeyWithoutADescription) {
  const auto name = AddField(u"txtNome");
  (*name)->Value(u"antigo");
  Control().TxtIrmao(u"txtNome");
  Control().BrwCampoIrmao(u"nome");
  Control().UsaChecaRelacao(true);
  Show(TipoControle::Browse);
  form->Focus(u"txtCampo");
  Click(u"frmBrowse", [&](memory::Dialog& shown) {
    description.Cells.clear();  // as another user would
    Pick(2)(shown);
  });
  EXPECT_THAT(Control().Value(), IsValue(u"15"));
  EXPECT_THAT((*name)->Value(), IsNullVariant());
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
  form->Focus(u"chkAtivo");
  const auto boxes = app.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_NE(InStr(boxes[0].Text, u"Inexistente"), 0);
  EXPECT_EQ(ActiveName(), u"txtCampo");
}

class FailedLookup : public ButtonTest, public testing::WithParamInterface<TipoControle> {};

INSTANTIATE_TEST_SUITE_P(Button, FailedLookup,
                         testing::Values(TipoControle::Browse, TipoControle::Descricao));

TEST_P(FailedLookup, AListThatCannotOpenKeepsFieldAndValueAndReportsNoChange) {
  Show(GetParam());
  Control().Value(u"15");
  form->Focus(u"txtCampo");
  connection->OnStatement = [](const String&) -> memory::Rows { throw HostError(3001); };
  field->ForgetEvents();
  field->btnBrowse().OnClick();
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
  EXPECT_THAT(Control().Value(), IsValue(u"15"));
  EXPECT_EQ(Box().Text(), u"15");
  ASSERT_THAT(Returns(), SizeIs(1));
  EXPECT_FALSE(Returns()[0].HouveAlteracao);
  EXPECT_EQ(Box().Tag, u"");
}

TEST_P(FailedLookup, AnEmptyTableEmptiesTheField) {
  Show(GetParam());
  Control().Value(u"15");
  list.Cells.clear();
  field->btnBrowse().OnClick();
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
  EXPECT_THAT(Control().Value(), IsNullVariant());
  EXPECT_EQ(Box().Text(), u"");
}

// --- Events -------------------------------------------------------------------------------------

class PumpedLookup : public ButtonTest, public testing::WithParamInterface<TipoControle> {};

INSTANTIATE_TEST_SUITE_P(Button, PumpedLookup,
                         testing::Values(TipoControle::Browse, TipoControle::Descricao));

TEST_P(PumpedLookup, TheEventQueueIsProcessedThreeTimesAlsoWhenTheListIsClosed) {
  Show(GetParam());
  int before = 0;
  Click(u"frmBrowse", [&](memory::Dialog& shown) {
    before = app.EventPumps();
    shown.CloseWindow();
  });
  // By the list, before and after the assignment; and by the lookup of a description.
  EXPECT_EQ(app.EventPumps() - before, 3);
}

TEST_P(PumpedLookup, AnErrorInTheQueueIsReportedByTheCodeThatProcessesIt) {
  const struct {
    int Pump;
    bool ClickGoesOn;
  } rows[] = {{1, true}, {2, false}, {3, false}};
  Show(GetParam());
  for (const auto& row : rows) {
    SCOPED_TRACE(row.Pump);
    field->ForgetEvents();
    int pumps = 0;
    Click(u"frmBrowse", [&](memory::Dialog& shown) {
      app.OnDoEvents = [&] {
        if (++pumps == row.Pump) throw HostError(11);
      };
      shown.CloseWindow();
    });
    app.OnDoEvents = nullptr;
    const HostError error(11);
    EXPECT_THAT(app.TakeBoxes(),
                ElementsAre(row.ClickGoesOn ? ErrorBox(error, u"VerBrowse", u"mdlObjTxt")
                                            : ErrorBox(error, u"btnBrowse_Click")));
    EXPECT_THAT(Returns(), SizeIs(row.ClickGoesOn ? 1 : 0));
    EXPECT_EQ(Box().Tag, row.ClickGoesOn ? u"" : silenced);
    EXPECT_THAT(Control().Value(), IsNullVariant());
  }
}

TEST_P(PumpedLookup, WithoutAWindowTheListReportsAnErrorAndTheClickContinues) {
  Show(GetParam());
  auto* const former = std::exchange(State().desktop, nullptr);
  field->btnBrowse().OnClick();
  State().desktop = former;
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(HostError(errors::ObjectNotSet), u"VerBrowse", u"mdlObjTxt")));
  EXPECT_THAT(Returns(), SizeIs(1));
  EXPECT_EQ(Box().Tag, u"");
}

}  // namespace
}  // namespace tessaria::test
