// A key and its description fill each other, and names that they refuse.

#include "tessaria/comforts.h"
#include "tests/control/sibling_fixture.h"
#include "tests/support/comma_locale.h"

namespace tessaria::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

// --- The lookup of an assignment ----------------------------------------------------------------

TEST_F(SiblingTest, ATypedKeyFetchesTheDescriptionIntoItsSibling) {
  AssignTyped(key, u"7");
  EXPECT_THAT(connection->TakeStatements(),
              ElementsAre(u"Select Top 1 nome From clientes Where codigo = '7'"));
  EXPECT_THAT((*description)->Value(), IsValue(u"Ana"));
  EXPECT_THAT(description->Events(Kind::BrowseReturn), IsEmpty());
}

TEST_F(SiblingTest, ANumberHasAPointInItsStatementWhateverTheLocale) {
  const CommaLocale locale;
  (*key)->TipoDado(5);
  (*key)->Mascara(u"$$$$$$$.$$");
  AssignTyped(key, u"1234567,5");
  EXPECT_THAT(connection->TakeStatements(),
              ElementsAre(u"Select Top 1 nome From clientes Where codigo = 1234567.5"));
}

TEST_F(SiblingTest, AnAssignmentFromAProgramDoesNotChangeTheSibling) {
  (*key)->Value(u"7");
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
  EXPECT_THAT((*description)->Value(), IsNullVariant());
}

TEST_F(SiblingTest, AnUnknownCodeEmptiesTheDescription) {
  (*description)->Value(u"antiga");
  found = false;
  AssignTyped(key, u"99");
  EXPECT_THAT((*description)->Value(), IsNullVariant());
}

TEST_F(SiblingTest, AFailedSearchKeepsDescriptionAndReturnFields) {
  (*description)->Value(u"Ana");
  const auto city = AddReturnField(key, u"cidade");
  city->Valor(u"Campinas");
  connection->OnStatement = [](const String&) -> memory::Rows {
    throw HostError(errors::ProviderError, u"sem servidor");
  };
  AssignTyped(key, u"8");
  EXPECT_EQ(app.TakeBoxes().size(), 1u);
  EXPECT_THAT((*key)->Value(), IsValue(u"8"));
  EXPECT_THAT((*description)->Value(), IsValue(u"Ana"));
  EXPECT_THAT(city->Valor(), IsValue(u"Campinas"));
  (*key)->AtualizaIrmao();
  EXPECT_EQ(app.TakeBoxes().size(), 1u);
  EXPECT_THAT((*description)->Value(), IsValue(u"Ana"));
  EXPECT_THAT(city->Valor(), IsValue(u"Campinas"));
}

TEST_F(SiblingTest, AConditionThatCannotBeExpandedKeepsDescriptionAndReturnFields) {
  (*description)->Value(u"Ana");
  const auto city = AddReturnField(key, u"cidade");
  city->Valor(u"Campinas");
  (*key)->Browse()->BrwWhere(u"uf = @txtNada@");
  AssignTyped(key, u"8");
  (*key)->AtualizaIrmao();
  EXPECT_EQ(app.TakeBoxes().size(), 2u);
  EXPECT_THAT((*description)->Value(), IsValue(u"Ana"));
  EXPECT_THAT(city->Valor(), IsValue(u"Campinas"));
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
}

TEST_F(SiblingTest, ANullKeyEmptiesDescriptionAndReturnFieldsWithoutASearch) {
  const auto city = AddReturnField(key, u"cidade");
  city->Valor(u"Campinas");
  (*description)->Value(u"Ana");
  AssignTyped(key, u"");
  EXPECT_THAT((*description)->Value(), IsNullVariant());
  EXPECT_THAT(city->Valor(), IsEmptyVariant());
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
}

struct Incomplete {
  const char16_t* Table;
  const char16_t* Campo;
  const char16_t* SiblingField;
  const char16_t* Outros;
  bool Runs;
};

