// The window of the list: rows, columns, buttons, menu.
#include "browse/grid_form.h"

#include "tests/browse/grid_fixture.h"

namespace tessaria::test {
namespace {

using host::WidgetKind;
using memory::MessageBoxRecord;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(GridForm, IsMadeOfItsTable) {
  const auto& description = frmBrowse::Description();
  EXPECT_EQ(description.Name, u"frmBrowse");
  const struct {
    StringView Name;
    WidgetKind Kind;
  } expected[] = {{u"lblTitulo", WidgetKind::Label},
                  {u"barBrowse", WidgetKind::ToolBar},
                  {u"grdBrowse", WidgetKind::DataGrid},
                  {u"btnConfirmar", WidgetKind::CommandButton},
                  {u"btnVoltar", WidgetKind::CommandButton}};
  ASSERT_EQ(description.Widgets.size(), std::size(expected));
  for (std::size_t i = 0; i < std::size(expected); ++i) {
    EXPECT_EQ(description.Widgets[i].Name, expected[i].Name);
    EXPECT_EQ(description.Widgets[i].Kind, expected[i].Kind);
  }
}

// --- Rows ---------------------------------------------------------------------------------------

TEST_F(GridForm, ShowsTheRowsOfAStatement) {
  bool ok = false;
  form.ConectGrid(u"Select 1", ok);
  EXPECT_TRUE(ok);
  EXPECT_EQ(OnlyStatement(), u"Select 1");
  EXPECT_EQ(form.grdBrowse().DataSource(), form.dcBrowse);
  EXPECT_EQ(form.grdBrowse().ColumnCount(), 3);
}

TEST_F(GridForm, ShowsTheBusyPointerWhileTheDatabaseWorks) {
  std::vector<bool> busy;
  connection->OnStatement = [&, rows = connection->OnStatement](const String& statement) {
    busy.push_back(desktop->IsBusy());
    return rows(statement);
  };
  Connect();
  EXPECT_FALSE(desktop->IsBusy());
  AddSearches(1);
  ShowMenuClick(3);
  EXPECT_THAT(busy, ElementsAre(true, true));
  connection->FailNext(HostError(errors::ProviderError, u"erro"));
  bool ok = true;
  form.ConectGrid(u"Select 1", ok);
  EXPECT_FALSE(desktop->IsBusy());
}

TEST_F(GridForm, ReportsAClosedConnectionWhichIsNotARefusal) {
  connection->Close();
  form.hWndMsgBox = 5;
  bool ok = false;
  form.ConectGrid(u"Select 1", ok);
  EXPECT_TRUE(ok);
  EXPECT_EQ(form.dcBrowse, nullptr);
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(MessageBoxRecord{5, u"Conexão ao banco foi encerrada. verifique",
                                           host::box::Stop, u"Alerta!"}));
}

TEST_F(GridForm, OffersARefusedStatementToItsOwner) {
  connection->FailNext(HostError(errors::ProviderError, u"erro de sintaxe"));
  form.hWndMsgBox = 5;
  app.WillAnswer(host::answer::Yes);
  bool ok = true;
  form.ConectGrid(u"Select codigo From clientes", ok);
  EXPECT_FALSE(ok);
  const String laidOut = u"SELECT\r\n      codigo \r\nFROM\r\n      clientes";
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(MessageBoxRecord{5, u"erro de sintaxe\r\r" + laidOut, 20,
                                           u"Copiar Para Área de Transferência ?"}));
  EXPECT_EQ(desktop->Clipboard(), laidOut);
  EXPECT_EQ(Err().Number, 0);
}

TEST_F(GridForm, DrawsItsColumns) {
  Connect();
  form.cgrColGrid.Add(u"codigo", u"Código", u"0000", 900, true);
  form.cgrColGrid.Add(u"nome", u"Nome", u"", 3000, false);
  form.DesenhaGrid();
  auto& code = form.grdBrowse().Column(0);
  EXPECT_EQ(code.Caption(), u"Código");
  EXPECT_EQ(code.Width(), 900);
  EXPECT_EQ(code.Format(), u"0000");
  EXPECT_TRUE(code.Visible());
  EXPECT_FALSE(form.grdBrowse().Column(1).Visible());
  EXPECT_EQ(form.grdBrowse().Column(2).Caption(), u"cidade");
}

