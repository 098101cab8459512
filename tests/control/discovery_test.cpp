// A control finds its connection, sibling, data control, field and label by name.

#include <algorithm>

#include "tests/control/control_fixture.h"
#include "tests/control/raw_rows.h"

namespace tessaria::test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

const char16_t* const noConnection =
    u"Não foi Possível Conectar 'dbForm'. Contate Administrador de Sistema.\r";

class DiscoveryTest : public ControlTest {
 protected:
  DiscoveryTest() : field(AddField(u"txtCodigo")) {}

  tsText& Control() { return **field; }
  memory::MessageBoxRecord BoxOf(const String& text, const String& title) {
    return StopBox(Control().hWnd(), text, title);
  }
  memory::MessageBoxRecord NoConnection(const String& description, const char16_t* number) {
    return BoxOf(noConnection + description, String(u"Objeto: 'txtCodigo' Erro: ") + number);
  }
  /// Whether an assignment reaches the rows.
  static bool IsBound(const FieldPtr& control, const std::shared_ptr<RawRows>& rows) {
    rows->Written.clear();
    (*control)->Value(u"9");
    return !rows->Written.empty();
  }

  FieldPtr field;
};

// --- The connection -----------------------------------------------------------------------------

TEST_F(DiscoveryTest, OnlyKindsThatQueryTheDatabaseNeedTheConnection) {
  form->Properties().Remove(u"dbForm");
  for (const Long kind : {0, 1, 2, 3, 4, 5}) {
    SCOPED_TRACE(kind);
    Control().TipoControle(static_cast<TipoControle>(kind));
    Control().Refresh();
    EXPECT_EQ(app.TakeBoxes().size(), kind == 1 || kind == 3 ? 1u : 0u);
  }
}

TEST_F(DiscoveryTest, AFormWithoutTheConnectionIsReportedWithItsError) {
  form->Properties().Remove(u"dbForm");
  Control().TipoControle(TipoControle::Browse);
  Control().Refresh();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(NoConnection(ErrorDescription(438), u"438")));
}

// An empty property is not an error: number 0 and no description are shown.
TEST_F(DiscoveryTest, AnEmptyConnectionIsReportedWithNumberZero) {
  Control().TipoControle(TipoControle::Descricao);
  for (const Variant& empty : {Variant(), Variant::Null(), Variant(ObjectPtr())}) {
    form->DbForm(empty);
    Control().Refresh();
    EXPECT_THAT(app.TakeBoxes(), ElementsAre(NoConnection(u"", u"0")));
  }
}

TEST_F(DiscoveryTest, AnotherObjectInItsPlaceIsReportedWithItsError) {
  Control().TipoControle(TipoControle::Browse);
  form->DbForm(u"DSN=teste");
  Control().Refresh();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(NoConnection(ErrorDescription(424), u"424")));
}

TEST_F(DiscoveryTest, WithoutTheConnectionNothingElseIsDone) {
  form->DbForm(Variant());
  form->Add<memory::Label>(u"lblCodigo");
  AddData({{u"codigo"}}, {{u"7"}})->Refresh();
  const auto key = AddStored(u"txtChave", {{u"TipoControle", Long{1}},
                                           {u"LabelAssociado", u"lblCodigo"},
                                           {u"TxtIrmao", u"txtQueNaoHa"},
                                           {u"DataSource", u"dtcDados"},
                                           {u"DataField", u"codigo"}});
  (*key)->Refresh();
  EXPECT_EQ(app.TakeBoxes().size(), 1u);
  EXPECT_THAT((*key)->Value(), IsEmptyVariant());
  EXPECT_EQ((*key)->PosDataField(), u"");
}

TEST_F(DiscoveryTest, TheThreadsConnectionIsTheLastOneFound) {
  Control().Refresh();
  EXPECT_EQ(State().dbConexao, nullptr);
  Control().TipoControle(TipoControle::Browse);
  Control().Refresh();
  EXPECT_EQ(State().dbConexao, connection);
  const auto second = memory::Connection::CreateOpen();
  form->DbForm(second);
  Control().Refresh();
  EXPECT_EQ(State().dbConexao, second);
}

