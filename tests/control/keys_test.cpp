// The keys of the surface and of the box: what they raise, set and complete.

#include "tests/control/control_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

const char16_t* const incomplete =
    u"Propriedades da Browse Não Informadas Corretamente. Contate o Administrador de Sistema.";

class KeysTest : public ControlTest {
 protected:
  KeysTest() {
    field = AddField(u"txtNome");
    connection->SetProperty(u"DBMS Name", u"ACCESS");
    connection->OnStatement = [](const String&) -> memory::Rows {
      return {{{u"nome"}, {u"codigo"}}, {{u"Ana Maria", u"7"}}};
    };
  }
  tsText& Control() { return **field; }
  /// A key-up of the box alone.
  void KeyUp(Integer code) {
    Integer shift = 0;
    field->txtEdit().OnKeyUp(code, shift);
  }
  void Show() {
    form->Show();
    form->Focus(u"txtNome");
    field->ForgetEvents();
    connection->TakeStatements();
  }

  FieldPtr field;
};

// --- The events ---------------------------------------------------------------------------------

TEST_F(KeysTest, AKeyRaisesItsThreeEventsAndAChange) {
  Show();
  form->Type(u"a");
  const auto& events = field->Events();
  ASSERT_EQ(events.size(), 4u);
  EXPECT_EQ(events[0].What, Kind::KeyDown);
  EXPECT_EQ(events[0].Code, 65);
  EXPECT_EQ(events[1].What, Kind::KeyPress);
  EXPECT_EQ(events[1].Code, 97);
  EXPECT_EQ(events[2].What, Kind::Change);
  EXPECT_EQ(events[3].What, Kind::KeyUp);
  EXPECT_EQ(events[3].Code, 65);
}

TEST_F(KeysTest, TheApplicationMaySwallowAKey) {
  Show();
  field->OnKeyPress = [](Integer& code) {
    if (code == 'b') code = 0;
  };
  field->OnKeyDown = [](Integer& code, Integer&) {
    if (code == 'C') code = 0;
  };
  form->Type(u"abcd");
  EXPECT_EQ(field->txtEdit().Text(), u"ad");
}

TEST_F(KeysTest, TheApplicationMayTurnAKeyIntoAnother) {
  Show();
  field->OnKeyPress = [](Integer& code) { code = 'x'; };
  form->Type(u"a");
  EXPECT_EQ(field->txtEdit().Text(), u"x");
}

