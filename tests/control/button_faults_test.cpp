// The button when something fails: errors in a dialog, and forms that close while it is open.

#include "tests/control/button_fixture.h"

namespace tessaria::test {
namespace {

using memory::Key;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// --- Errors -------------------------------------------------------------------------------------

class ButtonFaults : public ButtonTest {
 protected:
  /// Removes the desktop, so that no window can be created.
  void ClickWithNoDesktop() {
    const auto former = std::exchange(State().desktop, nullptr);
    field->btnBrowse().OnClick();
    State().desktop = former;
  }
  memory::MessageBoxRecord Reported(Long error) {
    return ErrorBox(HostError(error), u"btnBrowse_Click");
  }
};

TEST_F(ButtonFaults, AnErrorIsReportedAndTheFieldStaysSilentUntilAClickSucceeds) {
  const struct {
    TipoControle Kind;
    StringView Window;
  } rows[] = {{TipoControle::Calendario, u"frmCalendario"},
              {TipoControle::Diretorio, u"frmDiretorio"},
              {TipoControle::Calculadora, u"frmCalculadora"}};
  Control().DirVerArquivos(false);
  Show(TipoControle::Normal);
  for (const auto& row : rows) {
    SCOPED_TRACE(ToUtf8(row.Window));
    Control().TipoControle(row.Kind);
    Control().Value(Variant::Null());
    field->ForgetEvents();
    form->Focus(u"txtCampo");
    ClickWithNoDesktop();
    EXPECT_THAT(app.TakeBoxes(), ElementsAre(Reported(errors::ObjectNotSet)));
    EXPECT_EQ(Box().Tag, silenced);
    EXPECT_THAT(Returns(), IsEmpty());

    // The field no longer validates when it is left, and does not store what was typed.
    Box().Text(u"abc");
    form->Focus(u"chkAtivo");
    EXPECT_THAT(Returns(), IsEmpty());
    EXPECT_THAT(Control().Value(), IsNullVariant());
    EXPECT_EQ(Box().Tag, silenced);

    Box().Text(u"");
    Click(row.Window, Close);
    EXPECT_EQ(Box().Tag, u"");
    EXPECT_THAT(Returns(), SizeIs(1));
    EXPECT_THAT(app.TakeBoxes(), IsEmpty());
  }
}

TEST_F(ButtonFaults, ABoxWithOnlyFillCharactersIsAnErrorOfTheCalculator) {
  Show(TipoControle::Calculadora);
  Control().Mascara(u"####");
  Box().Text(u"____");
  field->btnBrowse().OnClick();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(Reported(errors::TypeMismatch)));
  EXPECT_EQ(Box().Tag, silenced);
  EXPECT_THAT(Returns(), IsEmpty());
  // The window was created and stays for the next click.
  EXPECT_TRUE(State().frmCalculadora != nullptr);
  Box().Text(u"12__");
  Click(u"frmCalculadora", Close);
  EXPECT_FALSE(State().frmCalculadora);
  EXPECT_EQ(Box().Tag, u"");
}

TEST_F(ButtonFaults, ANameWithADotAndNoSeparatorIsAnErrorOfThePathPicker) {
  Control().DirVerArquivos(false);
  Show(TipoControle::Diretorio);
  Box().Text(u"carta.txt");
  Control().DirVerArquivos(true);
  field->btnBrowse().OnClick();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(Reported(errors::InvalidArgument)));
  EXPECT_EQ(Box().Tag, silenced);
  EXPECT_THAT(Returns(), IsEmpty());
}

TEST_F(ButtonFaults, ADateOfSixDigitsIsAnErrorOfTheCalendar) {
  Show(TipoControle::Calendario);
  Control().Mascara(u"dd/mm/yy");
  Box().Text(u"05/03/18");
  field->btnBrowse().OnClick();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(Reported(errors::TypeMismatch)));
  EXPECT_EQ(Box().Tag, silenced);
}

// The position is determined first, even for a field that opens nothing.
TEST_F(ButtonFaults, APositionThatCannotBeDeterminedIsAnErrorOfEveryKind) {
  const auto frame = form->Add<memory::Generic>(u"fraDados", u"Frame");
  field->Settings().Container = frame;
  Show(TipoControle::Normal);
  form->Remove(u"fraDados");
  Long kind = 0;
  for (const TipoControle wanted :
       {TipoControle::Normal, TipoControle::Browse, TipoControle::Calendario,
        TipoControle::Descricao, TipoControle::Diretorio, TipoControle::Calculadora}) {
    SCOPED_TRACE(kind++);
    Control().TipoControle(wanted);
    field->btnBrowse().OnClick();
    EXPECT_THAT(app.TakeBoxes(), ElementsAre(Reported(errors::ObjectNotSet)));
    EXPECT_EQ(Box().Tag, silenced);
  }
  EXPECT_THAT(Returns(), IsEmpty());
}

TEST_F(ButtonFaults, AnErrorOfTheApplicationsHandlerIsReportedAndLastValueIsNotUpdated) {
  Show(TipoControle::Browse);
  Control().Value(u"1");
  form->Focus(u"chkAtivo");
  form->Focus(u"txtCampo");
  field->OnBrowseReturn = [](bool&, Variant&) { throw HostError(11); };
  Click(u"frmBrowse", Pick(2));
  field->OnBrowseReturn = nullptr;
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(Reported(11)));
  EXPECT_EQ(Box().Tag, silenced);
  EXPECT_THAT(Control().Value(), IsValue(u"15"));
  EXPECT_THAT(LastValue(), IsValue(u"1"));
}

