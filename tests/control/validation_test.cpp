// Whether a field may be left, depending on the control that has taken the focus.

#include "tests/control/control_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const char16_t* const missing = u" Inexistente, Verifique Por Favor";

/// A field that is not entered itself: the control that "has taken the focus" gets it first.
class ValidationTest : public ControlTest {
 protected:
  ValidationTest() {
    form->Add<memory::Button>(u"btnGravar");
    form->Add<memory::Button>(u"btnCancelar");
    form->Add<memory::Generic>(u"chkAtivo", u"CheckBox", memory::Generic::Focus::Taken);
    form->Add<memory::Label>(u"lblCodigo", u"Código:");
    field = AddStored(u"txtCodigo", {{u"LabelAssociado", u"lblCodigo"}});
    other = AddField(u"txtOutro");
    form->Show();
    (*field)->LastValidaStatus(true);
    connection->SetProperty(u"DBMS Name", u"ACCESS");
    app.TakeBoxes();
  }

  tsText& Control() { return **field; }
  /// Moves the focus without the field's own exit.
  void Focus(const String& name) {
    field->txtEdit().Tag = u"Nao Dispara Valida";
    form->Focus(name);
    field->txtEdit().Tag.clear();
    ASSERT_EQ(ActiveName(), name);
  }
  /// Validates while the control of that name has the focus.
  bool ValidaFrom(const String& name) {
    Focus(name);
    connection->TakeStatements();
    app.TakeBoxes();
    return Control().Valida();
  }
  void RequireText(const char16_t* mask, const char16_t* text) {
    Control().PodeSerBranco(false);
    Control().Mascara(mask);
    field->txtEdit().Text(text);
  }
  void ExpectRefusal(const String& text) {
    EXPECT_THAT(app.TakeBoxes(), ElementsAre(StopBox(Control().hWnd(), text)));
    EXPECT_FALSE(Control().LastValidaStatus());
  }
  void ExpectAllSelected() {
    EXPECT_EQ(field->txtEdit().SelStart(), 0);
    EXPECT_EQ(field->txtEdit().SelText(), field->txtEdit().Text());
  }

  FieldPtr field, other;
};

// --- Own button and cancel ----------------------------------------------------------------------

