// A description completes what is typed, and fills its key.

#include "tessaria/comforts.h"
#include "tests/control/keys_fixture.h"
#include "tests/support/comma_locale.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

const char16_t* const incomplete =
    u"Propriedades da Browse Não Informadas Corretamente. Contate o Administrador de Sistema.";

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
  /// The statement that a key-up after this text sends; "" for none.
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
  // Home, Shift and a dead key alone do not; arrows and all other keys do.
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

TEST_F(CompletionTest, TheSiblingsLiteralNarrowsTheSearchWhateverTheLocale) {
  const CommaLocale locale;
  Control().Browse()->BrwCampoIrmao(u"codigo");
  for (const Literal& row : literals) {
    SCOPED_TRACE(testing::PrintToString(row.Value));
    State().vntValorIrmao = row.Value;
    Control().Browse()->BrwWhere(row.Where);
    EXPECT_EQ(Sent(u"An"), String(u"Select Top 1 nome, codigo From clientes Where ") +
                               row.Condition + u"nome Like 'An%'");
  }
}

TEST_F(CompletionTest, WithTheComfortTypedTextIsCompletedWithoutTheFormerKey) {
  Control().Browse()->BrwCampoIrmao(u"codigo");
  for (const bool without : {false, true}) {
    setComforts({.SearchWithoutFormerKey = without});
    State().vntValorIrmao = u"'12'";
    form->Type(u"A");
    EXPECT_EQ(connection->TakeStatements().back(),
              String(u"Select Top 1 nome, codigo From clientes Where ") +
                  (without ? u"" : u"codigo = '12' And ") + u"nome Like 'A%'");
    field->txtEdit().Text(u"");
  }
  setComforts({});
}

TEST_F(CompletionTest, WithTheComfortTheFirstNameInOrderIsAskedFor) {
  setComforts({.CompletesInOrder = true});
  EXPECT_EQ(Sent(u"An"), u"Select Top 1 nome From clientes Where nome Like 'An%' Order by nome");
  Control().Browse()->BrwCampo(u"upper(nome) as n");
  EXPECT_EQ(Sent(u"An"),
            u"Select Top 1 upper(nome) as n From clientes Where upper(nome)  Like 'An%' "
            u"Order by upper(nome) ");
  setComforts({});
}

TEST_F(CompletionTest, ASiblingsLiteralThatIsNotOneTokenIsRefusedBeforeItIsSent) {
  Control().Browse()->BrwCampoIrmao(u"codigo");
  for (const char16_t* hostile : {u"1 or true", u"'a' or 'b'='b'", u"'a"}) {
    State().vntValorIrmao = hostile;
    EXPECT_EQ(Sent(u"An"), u"");
    EXPECT_EQ(app.TakeBoxes().size(), 1u);
  }
}

TEST_F(CompletionTest, WithoutASiblingsFieldTheLiteralIsNotUsed) {
  for (const char16_t* literal : {u"'12'", u"NaN"}) {
    State().vntValorIrmao = literal;
    EXPECT_EQ(Sent(u"An"), u"Select Top 1 nome From clientes Where nome Like 'An%'");
  }
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
}

TEST_F(CompletionTest, TheSiblingsFieldIsComparedWithoutItsAlias) {
  Control().Browse()->BrwCampoIrmao(u"c.codigo as chave");
  State().vntValorIrmao = Long{7};
  EXPECT_EQ(Sent(u"An"),
            u"Select Top 1 nome, c.codigo as chave From clientes Where c.codigo  = 7 And nome Like "
            u"'An%'");
}

TEST_F(CompletionTest, AConnectedSiblingGetsTheCodeAndRaisesBrowseReturn) {
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

TEST_F(CompletionTest, AnIncompleteDefinitionIsReported) {
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
    code = 219;  // the definition is checked before the dead keys
    alone->txtEdit().OnKeyUp(code, shift);
    EXPECT_EQ(app.TakeBoxes().size(), 1u);
    for (const Integer quiet : {16, 36}) {
      code = quiet;
      alone->txtEdit().OnKeyUp(code, shift);
      EXPECT_THAT(app.TakeBoxes(), IsEmpty());
    }
  }
}

TEST_F(CompletionTest, ARemovedSiblingIsReported) {
  ConnectSibling();
  form->Remove(u"txtCodigo");
  EXPECT_EQ(Sent(u"An"), u"");
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(MissingControl(u"txtCodigo", u"TxtIrmao", u"txtNome"),
                                   u"txtEdit_KeyUp")));
  // The sibling is also fetched before the dead keys are checked.
  KeyUp(222);
  EXPECT_EQ(app.TakeBoxes().size(), 1u);
}