const Incomplete definitions[] = {
    {u"clientes", u"codigo", u"nome", u"", true}, {u"clientes", u"codigo", u"", u"nome", true},
    {u"", u"codigo", u"nome", u"", false},        {u"clientes", u"", u"nome", u"", false},
    {u"clientes", u"codigo", u"", u"", false},
};

TEST_F(SiblingTest, OnlyACompleteDefinitionRuns) {
  for (const Incomplete& row : definitions) {
    SCOPED_TRACE(ToUtf8(row.Table) + ", " + ToUtf8(row.Campo) + ", " + ToUtf8(row.SiblingField));
    const auto definition = (*key)->Browse();
    definition->BrowseTable(row.Table);
    definition->BrwCampo(row.Campo);
    definition->BrwCampoIrmao(row.SiblingField);
    definition->BrwCampoOutros(row.Outros);
    AssignTyped(key, u"7");
    EXPECT_EQ(connection->TakeStatements().size(), row.Runs ? 1u : 0u);
    (*key)->AtualizaIrmao();
    EXPECT_EQ(connection->TakeStatements().size(), row.Runs ? 1u : 0u);
    (*description)->Value(u"fica");
    AssignTyped(key, Variant::Null());
    EXPECT_EQ((*description)->Value().IsNull(), row.Runs);
  }
}

// The control's own texts do not count here, only the definition's.
TEST_F(SiblingTest, TheLookupReadsTheDefinitionNotTheControlsOwnTexts) {
  const auto stored = AddStored(u"txtLido", {{u"BrowseTable", u"clientes"},
                                             {u"BrwCampo", u"codigo"},
                                             {u"BrwCampoIrmao", u"nome"},
                                             {u"BrwWhere", u"errado = 1"}});
  ASSERT_EQ((*stored)->BrowseTable(), u"clientes");
  AssignTyped(stored, u"7");
  (*stored)->AtualizaIrmao();
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());

  const auto definition = (*stored)->Browse();
  definition->BrowseTable(u"fornecedores");
  definition->BrwCampo(u"id");
  definition->BrwCampoIrmao(u"razao");
  definition->BrwWhere(u"certo = 1");
  AssignTyped(stored, u"7");
  (*stored)->AtualizaIrmao();
  const String statement = u"Select Top 1 razao From fornecedores Where id = '7' And certo = 1";
  EXPECT_THAT(connection->TakeStatements(), ElementsAre(statement, statement));
}

TEST_F(SiblingTest, WithoutAConnectedSiblingTheReturnFieldsAreStillFetched) {
  const auto alone = AddField(u"txtSozinho");
  Define(alone, u"codigo", u"nome");
  (*alone)->Browse()->BrwCampoOutros(u"cidade");
  const auto city = AddReturnField(alone, u"cidade");
  (*alone)->TxtIrmao(u"txtNome");  // named, but not searched since
  AssignTyped(alone, u"7");
  EXPECT_THAT(city->Valor(), IsValue(u"Campinas"));
  EXPECT_THAT((*description)->Value(), IsNullVariant());
}

TEST_F(SiblingTest, TheConditionIsExpanded) {
  (*AddField(u"txtCidade"))->Value(u"3");
  (*key)->Browse()->BrwWhere(u"cidade = @txtCidade@");
  AssignTyped(key, u"7");
  EXPECT_THAT(connection->TakeStatements(),
              ElementsAre(u"Select Top 1 nome From clientes Where codigo = '7' And cidade = 3"));
}

