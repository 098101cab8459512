// The searches of the list: what a menu entry asks for and runs.
#include "tessaria/memory/ts_text.h"
#include "tessaria/tstext.h"
#include "tests/browse/grid_fixture.h"

namespace tessaria::test {
namespace {

using testing::IsEmpty;

TEST_F(GridForm, EachSettingOfAnEntryReachesItsPromptOrItsStatement) {
  form.Pesquisa = std::make_shared<Pesquisa>();
  form.Pesquisa->Add(1, u"Nome do Cliente", u"upper(nome)", 8, 1, u"#####", 2345, 4, true, true, 0,
                     0, u"");
  form.Pesquisa->Item(1)->CampoPronto(true);
  form.Pesquisa->Item(1)->OrderBy(u"3 Desc");
  FillMenu(1);
  Connect();
  form.strTabela = u"clientes";
  form.strFrom = u"clientes c";
  form.strCampos = u"codigo";
  form.strWhere = u"ativo = 1";
  rows.Cells.clear();  // nothing completes the typed text
  Show([&](memory::Dialog& shown) {
    desktop->WillShow(u"frmTsPesquisa", [](memory::Dialog& prompt) {
      const tsText& edit = *prompt.Field(u"editPesquisa");
      EXPECT_EQ(prompt.Caption(), u"Pesquisa Nome do Cliente");
      EXPECT_EQ(prompt.Find<host::DialogField>(u"editPesquisa").Width(), 2345);
      EXPECT_EQ(edit.Mascara(), u"#####");
      EXPECT_EQ(edit.MaxLength(), 4);
      EXPECT_TRUE(edit.PromptInclude());
      EXPECT_EQ(edit.TipoDado(), 8);
      EXPECT_EQ(edit.TipoControle(), TipoControle::Descricao);
      EXPECT_EQ(edit.BrowseTable(), u"clientes");
      EXPECT_EQ(edit.BrwCampo(), u"upper(nome)");
      EXPECT_EQ(edit.BrwWhere(), u"ativo = 1");
      prompt.Type(u"1234");
      prompt.Click(u"btnOk");
    });
    shown.ClickMenu(u"barBrowse", 1);
    shown.CloseWindow();
  });
  EXPECT_EQ(connection->Statements().back(),
            u"Select codigo From clientes c Where (upper(nome) ilike '1234_%') And ativo = 1 Order "
            u"by 3 Desc");
}

TEST_F(GridForm, ASearchOfTwoEntriesAsksForBoth) {
  form.Pesquisa = std::make_shared<Pesquisa>();
  form.Pesquisa->Add(1, u"Nome", u"nome", 8, 1, u"", 2000, 0, false, false, 0, 0, u"");
  form.Pesquisa->Add(2, u"Outra", u"x", 8, 1, u"", 2000, 0, false, false, 0, 0, u"");
  form.Pesquisa->Add(1, u"Cidade", u"cidade", 8, 0, u"", 2000, 0, false, false, 0, 0, u"");
  FillMenu(2);
  Connect();
  form.strTabela = u"clientes";
  form.strFrom = u"clientes";
  form.strCampos = u"codigo";
  connection->TakeStatements();
  Show([&](memory::Dialog& shown) {
    for (const StringView answer : {u"Ma", u"Assis"}) {
      desktop->WillShow(u"frmTsPesquisa", [answer](memory::Dialog& prompt) {
        prompt.Type(answer);
        prompt.Click(u"btnOk");
      });
    }
    shown.ClickMenu(u"barBrowse", 1);
    shown.CloseWindow();
  });
  EXPECT_EQ(OnlyStatement(),
            u"Select codigo From clientes Where (clientes.nome ilike 'Ma%' And clientes.cidade = "
            u"'Assis') Order by cidade");
}

TEST_F(GridForm, AnEntryThatNoSearchBelongsToRunsNothing) {
  AddSearches(1);
  Connect();
  form.cgrColGrid.Add(u"codigo", u"Código", u"", 900, true);
  connection->TakeStatements();
  Show([&](memory::Dialog& shown) {
    shown.ClickMenu(u"barBrowse", 2);  // the separator is an entry like the others
    EXPECT_EQ(Grid().Column(0).Caption(), u"Código");
    shown.CloseWindow();
  });
  EXPECT_THAT(connection->TakeStatements(), IsEmpty());
}

// --- A search that fails ------------------------------------------------------------------------

TEST_F(GridForm, AfterARefusedSearchTheGridIsEmptyAndNothingCanBeConfirmed) {
  AddSearches(1);
  Connect();
  Show([&](memory::Dialog& shown) {
    RefuseSearch(shown);
    EXPECT_EQ(Grid().ColumnCount(), 0);
    EXPECT_FALSE(CanConfirm(shown));
    EXPECT_FALSE(Grid().TabStop());
    shown.Click(u"btnConfirmar");
    shown.DoubleClick(u"grdBrowse");
    shown.FocusOn(u"grdBrowse");
    shown.Press(memory::Key::Enter);
    EXPECT_TRUE(shown.IsShown());
    shown.CloseWindow();
  });
  EXPECT_FALSE(form.lGravar);
}

TEST_F(GridForm, EnterBetweenTheRefusalAndItsBoxConfirmsNothing) {
  AddSearches(1);
  Connect();
  Show([&](memory::Dialog& shown) {
    int pumpsWithoutRows = 0;
    app.OnDoEvents = [&] {
      if (Grid().DataSource()) return;
      ++pumpsWithoutRows;
      shown.Press(memory::Key::Enter);
      shown.DoubleClick(u"grdBrowse");
    };
    RefuseSearch(shown);
    app.OnDoEvents = nullptr;
    EXPECT_EQ(pumpsWithoutRows, 1);
    EXPECT_TRUE(shown.IsShown());
    shown.CloseWindow();
  });
  EXPECT_FALSE(form.lGravar);
}

TEST_F(GridForm, RowsReloadedAfterARefusedSearchCanBeConfirmedAgain) {
  AddSearches(1);
  Connect();
  Show([&](memory::Dialog& shown) {
    RefuseSearch(shown);
    shown.ClickMenu(u"barBrowse", 3);
    EXPECT_TRUE(CanConfirm(shown));
    shown.Click(u"btnConfirmar");
  });
  EXPECT_TRUE(form.lGravar);
}

TEST_F(GridForm, ACancelledPromptAfterARefusedSearchDoesNotRestoreTheRows) {
  AddSearches(1);
  Connect();
  Show([&](memory::Dialog& shown) {
    RefuseSearch(shown);
    desktop->WillShow(u"frmTsPesquisa", [](memory::Dialog& prompt) { prompt.CloseWindow(); });
    shown.ClickMenu(u"barBrowse", 1);
    EXPECT_FALSE(CanConfirm(shown));
    shown.CloseWindow();
  });
}

TEST_F(GridForm, ASearchThatFindsNothingLeavesNothingToConfirm) {
  AddSearches(1);
  Connect();
  Show([&](memory::Dialog& shown) {
    rows.Cells.clear();
    desktop->WillShow(u"frmTsPesquisa", [](memory::Dialog& prompt) {
      prompt.Type(u"x");
      prompt.Click(u"btnOk");
    });
    shown.ClickMenu(u"barBrowse", 1);
    EXPECT_FALSE(CanConfirm(shown));
    shown.CloseWindow();
  });
}

}  // namespace
}  // namespace tessaria::test