TEST_F(ValidationTest, TheOwnButtonDoesNotLeaveTheFieldAndIsNotASuccess) {
  Control().TipoControle(TipoControle::Calendario);
  RequireText(u"", u"");
  form->Focus(u"txtCodigo");
  field->btnBrowse().OnClick = nullptr;  // only the focus is needed here, not the dialog
  field->ClickButton();
  Control().LastValidaStatus(true);
  EXPECT_FALSE(Control().Valida());
  EXPECT_FALSE(Control().LastValidaStatus());
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(ValidationTest, AFieldWithoutAnActiveInnerWidgetDoesNotFail) {
  EXPECT_TRUE(ValidaFrom(u"chkAtivo"));
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(ValidationTest, TheCancellingControlSkipsEverythingAndKeepsTheStatus) {
  Control().ObjetoCancelar(u"btnCancelar");
  RequireText(u"dd/mm/yyyy", u"31/04/2017");
  for (const bool status : {true, false}) {
    Control().LastValidaStatus(status);
    EXPECT_FALSE(ValidaFrom(u"btnCancelar"));
    EXPECT_EQ(Control().LastValidaStatus(), status);
    EXPECT_THAT(app.Boxes(), IsEmpty());
    EXPECT_EQ(ActiveName(), u"btnCancelar");
  }
  EXPECT_FALSE(ValidaFrom(u"btnGravar"));
  EXPECT_EQ(app.Boxes().size(), 1u);
}

// --- Required fields ----------------------------------------------------------------------------

TEST_F(ValidationTest, ARequiredBlankIsRefusedOnTheWayToACommandButton) {
  RequireText(u"", u"  ");
  field->txtEdit().SelStart(1);
  EXPECT_FALSE(ValidaFrom(u"btnGravar"));
  ExpectRefusal(u"Código: Não Pode Ser Branco, Verifique Por Favor");
  EXPECT_EQ(ActiveName(), u"txtCodigo");
}

TEST_F(ValidationTest, WithoutALabelTheMessageHasNoPrefix) {
  (*other)->PodeSerBranco(false);
  form->Focus(u"btnGravar");
  EXPECT_FALSE((*other)->Valida());
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(StopBox((*other)->hWnd(), u"Não Pode Ser Branco, Verifique Por Favor")));
}

TEST_F(ValidationTest, AHiddenRequiredBlankDoesNotTakeTheFocus) {
  RequireText(u"", u"");
  field->txtEdit().Visible(false);
  EXPECT_FALSE(ValidaFrom(u"btnGravar"));
  EXPECT_EQ(ActiveName(), u"btnGravar");
}

// The control that took the focus is compared with a name that it can never have, so a required
// blank lets it pass to everything but a real command button; the status is not touched.
TEST_F(ValidationTest, ARequiredBlankIsAllowedOnTheWayToAnythingButACommandButton) {
  RequireText(u"", u"");
  for (const char16_t* taker : {u"chkAtivo", u"txtOutro"}) {
    for (const bool status : {true, false}) {
      Control().LastValidaStatus(status);
      EXPECT_TRUE(ValidaFrom(taker));
      EXPECT_EQ(Control().LastValidaStatus(), status);
    }
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
  EXPECT_THAT(connection->Statements(), IsEmpty());
}

struct Blank {
  const char16_t* Mask;
  const char16_t* Text;
  bool CountsAsBlank;
};

const Blank blanks[] = {
    {u"", u"", true},
    {u"", u"   ", true},
    {u"", u"0", false},
    {u"00/00", u"__/__", true},
    {u"00/00", u"1_/__", false},
    {u"000", u"000", false},  // zeros count as blank only in an amount
    {u"$$$$$.$$", u"", true},
    {u"$$$$$.$$", u"0,00", true},
    {u"$$$$$.$$", u"0.000,00", true},
    {u"$$$$$.$$", u",", true},
    {u"$$$$$.$$", u"0,01", false},
    {u"$$$$$.$$", u"-0", false},
};

TEST_F(ValidationTest, TextsThatCountAsBlank) {
  for (const Blank& row : blanks) {
    SCOPED_TRACE(ToUtf8(row.Mask) + " with " + ToUtf8(row.Text));
    RequireText(row.Mask, row.Text);
    EXPECT_EQ(ValidaFrom(u"btnGravar"), !row.CountsAsBlank);
    Control().PodeSerBranco(true);
    field->txtEdit().Text(row.Text);
    EXPECT_TRUE(ValidaFrom(u"btnGravar"));
  }
}

// --- Dates --------------------------------------------------------------------------------------

struct DateRow {
  const char16_t* Mask;
  const char16_t* Text;
  bool Valid;
  const char16_t* TextAfter;
};

const DateRow dates[] = {
    {u"dd/mm/yyyy", u"25/12/2017", true, u"25/12/2017"},
    {u"dd/mm/yyyy", u"31/04/2017", false, u"31/04/2017"},
    {u"dd/mm/yyyy", u"12/__/____", false, u"12/__/____"},
    {u"dd/mm/yyyy", u"25/12/17__", true, u"25/12/2017"},
    {u"dd/mm/yy", u"25/12/17", true, u"25/12/2017"},
    {u"mm/yyyy", u"12/2017", true, u"12/2017"},
    {u"mm/yy", u"13/17", false, u"13/17"},
    {u"mm/yy", u"12/41", true, u"12/1941"},
    {u"00/00/0000", u"25/12/2017", false, u"25/12/2017"},  // accepts only an empty date
    {u"DD/MM/YYYY", u"25/12/2017", false,
     u"25/12/2017"},                       // a date mask by name, without its own rule
    {u"00/00", u"99/99", true, u"99/99"},  // not a date mask
};

TEST_F(ValidationTest, Dates) {
  for (const DateRow& row : dates) {
    SCOPED_TRACE(ToUtf8(row.Mask) + " with " + ToUtf8(row.Text));
    Control().Mascara(row.Mask);
    field->txtEdit().Text(row.Text);
    EXPECT_EQ(ValidaFrom(u"chkAtivo"), row.Valid);
    EXPECT_EQ(Control().LastValidaStatus(), row.Valid);
    EXPECT_EQ(field->txtEdit().Text(), row.TextAfter);
    if (row.Valid) {
      EXPECT_THAT(app.TakeBoxes(), IsEmpty());
      EXPECT_EQ(ActiveName(), u"chkAtivo");
    } else {
      ExpectRefusal(u"Código: Invalido(a), Corrija Por Favor");
      EXPECT_EQ(ActiveName(), u"txtCodigo");
      ExpectAllSelected();
    }
  }
}

TEST_F(ValidationTest, AnEmptyDatePasses) {
  for (const char16_t* taker : {u"btnGravar", u"chkAtivo"}) {
    Control().Mascara(u"dd/mm/yyyy");
    Control().LastValidaStatus(false);
    EXPECT_TRUE(ValidaFrom(taker));
    EXPECT_TRUE(Control().LastValidaStatus());
  }
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(ValidationTest, ARequiredEmptyDateIsAllowedOnTheWayToAnythingButACommandButton) {
  RequireText(u"dd/mm/yyyy", u"__/__/____");
  Control().LastValidaStatus(false);
  EXPECT_TRUE(ValidaFrom(u"chkAtivo"));
  EXPECT_TRUE(Control().LastValidaStatus());  // here the date rule has set it
}

// The date rule has its own message for a blank, with "(a)"; the general one comes first.
TEST_F(ValidationTest, ARequiredEmptyDateIsRefusedWithTheGeneralMessage) {
  RequireText(u"dd/mm/yyyy", u"__/__/____");
  EXPECT_FALSE(ValidaFrom(u"btnGravar"));
  ExpectRefusal(u"Código: Não Pode Ser Branco, Verifique Por Favor");
}

// --- The focus comes back -----------------------------------------------------------------------

TEST_F(ValidationTest, TwoFailingFieldsDoNotTakeTheFocusFromEachOther) {
  Control().Mascara(u"dd/mm/yyyy");
  for (const bool otherIsValid : {true, false}) {
    field->txtEdit().Text(u"31/04/2017");
    Focus(u"txtOutro");
    (*other)->LastValidaStatus(otherIsValid);
    EXPECT_FALSE(Control().Valida());
    EXPECT_EQ(ActiveName(), otherIsValid ? u"txtCodigo" : u"txtOutro");
    ExpectAllSelected();
  }
}

TEST_F(ValidationTest, AHiddenFieldDoesNotTakeTheFocusBack) {
  Control().Mascara(u"dd/mm/yyyy");
  field->txtEdit().Text(u"31/04/2017");
  field->txtEdit().Visible(false);
  EXPECT_FALSE(ValidaFrom(u"chkAtivo"));
  EXPECT_EQ(ActiveName(), u"chkAtivo");
  ExpectAllSelected();
}

// --- The relation -------------------------------------------------------------------------------

class RelationTest : public ValidationTest {
 protected:
  RelationTest() {
    State().dbConexao = connection;
    const auto definition = Control().Browse();
    definition->BrowseTable(u"clientes");
    definition->BrwCampo(u"codigo");
    connection->OnStatement = [this](const String& statement) {
      const bool probes = statement.find(u"=Null") != String::npos;
      return probes ? Found({}) : Found(answer);
    };
  }

  static memory::Rows Found(const std::vector<memory::Row>& rows) {
    memory::Column codigo{u"codigo", host::type::VarWChar};
    return {{codigo}, rows};
  }
  void Type(const char16_t* mask, const char16_t* text) {
    Control().Mascara(mask);
    field->txtEdit().Text(text);
  }
  /// The statement that reads the row, after the one that reads the field's type.
  String Asked() {
    const auto statements = connection->TakeStatements();
    return statements.empty() ? String() : statements.back();
  }

  std::vector<memory::Row> answer = {{u"15"}};
};

TEST_F(RelationTest, AFieldThatUsesNoRelationNeverReachesTheDatabase) {
  Control().UsaChecaRelacao(false);
  Control().LastValidaStatus(false);
  Type(u"", u"15");
  EXPECT_TRUE(ValidaFrom(u"chkAtivo"));
  EXPECT_TRUE(Control().LastValidaStatus());
  EXPECT_THAT(connection->Statements(), IsEmpty());
}

TEST_F(RelationTest, AnUnboundValueIsSearchedByTheTypeOfTheTablesField) {
  Type(u"", u"15");
  EXPECT_TRUE(ValidaFrom(u"chkAtivo"));
  EXPECT_THAT(connection->TakeStatements(),
              ElementsAre(u"Select Top 1 codigo From clientes Where codigo=Null",
                          u"Select Top 1 codigo From clientes Where codigo = '15'"));
}

TEST_F(RelationTest, TheJoinReplacesTheTable) {
  Control().Browse()->BrwLeftJoin(u"clientes Left Join cidades on cid = cod");
  Type(u"", u"15");
  EXPECT_TRUE(ValidaFrom(u"chkAtivo"));
  EXPECT_EQ(Asked(),
            u"Select Top 1 codigo From clientes Left Join cidades on cid = cod "
            u"Where codigo = '15'");
}

TEST_F(RelationTest, TheLiteralsOfTheMaskAreSearchedOnlyWithPromptInclude) {
  Type(u"00.00", u"1_.5_");
  EXPECT_TRUE(ValidaFrom(u"chkAtivo"));
  EXPECT_EQ(Asked(), u"Select Top 1 codigo From clientes Where codigo = '15'");
  Control().PromptInclude(true);
  Type(u"00.00", u"1_.5_");
  EXPECT_TRUE(ValidaFrom(u"chkAtivo"));
  EXPECT_EQ(Asked(), u"Select Top 1 codigo From clientes Where codigo = '1.5'");
}

TEST_F(RelationTest, TheConditionIsExpanded) {
  Control().Browse()->BrwWhere(u"cidade = @txtOutro@");
  (*other)->Value(u"3");
  Type(u"", u"15");
  EXPECT_TRUE(ValidaFrom(u"chkAtivo"));
  EXPECT_EQ(Asked(), u"Select Top 1 codigo From clientes Where codigo = '15' And cidade = 3");
}

// The key of a chosen row narrows only the description lookup and the completion.
TEST_F(RelationTest, TheKeyOfAChosenRowIsNotPartOfTheCondition) {
  Control().TipoControle(TipoControle::Descricao);
  Control().Browse()->BrwCampoIrmao(u"cidade");
  State().vntValorIrmao = u"'3'";
  Type(u"", u"15");
  EXPECT_TRUE(ValidaFrom(u"chkAtivo"));
  EXPECT_EQ(Asked().find(u"cidade"), String::npos);
  EXPECT_THAT(State().vntValorIrmao, IsValue(u"'3'"));
}

TEST_F(RelationTest, AValueInTheConditionStaysOneToken) {
  Control().Browse()->BrwWhere(u"cidade = '@txtOutro@'");
  (*other)->Value(u"' or ''='");
  Type(u"", u"15");
  EXPECT_TRUE(ValidaFrom(u"chkAtivo"));
  EXPECT_EQ(Asked(),
            u"Select Top 1 codigo From clientes Where codigo = '15' And cidade = ''' or ''''='''");
}

TEST_F(RelationTest, AValueThatIsNotOneTokenOfTheConditionIsRefusedBeforeItIsSent) {
  Control().Browse()->BrwWhere(u"cidade = @txtOutro@");
  (*other)->Value(u"0 or true");
  Type(u"", u"15");
  EXPECT_HOST_ERROR(ValidaFrom(u"chkAtivo"), errors::TypeMismatch);
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
}

// The field is the control's own text when it has one; table and condition are the definition's.
TEST_F(RelationTest, OnlyTheFieldIsTakenFromTheControlsOwnTexts) {
  const auto stored = AddStored(u"txtLido", {{u"BrowseTable", u"outra"},
                                             {u"BrwCampo", u"id"},
                                             {u"BrwLeftJoin", u"outra a"},
                                             {u"BrwWhere", u"x = 1"}});
  stored->txtEdit().Text(u"15");
  EXPECT_TRUE((*stored)->Valida());
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());  // the definition has no table
  (*stored)->Browse()->BrowseTable(u"clientes");
  EXPECT_TRUE((*stored)->Valida());
  EXPECT_EQ(Asked(), u"Select Top 1 id From clientes Where id = '15'");
}

TEST_F(RelationTest, ADescriptionIsAlwaysTextAndTrimmed) {
  Control().TipoControle(TipoControle::Descricao);
  Type(u"", u" D'Ávila ");
  EXPECT_TRUE(ValidaFrom(u"chkAtivo"));
  EXPECT_THAT(connection->TakeStatements(),
              ElementsAre(u"Select Top 1 codigo From clientes Where codigo = 'D''Ávila'"));
}

TEST_F(RelationTest, TheFoundValueIsLaidOutInTheBox) {
  answer = {{u"ab1"}};
  Type(u"", u"AB1");
  EXPECT_TRUE(ValidaFrom(u"chkAtivo"));
  EXPECT_EQ(field->txtEdit().Text(), u"ab1");
  answer = {{u"9"}};
  Type(u"00-00", u"9___");
  EXPECT_TRUE(ValidaFrom(u"chkAtivo"));
  EXPECT_EQ(field->txtEdit().Text(), u"9_-__");
}

// The result is a field, which exists even if it holds Null.
TEST_F(RelationTest, AFoundNullEmptiesTheBox) {
  answer = {{Variant::Null()}};
  Type(u"00-00", u"15-__");
  EXPECT_TRUE(ValidaFrom(u"chkAtivo"));
  EXPECT_EQ(field->txtEdit().Text(), u"__-__");
}

// The label is followed by its own blank and by that of the message: both are shown.
TEST_F(RelationTest, AMissingRowIsReportedWithTheLabelAndTwoBlanks) {
  answer = {};
  Type(u"", u"99");
  EXPECT_FALSE(ValidaFrom(u"chkAtivo"));
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(memory::MessageBoxRecord{
                                   Control().hWnd(), u"Código:  Inexistente, Verifique Por Favor",
                                   host::box::Exclamation, u"Alerta!"}));
  EXPECT_FALSE(Control().LastValidaStatus());
  EXPECT_EQ(ActiveName(), u"txtCodigo");
  ExpectAllSelected();
}

TEST_F(RelationTest, AMissingRowWithoutALabelIsReportedWithFieldAndTable) {
  answer = {};
  (*other)->BrowseTable(u"clientes");
  (*other)->BrwCampo(u"codigo");
  other->txtEdit().Text(u"99");
  form->Focus(u"chkAtivo");
  EXPECT_FALSE((*other)->Valida());
  ASSERT_EQ(app.Boxes().size(), 1u);
  EXPECT_EQ(app.Boxes()[0].Text, String(u"codigo de clientes") + missing);
}

TEST_F(RelationTest, AnAllowedBlankIsAcceptedOnTheWayToACommandButtonWithoutAQuery) {
  Type(u"", u"");
  EXPECT_TRUE(ValidaFrom(u"btnGravar"));
  EXPECT_TRUE(Control().LastValidaStatus());
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
}

TEST_F(RelationTest, ARefusedStatementLeavesTheFieldInvalid) {
  connection->OnStatement = [](const String&) -> std::optional<memory::Rows> {
    throw HostError(errors::ProviderError, u"servidor parado");
  };
  Type(u"", u"15");
  EXPECT_FALSE(ValidaFrom(u"chkAtivo"));
  EXPECT_FALSE(Control().LastValidaStatus());
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(HostError(errors::ProviderError, u"servidor parado"),
                                   u"ChecaRelacao", u"mdlObjTxt")));
  EXPECT_EQ(field->txtEdit().Text(), u"15");
}