// --- The sibling --------------------------------------------------------------------------------

class SiblingDiscoveryTest : public DiscoveryTest {
 protected:
  SiblingDiscoveryTest() {
    AddField(u"txtNome");
    form->Add<memory::Label>(u"lblNome");
    Control().TipoControle(TipoControle::Descricao);
  }
  bool IsConnected() {
    Control().UserControl_EnterFocus();
    return !State().vntValorIrmao.IsEmpty();
  }
};

TEST_F(SiblingDiscoveryTest, AControlOfThisLibraryIsASibling) {
  Control().TxtIrmao(u"TXTNOME");
  EXPECT_FALSE(IsConnected());  // only the next search finds it
  Control().Refresh();
  EXPECT_TRUE(IsConnected());
}

TEST_F(SiblingDiscoveryTest, AnythingElseIsIgnored) {
  for (const char16_t* name : {u"lblNome", u"", u"   "}) {
    Control().TxtIrmao(name);
    Control().Refresh();
    EXPECT_FALSE(IsConnected());
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(SiblingDiscoveryTest, AMissingSiblingIsReportedAndEndsTheSearch) {
  AddData({{u"codigo"}}, {{u"7"}})->Refresh();
  Bind(field, u"codigo");
  Control().TxtIrmao(u"txtQueNaoHa");
  Control().Refresh();
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(MissingControl(u"txtQueNaoHa", u"TxtIrmao", field->Name()),
                                   u"SetarVariaveis")));
  EXPECT_EQ(Control().PosDataField(), u"");
}

TEST_F(SiblingDiscoveryTest, TheFlagIsNeverCleared) {
  Control().TxtIrmao(u"txtNome");
  Control().Refresh();
  Control().TxtIrmao(u"lblNome");
  Control().Refresh();
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
  Control().UserControl_EnterFocus();  // still counts as connected, but the label is not a sibling
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(ErrorBox(HostError(438), u"UserControl_EnterFocus")));
}

// --- The data control ---------------------------------------------------------------------------

class BindingTest : public DiscoveryTest {
 protected:
  BindingTest() {
    Bind(field, u"campo");
    rows->Field.Value = u"da linha";
  }
  std::shared_ptr<memory::DataControl> AddRows(const String& typeName = u"Adodc") {
    const auto data = form->Add<memory::DataControl>(u"dtcDados", typeName);
    data->ConnectionString(u"DSN=teste");
    data->RecordSource(u"crua");
    data->RecordSet(rows);
    return data;
  }
  memory::MessageBoxRecord NotFound(const String& description, const char16_t* number) {
    return BoxOf(u"Não foi Possível Localizar o Data Control 'dtcDados'.\r" + description,
                 String(u"Objeto: 'txtCodigo' Erro: ") + number);
  }

  std::shared_ptr<RawRows> rows = std::make_shared<RawRows>();
};