TEST_F(GridForm, StopsDrawingSilentlyAtAMissingColumn) {
  Connect();
  for (int i = 0; i < 5; ++i) form.cgrColGrid.Add(u"", u"Coluna", u"", 100, true);
  form.DesenhaGrid();
  EXPECT_THAT(Grid().Captions(), ElementsAre(u"Coluna", u"Coluna", u"Coluna"));
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// --- Activation ---------------------------------------------------------------------------------

TEST_F(GridForm, WithRowsItCanBeConfirmed) {
  Connect();
  Show([&](memory::Dialog& shown) {
    EXPECT_TRUE(shown.Find<host::DialogButton>(u"btnConfirmar").Enabled());
    EXPECT_TRUE(form.grdBrowse().TabStop());
    EXPECT_EQ(shown.Focused(), u"grdBrowse");
    shown.CloseWindow();
  });
}

TEST_F(GridForm, WithoutRowsItCannot) {
  rows.Cells.clear();
  Connect();
  Show([&](memory::Dialog& shown) {
    EXPECT_FALSE(shown.Find<host::DialogButton>(u"btnConfirmar").Enabled());
    EXPECT_FALSE(form.grdBrowse().TabStop());
    shown.Press(memory::Key::Enter);
    shown.DoubleClick(u"grdBrowse");
    EXPECT_TRUE(shown.IsShown());
    shown.CloseWindow();
  });
  EXPECT_FALSE(form.lGravar);
}

TEST_F(GridForm, WithoutARecordSetItCannotEither) {
  Show([&](memory::Dialog& shown) {
    EXPECT_FALSE(shown.Find<host::DialogButton>(u"btnConfirmar").Enabled());
    shown.Type(u"a");
    shown.Press(memory::Key::PageDown, memory::modifier::Control);
    shown.CloseWindow();
  });
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

TEST_F(GridForm, ASetAtItsEndStartsAgain) {
  Connect();
  form.dcBrowse->MoveLast();
  form.dcBrowse->MoveNext();
  ShowAndLeave();
  EXPECT_EQ(form.dcBrowse->AbsolutePosition(), 1);
}

TEST_F(GridForm, ARowInTheMiddleStays) {
  Connect();
  form.dcBrowse->AbsolutePosition(3);
  ShowAndLeave();
  EXPECT_EQ(form.dcBrowse->AbsolutePosition(), 3);
}

TEST_F(GridForm, TheToolBarIsRefreshedAtEachActivationAndTheButtonsAtTheFirst) {
  Connect();
  ShowAndLeave();
  EXPECT_EQ(Bar().Refreshes(), 1);
  rows.Cells.clear();
  Connect();
  Show([](memory::Dialog& shown) {
    EXPECT_TRUE(CanConfirm(shown));
    shown.CloseWindow();
  });
  EXPECT_EQ(Bar().Refreshes(), 2);
}

TEST_F(GridForm, ReturningToTheListIsAnActivation) {
  AddSearches(1);
  Connect();
  Show([&](memory::Dialog& shown) {
    shown.Reactivate();
    EXPECT_EQ(Bar().Refreshes(), 2);
    desktop->WillShow(u"frmTsPesquisa", [](memory::Dialog& prompt) { prompt.CloseWindow(); });
    shown.ClickMenu(u"barBrowse", 1);
    EXPECT_EQ(Bar().Refreshes(), 3);
    shown.CloseWindow();
  });
  EXPECT_EQ(Bar().Refreshes(), 3);
}

TEST_F(GridForm, TheGridFollowsTheSizeOfTheWindow) {
  Show([&](memory::Dialog& shown) {
    EXPECT_EQ(form.grdBrowse().Width(), shown.Width() - 120);
    EXPECT_EQ(form.grdBrowse().Height(), shown.Height() - 435);
    shown.Resize(7000, 5000);
    EXPECT_EQ(form.grdBrowse().Width(), 7000 - 120);
    EXPECT_EQ(form.grdBrowse().Height(), 5000 - 435);
    shown.CloseWindow();
  });
}

// --- Leaving ------------------------------------------------------------------------------------

TEST_F(GridForm, IsConfirmedAndLeftInSeveralWays) {
  using Hand = std::function<void(memory::Dialog&)>;
  const struct {
    Hand Act;
    bool Confirmed;
  } ways[] = {
      {[](memory::Dialog& d) { d.Click(u"btnConfirmar"); }, true},
      {[](memory::Dialog& d) { d.DoubleClick(u"grdBrowse"); }, true},
      {[](memory::Dialog& d) { d.Press(memory::Key::Enter); }, true},
      {[](memory::Dialog& d) { d.Click(u"btnVoltar"); }, false},
      {[](memory::Dialog& d) { d.Press(memory::Key::Escape); }, false},
  };
  Connect();
  for (const auto& way : ways) {
    form.lGravar = !way.Confirmed;
    Show([&](memory::Dialog& shown) {
      shown.FocusOn(u"grdBrowse");
      way.Act(shown);
      EXPECT_FALSE(shown.IsShown());
    });
    EXPECT_EQ(form.lGravar, way.Confirmed);
  }
}

TEST_F(GridForm, EventsAreProcessedBeforeAndAfterItHides) {
  Connect();
  for (const StringView button : {u"btnConfirmar", u"btnVoltar"}) {
    std::vector<bool> shownAtPumps;
    Show([&](memory::Dialog& shown) {
      app.OnDoEvents = [&] { shownAtPumps.push_back(shown.IsShown()); };
      shown.Click(button);
    });
    app.OnDoEvents = nullptr;
    EXPECT_THAT(shownAtPumps, ElementsAre(true, false));
  }
}

// --- The menu -----------------------------------------------------------------------------------

TEST_F(GridForm, TheLastEntryFetchesAllRows) {
  AddSearches(1);
  Connect();
  form.strCampos = u"codigo, nome";
  form.strFrom = u"clientes";
  const struct {
    StringView Where, GroupBy, OrderBy, Statement;
  } cases[] = {
      {u"", u"", u"", u"Select codigo, nome From clientes Order By 1"},
      {u"ativo = 1", u"", u"", u"Select codigo, nome From clientes Where ativo = 1 Order By 1"},
      {u"", u"Group By nome", u"", u"Select codigo, nome From clientes Group By nome Order By 1"},
      {u"ativo = 1", u"Group By nome", u"nome, 1",
       u"Select codigo, nome From clientes Where ativo = 1 Group By nome Order By nome, 1"}};
  for (const auto& c : cases) {
    form.strWhere = c.Where;
    form.strGroupBy = c.GroupBy;
    form.strOrderBy = c.OrderBy;
    connection->TakeStatements();
    ShowMenuClick(3);
    EXPECT_EQ(OnlyStatement(), c.Statement);
  }
}

TEST_F(GridForm, NewRowsAreDrawnAndCountedAgain) {
  AddSearches(1);
  Connect();
  form.cgrColGrid.Add(u"codigo", u"Código", u"", 900, true);
  Show([&](memory::Dialog& shown) {
    rows.Cells.clear();
    shown.ClickMenu(u"barBrowse", 3);
    EXPECT_FALSE(shown.Find<host::DialogButton>(u"btnConfirmar").Enabled());
    EXPECT_EQ(Grid().Column(0).Caption(), u"Código");
    EXPECT_EQ(Grid().DataSource(), form.dcBrowse);
    shown.CloseWindow();
  });
}

TEST_F(GridForm, AFailureToFetchAllRowsIsRaisedAndTheListStays) {
  AddSearches(1);
  Connect();
  form.cgrColGrid.Add(u"codigo", u"Código", u"", 900, true);
  form.DesenhaGrid();
  Show([&](memory::Dialog& shown) {
    connection->FailNext(HostError(errors::ProviderError, u"servidor parado"));
    shown.ClickMenu(u"barBrowse", 3);
    EXPECT_EQ(Grid().Column(0).Caption(), u"Código");
    EXPECT_TRUE(shown.Find<host::DialogButton>(u"btnConfirmar").Enabled());
    ASSERT_EQ(shown.UnhandledErrors().size(), 1u);
    EXPECT_EQ(shown.UnhandledErrors()[0].Description(), u"servidor parado");
    EXPECT_EQ(Grid().DataSource(), form.dcBrowse);
    EXPECT_EQ(form.dcBrowse->RecordCount(), 4);
    shown.CloseWindow();
  });
}

TEST_F(GridForm, TheButtonOfTheToolBarIsItsFirstEntry) {
  AddSearches(2);
  Connect();
  EXPECT_THAT(PromptsOf([](memory::Dialog& shown) { shown.Click(u"barBrowse"); }),
              ElementsAre(u"Pesquisa Busca 1"));
}

TEST_F(GridForm, TheButtonWithNoMenuDoesNothing) {
  Connect();
  EXPECT_THAT(PromptsOf([](memory::Dialog& shown) { shown.Click(u"barBrowse"); }), IsEmpty());
  EXPECT_THAT(app.Boxes(), IsEmpty());
}

// --- Order --------------------------------------------------------------------------------------

TEST_F(GridForm, AClickOnAHeaderAlwaysSortsAscending) {
  Connect();
  Show([&](memory::Dialog& shown) {
    for (int click = 0; click < 2; ++click) {
      shown.ClickHeader(u"grdBrowse", 1);
      EXPECT_EQ(form.dcBrowse->Sort(), u"nome");
      EXPECT_EQ(Grid().CellText(1), u"Ana");
    }
    shown.ClickHeader(u"grdBrowse", 0);
    shown.Press(memory::Key::Down);
    EXPECT_EQ(Grid().CellText(0), u"7");
    shown.CloseWindow();
  });
}

TEST_F(GridForm, AnOrderThatTheProviderRefusesIsRaised) {
  Connect();
  Show([&](memory::Dialog& shown) {
    rows = {{{u"outro"}}, {{u"Ana"}}};
    form.dcBrowse = connection->Execute(u"Select outro From clientes");
    shown.ClickHeader(u"grdBrowse", 1);
    EXPECT_EQ(shown.UnhandledErrors().size(), 1u);
    shown.CloseWindow();
  });
}

}  // namespace
}  // namespace tessaria::test