// --- Errors -------------------------------------------------------------------------------------

/// A control whose value fails a number of times before it can be read.
void AddFailing(memory::Form& form, int failures) {
  const auto part = form.Add<memory::Generic>(u"txtFalha", u"TextBox");
  part->Properties().Add(u"Value", [left = failures]() mutable -> Variant {
    if (left-- > 0) throw HostError(errors::ObjectNotSet);
    return u"3";
  });
}

TEST_F(RelationTest, TheFirstErrorStartsTheRulesAgain) {
  AddFailing(*form, 1);
  Control().Browse()->BrwWhere(u"cidade = @txtFalha@");
  Type(u"", u"15");
  EXPECT_TRUE(ValidaFrom(u"txtCodigo"));
  EXPECT_EQ(Asked(), u"Select Top 1 codigo From clientes Where codigo = '15' And cidade = 3");
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(RelationTest, TheSecondErrorIsRaisedToTheCaller) {
  AddFailing(*form, 2);
  Control().Browse()->BrwWhere(u"cidade = @txtFalha@");
  Type(u"", u"15");
  Focus(u"txtCodigo");
  EXPECT_HOST_ERROR(Control().Valida(), 91);
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// It is also an error that no inner widget is active: it counts as the first.
TEST_F(RelationTest, FromOutsideTheFieldTheFirstErrorOfARuleIsRaisedToTheCaller) {
  AddFailing(*form, 1);
  Control().Browse()->BrwWhere(u"cidade = @txtFalha@");
  Type(u"", u"15");
  Focus(u"chkAtivo");
  EXPECT_HOST_ERROR(Control().Valida(), 91);
}

// --- The relation alone -------------------------------------------------------------------------

TEST_F(RelationTest, TheCheckAloneShowsNoMessageAndDoesNotTouchTheField) {
  Control().Browse()->BrwWhere(u"ativo = 1");
  Type(u"", u"99");
  form->Focus(u"chkAtivo");
  for (const bool exists : {true, false}) {
    answer = exists ? std::vector<memory::Row>{{u"99a"}} : std::vector<memory::Row>{};
    for (const bool status : {true, false}) {
      Control().LastValidaStatus(status);
      EXPECT_EQ(Control().AcionaChecaRelacao(), exists);
      EXPECT_EQ(Control().LastValidaStatus(), status);
    }
    // The condition is left out.
    EXPECT_EQ(Asked(), u"Select Top 1 codigo From clientes Where codigo = '99'");
  }
  EXPECT_EQ(field->txtEdit().Text(), u"99");
  EXPECT_EQ(ActiveName(), u"chkAtivo");
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(RelationTest, TheCheckAloneAcceptsABlankEvenIfRequired) {
  RequireText(u"", u"");
  form->Focus(u"btnGravar");
  EXPECT_TRUE(Control().AcionaChecaRelacao());
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(RelationTest, AnErrorOfTheCheckAloneIsReported) {
  Type(u"", u"99");
  form->Remove(u"lblCodigo");
  EXPECT_FALSE(Control().AcionaChecaRelacao());
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(MissingControl(u"lblCodigo", u"LabelAssociado", u"txtCodigo"),
                                   u"AcionaChecaRelacao")));
}

}  // namespace
}  // namespace tessaria::test