TEST_F(CompletionTest, ALostServerLeavesTheTextUnchanged) {
  connection->FailNext(HostError(errors::ProviderError, u"servidor parado"));
  field->txtEdit().Text(u"An");
  KeyUp(65);
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(HostError(errors::ProviderError, u"servidor parado"),
                                   u"CompletaDescr", u"mdlObjTxt")));
  EXPECT_EQ(field->txtEdit().Text(), u"An");
}

// --- Texts of the control and of its definition -------------------------------------------------

/// A description whose own texts differ from those of its definition.
class OwnTexts : public KeysTest {
 protected:
  OwnTexts() {
    own = AddStored(u"txtProprio", {{u"BrowseTable", u"propria"},
                                    {u"BrwCampo", u"apelido"},
                                    {u"BrwCampoIrmao", u"id"},
                                    {u"BrwLeftJoin", u"propria p"},
                                    {u"BrwWhere", u"errado = 1"}});
    (*own)->TipoControle(TipoControle::Descricao);
    Show();
    State().vntValorIrmao = Long{12};
  }
  String Sent() {
    own->txtEdit().Text(u"An");
    Integer code = 65, shift = 0;
    own->txtEdit().OnKeyUp(code, shift);
    const auto statements = connection->TakeStatements();
    return statements.empty() ? String() : statements.back();
  }
  FieldPtr own;
};

TEST_F(OwnTexts, TheFieldsComeFromTheControlAndTableAndConditionFromTheDefinition) {
  const auto definition = (*own)->Browse();
  definition->BrowseTable(u"clientes");
  definition->BrwCampo(u"nome");
  definition->BrwCampoIrmao(u"codigo");
  definition->BrwWhere(u"certo = 1");
  EXPECT_EQ(Sent(),
            u"Select Top 1 apelido, id From clientes Where certo = 1 And id = 12 And apelido Like "
            u"'An%'");
  definition->BrwLeftJoin(u"clientes c");
  EXPECT_EQ(Sent(),
            u"Select Top 1 apelido, id From clientes c Where certo = 1 And id = 12 And apelido "
            u"Like 'An%'");
}

// The control's table is required, the definition's is used.
TEST_F(OwnTexts, ATableOfTheControlAloneSendsAStatementWithoutATable) {
  EXPECT_EQ(Sent(), u"Select Top 1 apelido, id From  Where id = 12 And apelido Like 'An%'");
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// --- The sibling --------------------------------------------------------------------------------

TEST_F(CompletionTest, ASiblingOfAnotherKindIsReported) {
  ConnectSibling();
  form->Remove(u"txtCodigo");
  form->Add<memory::Generic>(u"txtCodigo", u"TextBox");
  EXPECT_EQ(Sent(u"An"), u"");
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(HostError(errors::NoSuchMember), u"txtEdit_KeyUp")));
}

/// A key that looks its description up when it is completed.
class CompletedPair : public CompletionTest {
 protected:
  CompletedPair() {
    connection->OnStatement = [](const String& statement) -> memory::Rows {
      if (StartsWith(statement, u"Select Top 1 codigo")) return {{{u"codigo"}}, {{u"7"}}};
      return {{{u"nome"}, {u"codigo"}}, {{u"Ana Maria", u"7"}}};
    };
    const auto definition = (*key)->Browse();
    definition->BrowseTable(u"clientes");
    definition->BrwCampo(u"codigo");
    definition->BrwCampoIrmao(u"nome");
    (*key)->TipoControle(TipoControle::Browse);
    (*key)->TxtIrmao(u"txtNome");
    (*key)->Refresh();
    ConnectSibling();
  }
};

TEST_F(CompletedPair, TwoDescriptionsMayCompleteIntoEachOther) {
  (*key)->TipoControle(TipoControle::Descricao);
  form->Type(u"A");
  EXPECT_EQ(field->txtEdit().Text(), u"Ana Maria");
  EXPECT_EQ(field->txtEdit().SelText(), u"na Maria");
  EXPECT_THAT((*key)->Value(), IsValue(u"7"));
  EXPECT_LT(connection->TakeStatements().size(), 6u);
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// The lookup of the key processes the event queue, and with it whatever the program does there.

TEST_F(CompletedPair, TheFormMayCloseDuringAKeyUp) {
  app.Post([this] { form->Close(); });
  form->Type(u"A");
  EXPECT_TRUE(form->IsClosed());
}

TEST_F(CompletedPair, TheKeyFieldMayBeRemovedDuringAKeyUp) {
  app.Post([this] { form->Remove(u"txtCodigo"); });
  form->Type(u"A");
  EXPECT_EQ(field->txtEdit().Text(), u"Ana Maria");
  EXPECT_EQ(field->txtEdit().SelText(), u"na Maria");
  EXPECT_THAT(form->UnhandledErrors(), IsEmpty());
}

}  // namespace
}  // namespace tessaria::test