TEST_F(BindingTest, ARowIsLoaded) {
  AddRows();
  Control().Refresh();
  EXPECT_THAT(Control().Value(), IsValue(u"da linha"));
  EXPECT_THAT(Control().OriginalValue(), IsValue(u"da linha"));
  EXPECT_EQ(field->txtEdit().Text(), u"da linha");
  EXPECT_THAT(rows->Written, IsEmpty());  // showing a row writes nothing
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(BindingTest, TheOriginalValueIsReadAgainAfterTheAssignment) {
  AddRows();
  field->OnChange = [&] { rows->Field.Value = u"de um tratador"; };
  Control().Refresh();
  EXPECT_THAT(Control().Value(), IsValue(u"da linha"));
  EXPECT_THAT(Control().OriginalValue(), IsValue(u"de um tratador"));
}

TEST_F(BindingTest, WithoutBothNamesTheValueIsNull) {
  AddRows();
  for (const bool hasSource : {true, false}) {
    Control().DataSource(hasSource ? u"dtcDados" : u"");
    Control().DataField(hasSource ? u"" : u"campo");
    Control().Value(u"antes");
    Control().Refresh();
    EXPECT_THAT(Control().Value(), IsNullVariant());
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(BindingTest, AMissingDataControlIsReportedWithItsError) {
  Control().Refresh();
  EXPECT_THAT(
      app.TakeBoxes(),
      ElementsAre(NotFound(MissingControl(u"dtcDados", u"DataSource", field->Name()).Description(),
                           CStr(Variant(errors::ControlNotFound)).c_str())));
}

// The ending of the type's name decides, case-sensitive; there is no error, so number 0 is shown.
TEST_F(BindingTest, TheTypeNameMustEndInAdodc) {
  for (const auto& [typeName, found] :
       {std::pair{u"Adodc", true}, {u"MeuAdodc", true}, {u"adodc", false}, {u"AdodcX", false}}) {
    SCOPED_TRACE(ToUtf8(typeName));
    AddRows(typeName);
    Control().Refresh();
    if (found)
      EXPECT_THAT(app.TakeBoxes(), IsEmpty());
    else
      EXPECT_THAT(app.TakeBoxes(), ElementsAre(NotFound(u"", u"0")));
    form->Remove(u"dtcDados");
  }
}

TEST_F(BindingTest, TheEndingOfTheControlsNameDoesNotCount) {
  form->Add<memory::Generic>(u"meuAdodc", u"Frame");
  Control().DataSource(u"meuAdodc");
  Control().Refresh();
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(BoxOf(u"Não foi Possível Localizar o Data Control 'meuAdodc'.\r",
                                u"Objeto: 'txtCodigo' Erro: 0")));
}

TEST_F(BindingTest, ADataControlThatIsNotConfiguredIsNotFound) {
  const auto data = AddRows();
  data->ConnectionString(u"");
  Control().Refresh();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(NotFound(u"", u"0")));
  data->ConnectionString(u"DSN=teste");
  data->RecordSource(u"");
  Control().Refresh();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(NotFound(u"", u"0")));
}

TEST_F(BindingTest, ClosedRowsLeaveTheControlUnboundWithoutAMessage) {
  AddRows();
  rows->Field.IsOpen = false;
  Control().Refresh();
  EXPECT_THAT(app.Boxes(), IsEmpty());
  EXPECT_FALSE(IsBound(field, rows));
}

TEST_F(BindingTest, MissingRowsAreReported) {
  AddRows()->RecordSet(nullptr);
  Control().Refresh();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(ErrorBox(HostError(91), u"SetarVariaveis")));
}

TEST_F(BindingTest, AtTheEndsOfTheRowsBothValuesAreNull) {
  AddRows();
  Control().Refresh();
  for (const bool atEof : {true, false}) {
    rows->Field.AtEof = atEof;
    rows->Field.AtBof = !atEof;
    rows->Written.clear();
    Control().Refresh();
    EXPECT_THAT(Control().Value(), IsNullVariant());
    EXPECT_THAT(Control().OriginalValue(), IsNullVariant());
    EXPECT_THAT(rows->Written, IsEmpty());
  }
}

// --- The field ----------------------------------------------------------------------------------

TEST_F(BindingTest, AMissingFieldIsReportedInCapitalsWithNumberZero) {
  AddRows();
  Control().DataField(u"não_há");
  Control().Refresh();
  EXPECT_THAT(
      app.TakeBoxes(),
      ElementsAre(
          BoxOf(u"Não Foi Possível Conectar o Objeto 'txtCodigo' ao Campo NÃO_HÁ.\r", u"Erro: 0")));
  EXPECT_FALSE(IsBound(field, rows));
}

TEST_F(BindingTest, ABoundControlMayLoseItsField) {
  AddRows();
  Control().Refresh();
  EXPECT_TRUE(IsBound(field, rows));
  rows->Field.Name = u"outro";
  Control().Refresh();
  app.TakeBoxes();
  EXPECT_FALSE(IsBound(field, rows));
}

struct Cache {
  const char16_t* Before;
  const char16_t* After;
};

class FieldTest : public DiscoveryTest {
 protected:
  FieldTest() {
    data = AddData({{u"nome"}, {u"codigo"}, {u"CODIGO"}}, {{u"Ana", u"7", u"8"}, {u"Bia", u"9"}});
    data->Refresh();
    Bind(field, u"Codigo");
  }
  std::shared_ptr<memory::DataControl> data;
};