TEST_F(SiblingTest, AValueInTheConditionStaysOneToken) {
  const auto parent = AddField(u"txtCidade");
  (*parent)->Value(u"' or ''='");
  (*key)->Browse()->BrwWhere(u"cidade = '@txtCidade@'");
  AssignTyped(key, u"7");
  EXPECT_THAT(connection->TakeStatements(),
              ElementsAre(u"Select Top 1 nome From clientes Where codigo = '7' And cidade = ''' or "
                          u"''''='''"));
  (*parent)->Value(u"1 or pg_sleep(1) is null");
  (*key)->Browse()->BrwWhere(u"cidade = @txtCidade@");
  (*key)->AtualizaIrmao();
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
  const auto boxes = app.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].Text,
            u"txtCidade: o valor \"1 or pg_sleep(1) is null\" não é um número, e só um número é "
            u"aceito aqui.");
}

TEST_F(SiblingTest, AReadyConditionIsNotExpanded) {
  (*key)->Browse()->WherePronto(u"mail = 'joao@x'");
  AssignTyped(key, u"7");
  EXPECT_THAT(connection->TakeStatements(),
              ElementsAre(u"Select Top 1 nome From clientes Where codigo = '7' And mail = "
                          u"'joao@x'"));
  (*key)->Browse()->BrwWhere(u"mail = 'joao@x'");
  (*key)->AtualizaIrmao();
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());  // there is no control of that name
  EXPECT_EQ(app.TakeBoxes().size(), 1u);
}

// --- The lookup of a description ----------------------------------------------------------------

TEST_F(SiblingTest, ADescriptionFillsItsKeyWhichLooksUpAndRaisesBrowseReturnButDoesNotWriteBack) {
  const auto city = AddReturnField(key, u"cidade");
  (*key)->Browse()->BrwCampoOutros(u"cidade");
  // The key has already looked up when it raises BrowseReturn.
  key->OnBrowseReturn = [&](bool&, Variant&) { EXPECT_THAT(city->Valor(), IsValue(u"Campinas")); };
  AssignTyped(description, u"Ana Maria");
  EXPECT_THAT(connection->TakeStatements(),
              ElementsAre(u"Select Top 1 codigo From clientes Where nome = 'Ana Maria'",
                          u"Select Top 1 nome, cidade From clientes Where codigo = '7'"));
  EXPECT_THAT((*key)->Value(), IsValue(u"7"));
  EXPECT_THAT(city->Valor(), IsValue(u"Campinas"));
  EXPECT_THAT((*description)->Value(), IsValue(u"Ana Maria"));
  const auto returns = key->Events(Kind::BrowseReturn);
  ASSERT_EQ(returns.size(), 1u);
  EXPECT_TRUE(returns[0].HouveAlteracao);
  EXPECT_THAT(description->Events(Kind::BrowseReturn), IsEmpty());
}

struct Filter {
  Variant Literal;
  const char16_t* Where;
  const char16_t* Condition;  ///< the condition after that of the code
};

const Filter filters[] = {
    {u"'12'", u"", u" And codigo = '12'"},
    {2.5, u"", u" And codigo = 2.5"},  // a number's text has a point
    {Long{12}, u"ativo = 1", u" And ativo = 1 And codigo = 12"},
    {u"'D''Ávila'", u"", u" And codigo = 'D''Ávila'"},
    {u"''", u"", u""},
    {u"'  '", u"", u""},
    {Variant(), u"ativo = 1", u" And ativo = 1"},
    {Variant::Null(), u"ativo = 1", u" And ativo = 1"},
};

TEST_F(SiblingTest, ADescriptionIsLookedUpUnderItsKey) {
  for (const Filter& row : filters) {
    SCOPED_TRACE(testing::PrintToString(row.Literal));
    (*description)->Browse()->BrwWhere(row.Where);
    State().vntValorIrmao = row.Literal;
    AssignTyped(description, u"Ana");
    EXPECT_EQ(connection->TakeStatements().at(0),
              String(u"Select Top 1 codigo From clientes Where nome = 'Ana'") + row.Condition);
  }
}