TEST_F(ButtonFaults, ALookupReportsItsOwnErrorsAndTheClickContinues) {
  Show(TipoControle::Browse);
  connection->FailNext(HostError(errors::ProviderError, u"a consulta falhou"));
  field->btnBrowse().OnClick();
  EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
  EXPECT_THAT(desktop->Shown(), IsEmpty());
  EXPECT_EQ(Box().Tag, u"");
  EXPECT_THAT(Returns(), SizeIs(1));
}

TEST_F(ButtonFaults,
       AConditionWithAMissingControlIsReportedAsAnErrorOfTheListAndTheClickContinues) {
  Control().BrwWhere(u"cidade = @txtNada@");
  Show(TipoControle::Browse);
  connection->TakeStatements();
  field->btnBrowse().OnClick();
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(MissingControl(u"txtNada", u"BrwWhere", u"txtCampo"),
                                   u"VerBrowse", u"mdlObjTxt")));
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
  EXPECT_EQ(Box().Tag, u"");
  EXPECT_THAT(Returns(), SizeIs(1));
}

TEST_F(ButtonFaults, AMissingKeyIsAnErrorOfItsDescription) {
  AddField(u"txtChave");
  Control().TxtIrmao(u"txtChave");
  Show(TipoControle::Descricao);
  form->Remove(u"txtChave");
  field->btnBrowse().OnClick();
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(MissingControl(u"txtChave", u"TxtIrmao", u"txtCampo"),
                                   u"btnBrowse_Click")));
  EXPECT_EQ(Box().Tag, silenced);
}

// --- The end of controls ------------------------------------------------------------------------

class ClosedUnderADialog : public ButtonTest, public testing::WithParamInterface<TipoControle> {};

INSTANTIATE_TEST_SUITE_P(Button, ClosedUnderADialog,
                         testing::Values(TipoControle::Browse, TipoControle::Calendario,
                                         TipoControle::Descricao, TipoControle::Diretorio,
                                         TipoControle::Calculadora));

TEST_P(ClosedUnderADialog, TheOwnFormMayClose) {
  Show(GetParam());
  form->Focus(u"txtCampo");
  desktop->WillShow(WindowOf(GetParam()), [&](memory::Dialog& shown) {
    form->Close();
    EXPECT_TRUE(shown.IsShown());
    shown.CloseWindow();
  });
  form->Press(Key::PageDown);
  EXPECT_TRUE(form->IsClosed());
  EXPECT_TRUE(AllReleased());
  EXPECT_HOST_ERROR(**field, errors::ObjectNotSet);
}

TEST_P(ClosedUnderADialog, TheControlMayGoAway) {
  Show(GetParam());
  form->Focus(u"txtCampo");
  desktop->WillShow(WindowOf(GetParam()), [&](memory::Dialog& shown) {
    form->Remove(u"txtCampo");
    shown.CloseWindow();
  });
  form->Press(Key::PageDown);
  EXPECT_TRUE(AllReleased());
  EXPECT_HOST_ERROR(**field, errors::ObjectNotSet);
}

TEST_P(ClosedUnderADialog, ClosingAnotherFormClosesTheSharedWindow) {
  const auto other = memory::Form::Create(u"frmOutro");
  other->Add<memory::TsText>(u"txtOutro");
  Show(GetParam());
  const bool isShared = WindowOf(GetParam()) != u"frmBrowse";
  Click(WindowOf(GetParam()), [&](memory::Dialog& shown) {
    other->Close();
    EXPECT_EQ(shown.IsShown(), !isShared);  // hidden at once
    EXPECT_TRUE(AllReleased());
    if (shown.IsShown()) shown.CloseWindow();
  });
  EXPECT_THAT(Returns(), SizeIs(1));
  EXPECT_EQ(Box().Tag, u"");
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(ButtonTest, ASharedWindowIsDestroyedWhenItsModalLoopHasReturned) {
  const auto other = memory::Form::Create(u"frmOutro");
  other->Add<memory::TsText>(u"txtOutro");
  Show(TipoControle::Calculadora);
  std::weak_ptr<frmCalculadora> window;
  Click(u"frmCalculadora", [&](memory::Dialog& shown) {
    window = State().frmCalculadora;
    shown.Type(u"12");
    other->Close();
    EXPECT_FALSE(window.expired());
  });
  EXPECT_TRUE(window.expired());
  EXPECT_THAT(Control().Value(), IsValue(12.0));  // the number on the display
}

TEST_F(ButtonTest, DestroyingAControlReleasesWindowsThatAnErrorLeft) {
  Show(TipoControle::Calculadora);
  Control().Mascara(u"####");
  Box().Text(u"____");
  field->btnBrowse().OnClick();
  EXPECT_TRUE(State().frmCalculadora != nullptr);
  form->Close();
  EXPECT_TRUE(AllReleased());
}

}  // namespace
}  // namespace tessaria::test