TEST_F(FieldTest, TheCachedOrdinalIsCorrected) {
  const Cache caches[] = {{u"", u"1"},   {u"0", u"1"},   {u"1", u"1"},  {u"2", u"2"},
                          {u"99", u"1"}, {u"abc", u"1"}, {u"-1", u"1"}, {u"3", u"1"}};
  for (const Cache& row : caches) {
    SCOPED_TRACE(ToUtf8(row.Before));
    Control().PosDataField(row.Before);
    Control().Refresh();
    EXPECT_EQ(Control().PosDataField(), row.After);
    EXPECT_THAT(Control().Value(), IsValue(u"7"));
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(FieldTest, OnlyACorrectionIsNotified) {
  Control().Refresh();
  EXPECT_THAT(field->ChangedProperties(), Contains(u"PosDataField"));
  const auto told = std::count(field->ChangedProperties().begin(), field->ChangedProperties().end(),
                               u"PosDataField");
  Control().Refresh();
  EXPECT_EQ(std::count(field->ChangedProperties().begin(), field->ChangedProperties().end(),
                       u"PosDataField"),
            told);
}

TEST_F(FieldTest, RefreshShowsTheRowThatTheProgramMovedTo) {
  Control().Refresh();
  data->RecordSet()->MoveNext();
  EXPECT_THAT(Control().Value(), IsValue(u"7"));
  Control().Refresh();
  EXPECT_THAT(Control().Value(), IsValue(u"9"));
  data->RecordSet()->MoveNext();
  Control().Refresh();
  EXPECT_THAT(Control().Value(), IsNullVariant());
}

TEST_F(FieldTest, ARequeryNeedsNoNewBinding) {
  Control().Refresh();
  data->Refresh();
  Control().Value(u"10");
  EXPECT_THAT(data->RecordSet()->Fields().Item(1)->Value(), IsValue(u"10"));
}

TEST_F(FieldTest, ALoadedRowFetchesItsDescriptionAndOnlyThat) {
  State().dbConexao = connection;
  connection->OnStatement = [](const String& statement) -> std::optional<memory::Rows> {
    if (statement == u"dados") return std::nullopt;
    return memory::Rows{{{u"nome"}}, {{u"Ana"}}};
  };
  Control().BrowseTable(u"clientes");
  Control().BrwCampo(u"codigo");
  Control().BrwCampoIrmao(u"nome");
  connection->TakeStatements();
  Control().Refresh();
  EXPECT_EQ(connection->TakeStatements().size(), 1u);
  Control().Value(u"8");  // the flag is clear again
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
}

// --- The label ----------------------------------------------------------------------------------

class LabelDiscoveryTest : public DiscoveryTest {
 protected:
  FieldPtr AddLabelled(const String& label) {
    return AddStored(
        u"txtComLegenda",
        {{u"LabelAssociado", label}, {u"DataSource", u"dtcNada"}, {u"DataField", u"campo"}});
  }
};

TEST_F(LabelDiscoveryTest, TheLabelIsFoundAlsoWhenTheFieldIsNot) {
  const auto label = form->Add<memory::Label>(u"lblCodigo");
  const auto labelled = AddLabelled(u"LBLCODIGO");
  (*labelled)->Refresh();
  app.TakeBoxes();
  labelled->txtEdit().OnGotFocus();
  EXPECT_EQ(label->ForeColor(), 0xFF0000u);
}

TEST_F(LabelDiscoveryTest, AnythingElseIsIgnored) {
  AddField(u"txtNome");
  const auto labelled = AddLabelled(u"txtNome");
  (*labelled)->Refresh();
  app.TakeBoxes();
  labelled->txtEdit().OnGotFocus();
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(LabelDiscoveryTest, AMissingLabelIsReported) {
  const auto labelled = AddStored(u"txtComLegenda", {{u"LabelAssociado", u"lblNada"}});
  (*labelled)->Refresh();
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(MissingControl(u"lblNada", u"LabelAssociado", u"txtComLegenda"),
                                   u"SetarVariaveis")));
}

}  // namespace
}  // namespace tessaria::test