TEST_F(SiblingTest, TheKeysFieldIsComparedWithoutItsAlias) {
  (*description)->Browse()->BrwCampo(u"upper(nome) as n");
  (*description)->Browse()->BrwCampoIrmao(u"c.codigo as chave");
  State().vntValorIrmao = Long{7};
  AssignTyped(description, u"Ana");
  EXPECT_EQ(connection->TakeStatements().at(0),
            u"Select Top 1 c.codigo as chave From clientes Where upper(nome)  = 'Ana' And c.codigo "
            u" = 7");
}

TEST_F(SiblingTest, WithTheComfortARetypedDescriptionIsLookedUpWithoutItsFormerKey) {
  const auto statementAfter = [&](bool typesAnew) {
    (*description)->Value(u"Ana");
    (*key)->Value(u"7");
    form->Focus(u"txtCodigo");
    form->Focus(u"txtNome");
    Forget();
    if (typesAnew) description->txtEdit().Text(u"Bia");
    Integer code = 16, shift = 0;
    description->txtEdit().OnKeyUp(code, shift);
    form->Focus(u"txtCodigo");
    return connection->TakeStatements().at(0);
  };
  (*description)->UsaChecaRelacao(false);
  form->Show();
  EXPECT_EQ(statementAfter(true),
            u"Select Top 1 codigo From clientes Where nome = 'Bia' And codigo = '7'");
  setComforts({.SearchWithoutFormerKey = true});
  EXPECT_EQ(statementAfter(true), u"Select Top 1 codigo From clientes Where nome = 'Bia'");
  EXPECT_EQ(statementAfter(false),
            u"Select Top 1 codigo From clientes Where nome = 'Ana' And codigo = '7'");
  setComforts({});
}

TEST_F(SiblingTest, WithoutASiblingsFieldTheConditionHasNoFilter) {
  (*description)->Browse()->BrwCampoIrmao(u"");
  (*description)->Browse()->BrwCampoOutros(u"cidade");
  State().vntValorIrmao = u"'12'";
  AssignTyped(description, u"Ana");
  EXPECT_EQ(connection->TakeStatements().at(0),
            u"Select Top 1 cidade From clientes Where nome = 'Ana'");
}

TEST_F(SiblingTest, AKeyIsNotFiltered) {
  State().vntValorIrmao = u"'12'";
  AssignTyped(key, u"7");
  EXPECT_THAT(connection->TakeStatements(),
              ElementsAre(u"Select Top 1 nome From clientes Where codigo = '7'"));
}

// --- Rings --------------------------------------------------------------------------------------