TEST_F(KeysTest, ErrorsOfTheApplicationsHandlersSurface) {
  field->OnKeyDown = [](Integer&, Integer&) { throw HostError(11); };
  field->OnKeyPress = [](Integer&) { throw HostError(9); };
  field->OnKeyUp = [](Integer&, Integer&) { throw HostError(6); };
  Integer code = 65, shift = 0;
  EXPECT_HOST_ERROR(Control().UserControl_KeyDown(code, shift), 11);
  EXPECT_HOST_ERROR(Control().UserControl_KeyPress(code), 9);
  EXPECT_HOST_ERROR(Control().UserControl_KeyUp(code, shift), 6);
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// --- Every key-up counts as typing --------------------------------------------------------------

TEST_F(KeysTest, EveryKeyUpLetsTheNextAssignmentFetchTheDescription) {
  State().dbConexao = connection;
  Control().BrowseTable(u"clientes");
  Control().BrwCampo(u"codigo");
  Control().BrwCampoIrmao(u"nome");
  for (const Integer code : {0, 8, 9, 16, 27, 36, 37, 65, 219, 222}) {
    SCOPED_TRACE(code);
    Control().UserControl_EnterFocus();  // takes the flag down
    Control().Value(u"7");
    EXPECT_THAT(connection->TakeStatements(), IsEmpty());
    KeyUp(code);
    Control().Value(u"7");
    EXPECT_EQ(connection->TakeStatements().size(), 1u);
  }
}

// --- Completion ---------------------------------------------------------------------------------

class CompletionTest : public KeysTest {
 protected:
  CompletionTest() {
    key = AddField(u"txtCodigo");
    Control().TipoControle(TipoControle::Descricao);
    const auto definition = Control().Browse();
    definition->BrowseTable(u"clientes");
    definition->BrwCampo(u"nome");
    Show();
    State().vntValorIrmao = Variant::Null();
  }
  void ConnectSibling() {
    Control().Browse()->BrwCampoIrmao(u"codigo");
    Control().TxtIrmao(u"txtCodigo");
    Control().Refresh();
    field->txtEdit().Text(u"");
    connection->TakeStatements();
  }
  /// The statement that a key-up behind this text sends; "" for none.
  String Sent(const char16_t* text, Integer code = 65) {
    field->txtEdit().Text(text);
    KeyUp(code);
    const auto statements = connection->TakeStatements();
    return statements.empty() ? String() : statements.back();
  }

  FieldPtr key;
};

TEST_F(CompletionTest, TypingCompletesAndSelectsTheRest) {
  form->Type(u"An");
  EXPECT_EQ(field->txtEdit().Text(), u"Ana Maria");
  EXPECT_EQ(field->txtEdit().SelStart(), 2);
  EXPECT_EQ(field->txtEdit().SelText(), u"a Maria");
  EXPECT_EQ(connection->TakeStatements().back(),
            u"Select Top 1 nome From clientes Where nome Like 'An%'");
}

TEST_F(CompletionTest, WhichKeysSearch) {
  // Home and Shift never, nor a dead key alone; arrows and all the rest do.
  for (const auto& [code, searches] : {std::pair<Integer, bool>{36, false},
                                       {16, false},
                                       {219, false},
                                       {222, false},
                                       {65, true},
                                       {37, true},
                                       {38, true},
                                       {39, true},
                                       {40, true},
                                       {35, true},
                                       {9, true},
                                       {0, true}}) {
    SCOPED_TRACE(code);
    EXPECT_EQ(!Sent(u"An", code).empty(), searches);
  }
}

TEST_F(CompletionTest, BackspaceShortensTheTypedPart) {
  EXPECT_EQ(Sent(u"Ana", 8), u"Select Top 1 nome From clientes Where nome Like 'An%'");
  EXPECT_EQ(field->txtEdit().SelText(), u"a Maria");
}

TEST_F(CompletionTest, OnlyADescriptionSearches) {
  for (const Long kind : {0, 1, 2, 4, 5}) {
    SCOPED_TRACE(kind);
    Control().TipoControle(static_cast<TipoControle>(kind));
    EXPECT_EQ(Sent(u"C:\\An"), u"");
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(CompletionTest, TheJoinReplacesTheTable) {
  Control().Browse()->BrwLeftJoin(u"clientes Left Join cidades on cid = cod");
  EXPECT_EQ(Sent(u"An"),
            u"Select Top 1 nome From clientes Left Join cidades on cid = cod Where nome Like "
            u"'An%'");
}

TEST_F(CompletionTest, TheConditionIsTheDefinitionsAndExpanded) {
  (*key)->Value(u"3");
  Control().Browse()->BrwWhere(u"cidade = @txtCodigo@");
  EXPECT_EQ(Sent(u"An"), u"Select Top 1 nome From clientes Where cidade = 3 And nome Like 'An%'");
}

struct Literal {
  Variant Value;
  const char16_t* Where;
  const char16_t* Condition;
};

const Literal literals[] = {
    {u"'12'", u"", u"codigo = '12' And "},
    {Long{12}, u"", u"codigo = 12 And "},
    {2.5, u"ativo = 1", u"ativo = 1 And codigo = 2.5 And "},
    {u"''", u"ativo = 1", u"ativo = 1 And "},
    {u"' '", u"", u""},
    {Variant(), u"", u""},
    {Variant::Null(), u"", u""},
};

TEST_F(CompletionTest, TheSiblingsLiteralNarrowsTheSearch) {
  Control().Browse()->BrwCampoIrmao(u"codigo");
  for (const Literal& row : literals) {
    SCOPED_TRACE(testing::PrintToString(row.Value));
    State().vntValorIrmao = row.Value;
    Control().Browse()->BrwWhere(row.Where);
    EXPECT_EQ(Sent(u"An"), String(u"Select Top 1 nome, codigo From clientes Where ") +
                               row.Condition + u"nome Like 'An%'");
  }
}

TEST_F(CompletionTest, WithoutASiblingsFieldTheLiteralIsNotUsed) {
  State().vntValorIrmao = u"'12'";
  EXPECT_EQ(Sent(u"An"), u"Select Top 1 nome From clientes Where nome Like 'An%'");
}

TEST_F(CompletionTest, AConnectedSiblingTakesTheCodeAndTells) {
  ConnectSibling();
  form->Type(u"A");
  EXPECT_THAT((*key)->Value(), IsValue(u"7"));
  EXPECT_EQ(key->Events(Kind::BrowseReturn).size(), 1u);
  EXPECT_EQ(field->txtEdit().SelText(), u"na Maria");
}

TEST_F(CompletionTest, ASiblingThatIsNotConnectedReceivesNothing) {
  Control().Browse()->BrwCampoIrmao(u"codigo");
  form->Type(u"A");
  EXPECT_THAT((*key)->Value(), Not(IsValue(u"7")));
}

TEST_F(CompletionTest, AnIncompleteDefinitionIsTold) {
  for (const bool hasTable : {true, false}) {
    const auto alone = AddField(hasTable ? u"txtUm" : u"txtDois");
    (*alone)->TipoControle(TipoControle::Descricao);
    if (hasTable)
      (*alone)->BrowseTable(u"clientes");
    else
      (*alone)->BrwCampo(u"nome");
    Integer code = 65, shift = 0;
    alone->txtEdit().OnKeyUp(code, shift);
    EXPECT_THAT(app.TakeBoxes(), ElementsAre(StopBox((*alone)->hWnd(), incomplete)));
    code = 219;  // the definition is looked at ahead of the dead keys
    alone->txtEdit().OnKeyUp(code, shift);
    EXPECT_EQ(app.TakeBoxes().size(), 1u);
    for (const Integer quiet : {16, 36}) {
      code = quiet;
      alone->txtEdit().OnKeyUp(code, shift);
      EXPECT_THAT(app.TakeBoxes(), IsEmpty());
    }
  }
}

TEST_F(CompletionTest, ASiblingThatWentAwayIsReported) {
  ConnectSibling();
  form->Remove(u"txtCodigo");
  EXPECT_EQ(Sent(u"An"), u"");
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(HostError(errors::ControlNotFound), u"txtEdit_KeyUp")));
  // The sibling is fetched ahead of the dead keys too.
  KeyUp(222);
  EXPECT_EQ(app.TakeBoxes().size(), 1u);
}

TEST_F(CompletionTest, AServerThatWentAwayLeavesTheText) {
  connection->FailNext(HostError(errors::ProviderError, u"servidor parado"));
  field->txtEdit().Text(u"An");
  KeyUp(65);
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(HostError(errors::ProviderError, u"servidor parado"),
                                   u"CompletaDescr", u"mdlObjTxt")));
  EXPECT_EQ(field->txtEdit().Text(), u"An");
}

}  // namespace
}  // namespace tessaria::test
