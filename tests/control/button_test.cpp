// The button: which dialog it opens, how the answer is used, and which events the application gets.

#include "tessaria/comforts.h"
#include "tessaria/masks.h"
#include "tests/control/button_fixture.h"

namespace tessaria::test {
namespace {

using memory::Key;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// --- Every kind ---------------------------------------------------------------------------------

class EveryKind : public ButtonTest, public testing::WithParamInterface<TipoControle> {};

INSTANTIATE_TEST_SUITE_P(Button, EveryKind,
                         testing::Values(TipoControle::Browse, TipoControle::Calendario,
                                         TipoControle::Descricao, TipoControle::Diretorio,
                                         TipoControle::Calculadora));

TEST_P(EveryKind, OpensItsDialogBelowTheField) {
  form->Left(1000);
  form->Top(2000);
  const auto frame = form->Add<memory::Generic>(u"fraDados", u"Frame");
  frame->Settings().Left = 300;
  frame->Settings().Top = 400;
  field->Settings().Container = frame;
  field->Settings().Left = 50;
  field->Settings().Top = 60;
  field->Resize(3000, 330);
  Show(GetParam());
  Click(WindowOf(GetParam()), [&](memory::Dialog& shown) {
    EXPECT_EQ(shown.Top(), 2000 + 400 + 60 + 330 + 930);
    EXPECT_EQ(shown.Left(), 1000 + 300 + 50 + 30);
    EXPECT_EQ(shown.Width(), GetParam() == TipoControle::Diretorio ? 3000 : 6000);
    shown.CloseWindow();
  });
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_P(EveryKind, SilencesTheExitOfTheFieldWhileTheDialogIsOpen) {
  Show(GetParam());
  form->Focus(u"txtCampo");
  Click(WindowOf(GetParam()), [&](memory::Dialog& shown) {
    EXPECT_EQ(Box().Tag, silenced);
    form->Focus(u"chkAtivo");
    EXPECT_THAT(Returns(), IsEmpty());
    shown.CloseWindow();
  });
  EXPECT_EQ(Box().Tag, u"");
  EXPECT_THAT(Returns(), SizeIs(1));
}

TEST_P(EveryKind, RaisesBrowseReturnAfterTheAnswerIsAssignedAndTheDialogIsClosed) {
  Show(GetParam());
  field->OnBrowseReturn = [&](bool&, Variant&) {
    EXPECT_TRUE(AllReleased());
    EXPECT_EQ(Box().Tag, silenced);
  };
  Click(WindowOf(GetParam()), Close);
  EXPECT_THAT(Returns(), SizeIs(1));
}

TEST_P(EveryKind, TheWindowIsDestroyedAfterTheClick) {
  Show(GetParam());
  std::weak_ptr<memory::Dialog> window;
  Click(WindowOf(GetParam()), [&](memory::Dialog& shown) {
    window = shown.weak_from_this();
    shown.CloseWindow();
  });
  EXPECT_TRUE(window.expired());
}

TEST_P(EveryKind, PageDownOpensItBeforeTheKeyEvent) {
  Show(GetParam());
  form->Focus(u"txtCampo");
  desktop->WillShow(WindowOf(GetParam()), [&](memory::Dialog& shown) {
    EXPECT_THAT(field->Events(Kind::KeyUp), IsEmpty());
    shown.CloseWindow();
  });
  form->Press(Key::PageDown);
  EXPECT_THAT(field->Events(Kind::KeyUp), SizeIs(1));
  EXPECT_THAT(Returns(), SizeIs(1));
}

TEST_P(EveryKind, PageDownHeldDownOpensItOnce) {
  Show(GetParam());
  form->Focus(u"txtCampo");
  const auto stroke = memory::StrokeOf(Key::PageDown);
  for (int repeats = 0; repeats < 5; ++repeats) Box().Hold(stroke);
  EXPECT_THAT(desktop->Shown(), IsEmpty());
  desktop->WillShow(WindowOf(GetParam()), Close);
  Box().Release(stroke);
  EXPECT_THAT(desktop->Shown(), SizeIs(1));
}

// --- A plain field ------------------------------------------------------------------------------

TEST_F(ButtonTest, PageDownOnAPlainFieldDoesNothing) {
  Show(TipoControle::Normal);
  form->Focus(u"txtCampo");
  form->Press(Key::PageDown);
  EXPECT_THAT(desktop->Shown(), IsEmpty());
  EXPECT_THAT(Returns(), IsEmpty());
  EXPECT_THAT(field->Events(Kind::KeyUp), SizeIs(1));
}

TEST_F(ButtonTest, TheButtonOfAPlainFieldAlsoRaisesBrowseReturn) {
  Show(TipoControle::Normal);
  Control().Value(u"novo");
  field->btnBrowse().OnClick();
  ASSERT_THAT(Returns(), SizeIs(1));
  EXPECT_TRUE(Returns().front().HouveAlteracao);
  EXPECT_THAT(LastValue(), IsValue(u"novo"));
  EXPECT_EQ(Box().Tag, u"");
}

TEST_F(ButtonTest, AnUnknownKindOpensNothingAndRaisesBrowseReturn) {
  Show(TipoControle::Normal);
  Control().TipoControle(static_cast<TipoControle>(9));
  form->Focus(u"txtCampo");
  form->Press(Key::PageDown);
  EXPECT_THAT(desktop->Shown(), IsEmpty());
  EXPECT_THAT(app.Boxes(), IsEmpty());
  EXPECT_THAT(Returns(), SizeIs(1));
  EXPECT_EQ(Box().Tag, u"");
}

// --- Events of the application ------------------------------------------------------------------

TEST_F(ButtonTest, AChangeIsReportedWithTheValueBefore) {
  Show(TipoControle::Browse);
  Control().Value(u"1");
  form->Focus(u"txtCampo");
  Click(u"frmBrowse", Pick(2));
  ASSERT_THAT(Returns(), SizeIs(1));
  EXPECT_TRUE(Returns().front().HouveAlteracao);
  EXPECT_THAT(Returns().front().LastValue, IsValue(u"1"));
  EXPECT_THAT(Control().Value(), IsValue(u"15"));
  EXPECT_THAT(LastValue(), IsValue(u"15"));
}

TEST_F(ButtonTest, ACancelledListReportsNoChange) {
  for (const Variant& before : {Variant(u"1"), Variant::Null()}) {
    if (!form->Visible()) Show(TipoControle::Browse);
    Control().Value(before);
    form->Focus(u"chkAtivo");
    form->Focus(u"txtCampo");
    field->ForgetEvents();
    Click(u"frmBrowse", [](memory::Dialog& shown) { shown.Click(u"btnVoltar"); });
    ASSERT_THAT(Returns(), SizeIs(1));
    EXPECT_FALSE(Returns().front().HouveAlteracao);
    EXPECT_THAT(Control().Value(), IsValue(before));
  }
}

TEST_F(ButtonTest, ADescriptionReportsAChangeHere) {
  Show(TipoControle::Descricao);
  form->Focus(u"txtCampo");
  Click(u"frmBrowse", Pick(1));
  ASSERT_THAT(Returns(), SizeIs(1));
  EXPECT_TRUE(Returns().front().HouveAlteracao);
  EXPECT_THAT(Returns().front().LastValue, IsNullVariant());
}

TEST_F(ButtonTest, AHandlersChangeOfTheOldValueIsDiscarded) {
  Show(TipoControle::Calendario);
  field->OnBrowseReturn = [](bool& changed, Variant& last) {
    changed = false;
    last = u"mudado";
  };
  Click(u"frmCalendario", Close);
  field->OnBrowseReturn = nullptr;
  EXPECT_THAT(LastValue(), IsValue(FromCivil({2017, 12, 25})));
}

// --- Lookups ------------------------------------------------------------------------------------

TEST_F(ButtonTest, ALookupWithoutATableOrFieldShowsAMessageAndChangesNothing) {
  for (const TipoControle kind : {TipoControle::Browse, TipoControle::Descricao}) {
    Show(kind);
    form->Focus(u"txtCampo");
    for (const bool noTable : {true, false}) {
      Control().BrowseTable(noTable ? u"" : u"clientes");
      Control().BrwCampo(noTable ? u"codigo" : u"");
      field->ForgetEvents();
      field->btnBrowse().OnClick();
      EXPECT_THAT(app.TakeBoxes(),
                  ElementsAre(StopBox(Control().hWnd(),
                                      u"Propriedades da Browse Não Foram Informadas Corretamente. "
                                      u"Contate o Administrador de Sistema")));
      ASSERT_THAT(Returns(), SizeIs(1));
      EXPECT_FALSE(Returns().front().HouveAlteracao);
      EXPECT_EQ(Box().Tag, u"");
    }
  }
  EXPECT_THAT(desktop->Shown(), IsEmpty());
}

TEST_F(ButtonTest, TheChosenKeyIsTrimmedAndCutToTheField) {
  Show(TipoControle::Browse);
  Click(u"frmBrowse", Pick(2));
  EXPECT_THAT(Control().Value(), IsValue(u"15"));
  Control().MaxLength(2);
  Click(u"frmBrowse", Pick(3));
  EXPECT_THAT(Control().Value(), IsValue(u"70"));
}

TEST_F(ButtonTest, TheEventQueueIsProcessedBeforeAndAfterTheAssignment) {
  Show(TipoControle::Browse);
  Control().Value(u"1");
  std::vector<String> values;
  Click(u"frmBrowse", [&](memory::Dialog& shown) {
    Pick(3)(shown);
    app.OnDoEvents = [&] { values.push_back(CStr(Control().Value())); };
  });
  EXPECT_THAT(values, ElementsAre(u"1", u"1", u"700"));  // the first is the list's own
}

TEST_F(ButtonTest, TheFocusGoesToTheBoxUnlessItIsHidden) {
  Show(TipoControle::Browse);
  for (const bool visible : {true, false}) {
    form->Focus(u"chkAtivo");
    Box().Visible(visible);
    Click(u"frmBrowse", Close);
    EXPECT_EQ(ActiveName(), visible ? u"txtCampo" : u"chkAtivo");
  }
}

TEST_F(ButtonTest, ThePickersLeaveTheFocusOnTheButton) {
  Show(TipoControle::Calculadora);
  desktop->WillShow(u"frmCalculadora", Close);
  field->ClickButton();
  EXPECT_EQ(ActiveName(), u"txtCampo");
  EXPECT_FALSE(Box().HasFocus());
}

TEST_F(ButtonTest, TheAssignmentOfALookupFetchesTheDescription) {
  const auto name = AddField(u"txtNome");
  Control().TxtIrmao(u"txtNome");
  Control().BrwCampoIrmao(u"nome");
  Show(TipoControle::Browse);
  Click(u"frmBrowse", Pick(2));
  EXPECT_THAT((*name)->Value(), IsValue(u"Bruno"));
}

TEST_F(ButtonTest, TheListShowsWhatTheDefinitionSays) {
  Control().BrwCampoIrmao(u"nome");
  Control().BrwCampoOutros(u"cidade");
  Control().BrwGroupBy(u"Group by codigo");
  Control().BrwLeftJoin(u"clientes c Left Join cidades d On d.codigo = c.cidade");
  Control().BrwWhere(u"ativo = 1");
  Control().BrwTitulo(u"Clientes da Loja");
  Control().Browse()->cgrColGrid().Add(u"codigo", u"Código", u"", 900, true);
  Show(TipoControle::Browse);
  connection->TakeStatements();
  Click(u"frmBrowse", [](memory::Dialog& shown) {
    EXPECT_EQ(shown.Find<host::DialogLabel>(u"lblTitulo").Caption(), u"Clientes da Loja");
    EXPECT_EQ(shown.Find<host::DataGrid>(u"grdBrowse").Column(0).Caption(), u"Código");
    shown.CloseWindow();
  });
  const auto statements = connection->TakeStatements();
  ASSERT_FALSE(statements.empty());
  EXPECT_EQ(statements.front(),
            u"Select codigo, nome, cidade From clientes c Left Join cidades d On d.codigo = "
            u"c.cidade Where ativo = 1 And codigo Is Not Null Group by codigo Order by 1");
}

TEST_F(ButtonTest, AnEmptyTableShowsTheFieldsOwnMessage) {
  list.Cells.clear();
  Control().MsgBrowse(u"Nenhum cliente");
  Show(TipoControle::Browse);
  field->btnBrowse().OnClick();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(memory::MessageBoxRecord{
                                   Control().hWnd(), u"Nenhum cliente", 0, u"Alerta!"}));
  EXPECT_THAT(Control().Value(), IsNullVariant());
  EXPECT_THAT(Returns(), SizeIs(1));
}

/// The searches that the list of a field offers.
class SearchesOfALookup : public ButtonTest {
 protected:
  SearchesOfALookup() : key(AddField(u"txtChave")) {
    AddSearch(Control(), u"Da descrição");
    AddSearch(**key, u"Da chave");
  }
  static void AddSearch(tsText& control, const String& caption) {
    control.Pesquisa()->Add(1, caption, u"nome", 8, 1, u"", 2000, 0, false, false, 0, 0, u"");
  }
  String FirstSearch() {
    String text;
    Click(u"frmBrowse", [&](memory::Dialog& shown) {
      text = shown.Find<memory::ToolBar>(u"barBrowse").Menu(1).Text;
      shown.CloseWindow();
    });
    return text;
  }
  FieldPtr key;
};

TEST_F(SearchesOfALookup, ADescriptionUsesThoseOfItsKey) {
  Control().TxtIrmao(u"txtChave");
  Show(TipoControle::Descricao);
  EXPECT_EQ(FirstSearch(), u"Da chave");
}

TEST_F(SearchesOfALookup, ADescriptionAloneUsesItsOwn) {
  Show(TipoControle::Descricao);
  EXPECT_EQ(FirstSearch(), u"Da descrição");
}

TEST_F(SearchesOfALookup, AKeyUsesItsOwn) {
  Control().TxtIrmao(u"txtChave");
  Show(TipoControle::Browse);
  EXPECT_EQ(FirstSearch(), u"Da descrição");
}

// --- Dates and paths ----------------------------------------------------------------------------

TEST_F(ButtonTest, TheCalendarOpensOnTheTypedDateAndReturnsADay) {
  Show(TipoControle::Calendario);
  form->Focus(u"txtCampo");
  form->Type(u"03052016");
  Click(u"frmCalendario", [](memory::Dialog& shown) {
    EXPECT_EQ(shown.Find<host::Calendar>(u"Calendario").Value(), FromCivil({2016, 5, 3}));
    shown.PickDay(u"Calendario", FromCivil({2016, 5, 9}));
  });
  EXPECT_THAT(Control().Value(), IsValue(FromCivil({2016, 5, 9})));
  EXPECT_EQ(Box().Text(), u"09/05/2016");
  ASSERT_THAT(Returns(), SizeIs(1));
  EXPECT_TRUE(Returns().front().HouveAlteracao);
}

TEST_F(ButtonTest, TheCalendarCannotBeCancelled) {
  Show(TipoControle::Calendario);
  Click(u"frmCalendario", [](memory::Dialog& shown) { shown.Press(Key::Escape); });
  EXPECT_THAT(Control().Value(), IsValue(FromCivil({2017, 12, 25})));
}

TEST_F(ButtonTest, WithTheComfortACancelledCalendarChangesNothing) {
  setComforts({.CalendarCancels = true});
  Show(TipoControle::Calendario);
  form->Focus(u"txtCampo");
  for (const bool escape : {true, false}) {
    Click(u"frmCalendario", [escape](memory::Dialog& shown) {
      escape ? shown.Press(Key::Escape) : shown.CloseWindow();
    });
    EXPECT_TRUE(Control().Value().IsNull());
    EXPECT_EQ(Trim(mdlObjTxt::LimpaMascara(Box().Text(), u"dd/mm/yyyy", u"_/")), u"");
    EXPECT_FALSE(Returns().back().HouveAlteracao);
  }
  Click(u"frmCalendario", [](memory::Dialog& shown) { shown.Press(Key::Enter); });
  EXPECT_THAT(Control().Value(), IsValue(FromCivil({2017, 12, 25})));
  setComforts({});
}

TEST_F(ButtonTest, ThePathPickerReadsTheBoxAndReturnsAPath) {
  Control().DirPattern(u"*.png");
  Show(TipoControle::Diretorio);
  form->Focus(u"txtCampo");
  Box().Text(u"c:\\Dados\\Carta.txt");
  Click(u"frmDiretorio", [](memory::Dialog& shown) {
    auto& files = shown.Find<memory::FileList>(u"fileDiretorio");
    EXPECT_EQ(files.Pattern(), u"*.png");
    EXPECT_TRUE(files.Visible());
    shown.SelectFile(u"fileDiretorio", u"foto.png");
    shown.Click(u"btnConfirmar");
  });
  EXPECT_THAT(Control().Value(), IsValue(u"c:\\Dados\\foto.png"));
  EXPECT_EQ(Control().DirFilePath(), u"c:\\Dados");
  EXPECT_EQ(Control().DirFileName(), u"foto.png");
}

TEST_F(ButtonTest, TheWidthOfThePathPickerIsLimitedToSixteenBits) {
  field->Resize(40000, 330);
  Show(TipoControle::Diretorio);
  Click(u"frmDiretorio", [](memory::Dialog& shown) {
    EXPECT_EQ(shown.Width(), 32767);
    shown.CloseWindow();
  });
}

TEST_F(ButtonTest, AnInvalidPathStays) {
  Show(TipoControle::Diretorio);
  Box().Text(u"c:\\Nada");
  field->btnBrowse().OnClick();
  EXPECT_THAT(app.TakeBoxes(), ElementsAre(StopBox(0,
                                                   u"O Caminho Informado Não é Válido, "
                                                   u"Verifique Por Favor")));
  EXPECT_THAT(Control().Value(), IsValue(u"c:\\Nada"));
  EXPECT_THAT(Returns(), SizeIs(1));
  EXPECT_TRUE(AllReleased());
}

}  // namespace
}  // namespace tessaria::test