TEST_F(SiblingTest, ARingOfSiblingsEnds) {
  (*key)->TipoControle(TipoControle::Descricao);  // both pass it on
  Integer code = 16, shift = 0;
  key->txtEdit().OnKeyUp(code, shift);
  AssignTyped(description, u"Ana");
  EXPECT_THAT((*key)->Value(), IsValue(u"7"));
  EXPECT_THAT((*description)->Value(), IsValue(u"Ana"));
  EXPECT_LT(connection->TakeStatements().size(), 6u);
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(SiblingTest, ARingOfThreeSiblingsEnds) {
  // Three in a circle.
  const auto third = AddField(u"txtTerceiro");
  Define(third, u"nome", u"codigo");
  (*third)->TxtIrmao(u"txtCodigo");
  (*description)->TipoControle(TipoControle::Normal);
  (*description)->TxtIrmao(u"txtTerceiro");
  (*third)->Refresh();
  (*description)->Refresh();
  Forget();
  Integer code = 16, shift = 0;
  for (const auto& field : {key, description, third}) field->txtEdit().OnKeyUp(code, shift);
  (*key)->Value(u"1");
  // The key that comes back is another one, and is looked up once more.
  EXPECT_EQ(connection->TakeStatements().size(), 4u);
  EXPECT_THAT((*third)->Value(), IsValue(u"7"));
}

// --- AtualizaIrmao ------------------------------------------------------------------------------

TEST_F(SiblingTest, AtualizaIrmaoFillsTheSiblingWithoutATypedKey) {
  (*key)->Value(u"7");
  EXPECT_THAT((*key)->AtualizaIrmao(), IsEmptyVariant());
  EXPECT_THAT((*description)->Value(), IsValue(u"Ana"));
  EXPECT_THAT(key->Events(Kind::BrowseReturn), IsEmpty());
}

TEST_F(SiblingTest, AtualizaIrmaoOnlyForTheKeysLeavesAKeysSiblingAlone) {
  (*key)->Browse()->BrwCampoOutros(u"cidade");
  const auto city = AddReturnField(key, u"cidade");
  (*key)->Value(u"7");
  (*key)->AtualizaIrmao(true, true);
  EXPECT_EQ(connection->TakeStatements().size(), 1u);
  EXPECT_THAT(city->Valor(), IsValue(u"Campinas"));
  EXPECT_THAT((*description)->Value(), IsNullVariant());
  EXPECT_EQ(key->Events(Kind::BrowseReturn).size(), 1u);
}

TEST_F(SiblingTest, AtualizaIrmaoOnlyForTheKeysWritesFromAnyOtherKind) {
  (*description)->Value(u"Ana");
  (*description)->AtualizaIrmao(true);
  EXPECT_THAT((*key)->Value(), IsValue(u"7"));
}

TEST_F(SiblingTest, AtualizaIrmaoHasNoFilter) {
  State().vntValorIrmao = u"'12'";
  (*description)->Browse()->BrwWhere(u"ativo = 1");
  (*description)->Value(u"Ana");
  (*description)->AtualizaIrmao();
  EXPECT_EQ(connection->TakeStatements().at(0),
            u"Select Top 1 codigo From clientes Where nome = 'Ana' And ativo = 1");
}

TEST_F(SiblingTest, AtualizaIrmaoOfANullEmptiesAndRaisesNothing) {
  const auto city = AddReturnField(key, u"cidade");
  for (const bool onlyKeys : {false, true}) {
    city->Valor(u"Campinas");
    (*description)->Value(u"Ana");
    (*key)->AtualizaIrmao(onlyKeys, true);
    EXPECT_EQ((*description)->Value().IsNull(), !onlyKeys);
    EXPECT_THAT(city->Valor(), IsEmptyVariant());
  }
  EXPECT_THAT(key->Events(Kind::BrowseReturn), IsEmpty());
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
}

TEST_F(SiblingTest, AtualizaIrmaoWithoutATableDoesNothingAtAll) {
  (*key)->Browse()->BrowseTable(u"");
  (*key)->Value(u"7");
  (*key)->AtualizaIrmao(false, true);
  EXPECT_THAT(key->Events(Kind::BrowseReturn), IsEmpty());
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// The module and the procedure of this report are not separated.
TEST_F(SiblingTest, AnErrorOfAtualizaIrmaoIsReportedUnderModuleAndProcedureInOneText) {
  (*key)->Browse()->BrwWhere(u"x = @txtNada@");
  (*key)->Value(u"7");
  (*key)->AtualizaIrmao();
  EXPECT_THAT(
      app.TakeBoxes(),
      ElementsAre(memory::MessageBoxRecord{
          0, MissingControl(u"txtNada", u"BrwWhere", key->Name()).Description(), host::box::Stop,
          u"Erro: 730 - Função: tsText.Erro ao efetuar a ataulização do campo "
          u"IrmãoMódulo tsText - Procedimento AtualizaIrmao"}));
}

TEST_F(SiblingTest, AnErrorAfterTheAssignmentLeavesTheSiblingWritten) {
  (*key)->Value(u"7");
  key->OnBrowseReturn = [](bool&, Variant&) { throw HostError(11); };
  (*key)->AtualizaIrmao(false, true);
  EXPECT_EQ(app.TakeBoxes().size(), 1u);
  EXPECT_THAT((*description)->Value(), IsValue(u"Ana"));
}

// --- DisparaEventos -----------------------------------------------------------------------------

TEST_F(SiblingTest, DisparaEventosKnowsOneNameExactly) {
  (*key)->LastValue(u"antes");
  EXPECT_THAT((*key)->DisparaEventos(u"BrowseReturn"), IsEmptyVariant());
  for (const char16_t* other : {u"browsereturn", u"Show", u"Change", u"", u"BrowseReturn "})
    (*key)->DisparaEventos(other);
  ASSERT_EQ(key->Events().size(), 1u);
  EXPECT_TRUE(key->Events()[0].HouveAlteracao);
  EXPECT_THAT(key->Events()[0].LastValue, IsValue(u"antes"));
}

TEST_F(SiblingTest, TheLastValueOfDisparaEventosIsTheMemberItself) {
  key->OnBrowseReturn = [](bool&, Variant& last) { last = u"do programa"; };
  (*key)->DisparaEventos(u"BrowseReturn");
  key->OnBrowseReturn = nullptr;
  (*key)->DisparaEventos(u"BrowseReturn");
  EXPECT_THAT(key->Events().back().LastValue, IsValue(u"do programa"));
}

TEST_F(SiblingTest, AnErrorOfAHandlerOfDisparaEventosReachesTheCaller) {
  key->OnBrowseReturn = [](bool&, Variant&) { throw HostError(11); };
  EXPECT_HOST_ERROR((*key)->DisparaEventos(u"BrowseReturn"), 11);
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// --- Refused names ------------------------------------------------------------------------------

TEST_F(SiblingTest, AControlIsNotItsOwnSiblingInAnyCase) {
  for (const char16_t* own : {u"txtCodigo", u"TXTCODIGO", u"txtcodigo"}) {
    const auto told = key->ChangedProperties().size();
    (*key)->TxtIrmao(own);
    EXPECT_THAT(app.TakeBoxes(), ElementsAre(memory::MessageBoxRecord{
                                     0, u"Como é Que o Componente Consegue ser Irmão Dele Mesmo???",
                                     host::box::Ok, u"Alerta!"}));
    EXPECT_EQ((*key)->TxtIrmao(), u"txtNome");
    EXPECT_EQ(key->ChangedProperties().size(), told);
  }
}

TEST_F(SiblingTest, ASiblingMayBeNamedAtRunTime) {
  (*key)->TxtIrmao(u"txtOutro");
  EXPECT_EQ((*key)->TxtIrmao(), u"txtOutro");
  EXPECT_THAT(key->ChangedProperties(), Contains(u"TxtIrmao"));
}

TEST_F(SiblingTest, ALabelCannotBeNamedAtRunTime) {
  for (const char16_t* name : {u"lblCodigo", u"txtCodigo"}) {
    (*key)->LabelAssociado(name);
    EXPECT_THAT(app.TakeBoxes(),
                ElementsAre(memory::MessageBoxRecord{
                    (*key)->hWnd(),
                    u"Não é possível alterar a propriedade LabelAssociado em Tempo de Execucao",
                    host::box::Ok, u"Alerta!"}));
    EXPECT_EQ((*key)->LabelAssociado(), u"");
  }
  EXPECT_THAT(key->ChangedProperties(), Not(Contains(u"TxtLabelAssociado")));
}

class DesignSiblingTest : public DesignTest {};

TEST_F(DesignSiblingTest, AControlIsNotItsOwnLabelInAnyCase) {
  const auto field = AddField(u"txtCodigo");
  (*field)->LabelAssociado(u"lblCodigo");
  for (const char16_t* own : {u"txtCodigo", u"TXTCODIGO"}) {
    (*field)->LabelAssociado(own);
    EXPECT_THAT(app.TakeBoxes(),
                ElementsAre(memory::MessageBoxRecord{0, u"Tá Querendo me Enganar é ??",
                                                     host::box::Ok, u"Alerta!"}));
    EXPECT_EQ((*field)->LabelAssociado(), u"lblCodigo");
  }
}

}  // namespace
}  // namespace tessaria::test
