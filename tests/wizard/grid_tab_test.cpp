// The statement is tried, and its columns are set.
#include "wizard/grid_tab.h"

#include "tests/support/faulty_rows.h"
#include "tests/support/printers.h"
#include "tests/wizard/wizard_fixture.h"

namespace tessaria::test {
namespace {

using wizard::Tab;

constexpr StringView kBoxes[] = {u"txt4GrdCaption", u"txt4GrdMascara", u"txt4GrdWidth",
                                 u"chk4GrdVisible"};

class WizardGrid : public WizardTest {
 protected:
  WizardGrid() {
    database->Memory().SetProperty(u"DBMS Name", u"ACCESS");
    database->relations = {{u"", u"Cliente"}, {u"", u"Cidade"}, {u"", u"Estado"}};
    database->fields = {{u"Cliente", {u"Codigo", u"Nome", u"CodCidade"}},
                        {u"Cidade", {u"Codigo", u"Descricao", u"Uf"}},
                        {u"Estado", {u"Uf"}}};
    database->answer = [this](const String& statement) -> std::optional<memory::Rows> {
      if (statement != accepted) return std::nullopt;
      return ScriptedDatabase::Columns(columns);
    };
  }
  /// The grid's tab with these fields of one table.
  void RunGrid(const Rows& fields, const std::function<void()>& work) {
    Run([&] {
      Connect();
      Pick({u"Cliente"});
      GoTo(Tab::Campos);
      Include(u"Cliente", fields);
      GoTo(Tab::Grid);
      work();
    });
  }
  /// The same after those fields were retrieved.
  void RunRetrieved(const Rows& fields, const std::function<void()>& work) {
    RunGrid(fields, [&] {
      Accept(u"Select " + Joined(fields) + u" From Cliente Where 1 = Null", fields);
      Click(u"btn4Retrieve");
      work();
    });
  }
  void Include(StringView table, const Rows& fields) {
    Choose(u"cmb3Tab", table);
    for (const String& field : fields) {
      Select(u"lst3Cmp", field);
      Click(u"btn3Inclui");
    }
  }
  void Link(StringView child, StringView childField, StringView parent, StringView parentField) {
    Choose(u"cmb2TabPai", parent);
    Choose(u"cmb2TabFilho", child);
    Select(u"lst2CmpPai", parentField);
    Select(u"lst2CmpFilho", childField);
    Click(u"btn2LnkAdiciona");
  }
  void Accept(const String& statement, const Rows& fields) {
    accepted = statement;
    columns = fields;
  }
  static String Joined(const Rows& texts) {
    String joined;
    for (const String& text : texts) joined += (joined.empty() ? u"" : u", ") + text;
    return joined;
  }
  ListaColunas& Definitions() { return Parts().cgrColGrid; }
  host::GridColumn& Preview(Long position) { return Parts().Grid().Column(position); }
  Rows Captions() { return window->Find<memory::DataGrid>(u"grdWizard").Captions(); }
  Rows SettingsShown() {
    return {Text(u"txt4GrdCaption"), Text(u"txt4GrdMascara"), Text(u"txt4GrdWidth"),
            CStr(Parts().Check(u"chk4GrdVisible").Value())};
  }
  String LastStatement() { return database->Memory().Statements().back(); }

  String accepted;
  Rows columns;
};

// --- The statement

TEST_F(WizardGrid, OneTableNeedsNoLink) {
  RunGrid({u"Codigo", u"Nome"}, [&] {
    Accept(u"Select Codigo, Nome From Cliente Where 1 = Null", {u"Codigo", u"Nome"});
    Click(u"btn4Retrieve");
    EXPECT_EQ(LastStatement(), accepted);
    EXPECT_EQ(Parts().strCampos, u"Codigo, Nome");
    EXPECT_EQ(Parts().strTabelas, u"Cliente");
    EXPECT_EQ(Parts().dcWizard->Source(), accepted);
    ExpectNoBox();
  });
}

TEST_F(WizardGrid, TablesAreJoinedByTheirLinks) {
  Run([&] {
    Connect();
    Pick({u"Cliente", u"Cidade", u"Estado"});
    Check(u"lst1TabSel", u"Cliente");
    GoTo(Tab::Links);
    Link(u"Cidade", u"Codigo", u"Cliente", u"CodCidade");
    Link(u"Estado", u"Uf", u"Cidade", u"Uf");
    GoTo(Tab::Campos);
    Include(u"Cliente", {u"Nome"});
    Include(u"Cidade", {u"Descricao"});
    GoTo(Tab::Grid);
    Accept(
        u"Select Cliente.Nome, Cidade.Descricao From (Cliente Left Join Cidade on "
        u"Cidade.Codigo=Cliente.CodCidade) Left Join Estado on (Estado.Uf=Cidade.Uf) Where 1 = "
        u"Null",
        {u"Nome", u"Descricao"});
    Click(u"btn4Retrieve");
    ExpectNoBox();
    EXPECT_EQ(Captions(), (Rows{u"Nome", u"Descricao"}));
  });
}

TEST_F(WizardGrid, ATableAndAFieldMustBeChosen) {
  RunGrid({u"Codigo"}, [&] {
    List(u"lst3CmpSel").Clear();
    Click(u"btn4Retrieve");
    ExpectAlert(u"Informe o Nome do(s) Campo(s)");
    List(u"lst1TabSel").Clear();
    Click(u"btn4Retrieve");
    ExpectAlert(u"Informe o Nome da(s) Tabela(s)");
    List(u"lst3CmpSel").Add(u"Codigo");
    Click(u"btn4Retrieve");
    ExpectAlert(u"Informe o Nome da(s) Tabela(s)");
    EXPECT_EQ(Parts().strCampos, u"");
  });
}

TEST_F(WizardGrid, MoreLinksThanTablesStopBeforeAnyStatement) {
  Run([&] {
    Connect();
    Pick({u"Cliente", u"Cidade"});
    Check(u"lst1TabSel", u"Cliente");
    GoTo(Tab::Links);
    Link(u"Cidade", u"Codigo", u"Cliente", u"CodCidade");
    Link(u"Cliente", u"CodCidade", u"Cidade", u"Codigo");
    GoTo(Tab::Campos);
    Include(u"Cliente", {u"Nome"});
    GoTo(Tab::Grid);
    const std::size_t statements = database->Memory().Statements().size();
    Click(u"btn4Retrieve");
    ExpectUnhandled(errors::SubscriptOutOfRange);
    EXPECT_EQ(database->Memory().Statements().size(), statements);
    EXPECT_EQ(Parts().strCampos, u"");
    EXPECT_EQ(Parts().strTabelas, u"");
  });
}

TEST_F(WizardGrid, AnAliasGoesIntoFromAsItStands) {
  app.WillEnter(u"Pagador");
  Run([&] {
    Connect();
    Pick({u"Cliente", u"Cliente"});
    Check(u"lst1TabSel", u"Cliente");
    GoTo(Tab::Campos);
    Include(u"Pagador", {u"Nome"});
    GoTo(Tab::Grid);
    Click(u"btn4Retrieve");
    EXPECT_EQ(Parts().strTabelas, u"Cliente Left Join Pagador on ()");
    app.TakeBoxes();
  });
}

TEST_F(WizardGrid, WithAliasesAcceptedAnAliasNamesItsTable) {
  app.WillEnter(u"Pagador");
  Run([&] {
    Connect();
    Click(u"chkAceitaApelidos");
    Pick({u"Cliente", u"Cliente"});
    Check(u"lst1TabSel", u"Cliente");
    GoTo(Tab::Links);
    Link(u"Pagador", u"Codigo", u"Cliente", u"Codigo");
    GoTo(Tab::Campos);
    Include(u"Pagador", {u"Nome"});
    GoTo(Tab::Grid);
    Click(u"btn4Retrieve");
    EXPECT_EQ(Parts().strTabelas,
              u"Cliente Left Join Cliente as Pagador on (Pagador.Codigo=Cliente.Codigo)");
    GoTo(Tab::Tabelas);
    Select(u"lst1TabSel", u"Cliente");
    Click(u"btn1Exc");
    GoTo(Tab::Grid);
    Click(u"btn4Retrieve");
    EXPECT_EQ(Parts().strTabelas, u"Cliente as Pagador") << "also when it is the only table";
    app.TakeBoxes();
  });
}

// --- A statement that is refused

TEST_F(WizardGrid, ARefusedStatementCanBeCopied) {
  RunRetrieved({u"Codigo"}, [&] {
    Parts().Box(u"txt8Sql").Text(u"antes");
    Parts().List(u"lst5CmpSel").Add(u"Codigo");
    List(u"lst3CmpSel").Add(u"Falta");
    app.WillAnswer(host::answer::Yes);
    Click(u"btn4Retrieve");
    const String laidOut =
        u"SELECT\r\n      Codigo,\r\n       Falta \r\nFROM\r\n      Cliente\r\nORDER BY\r\n"
        u"      Codigo";
    const auto boxes = app.TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].Text, laidOut);
    EXPECT_EQ(boxes[0].Title, u"Copiar Para Área de Transferência ?");
    EXPECT_EQ(boxes[0].Style, host::box::YesNo + host::box::Stop);
    EXPECT_EQ(boxes[0].Owner, window->hWnd());
    EXPECT_EQ(desktop->Clipboard(), laidOut);
    EXPECT_EQ(Text(u"txt8Sql"), u"antes");
    EXPECT_EQ(Parts().strCampos, u"Codigo, Falta") << "the failed texts stay";
    EXPECT_EQ(Captions(), (Rows{u"Codigo"}));
    EXPECT_EQ(Definitions().Count(), 1);
    EXPECT_EQ(Parts().dcWizard->Source(), accepted);
    EXPECT_EQ(Parts().Label(u"lblEstado").Caption(), u"O comando não foi executado.");
    Accept(u"Select Codigo, Falta From Cliente Where 1 = Null", {u"Codigo", u"Falta"});
    Click(u"btn4Retrieve");
    EXPECT_EQ(Parts().Label(u"lblEstado").Caption(), u"");
  });
}

TEST_F(WizardGrid, ARefusedStatementIsNotCopiedUnasked) {
  RunGrid({u"Codigo"}, [&] {
    Click(u"btn4Retrieve");
    EXPECT_EQ(app.TakeBoxes().size(), 1U);
    EXPECT_FALSE(desktop->Clipboard().has_value());
    EXPECT_FALSE(IsTabEnabled(Tab::Ordem));
    for (const StringView box : kBoxes) EXPECT_FALSE(IsEnabled(box));
  });
}

TEST_F(WizardGrid, ALostServerIsARefusalToo) {
  RunGrid({u"Codigo"}, [&] {
    database->Memory().Drop();
    Click(u"btn4Retrieve");
    const auto boxes = app.TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].Text, u"SELECT\r\n      Codigo \r\nFROM\r\n      Cliente");
    EXPECT_TRUE(window->UnhandledErrors().empty());
  });
}

// --- The columns

TEST_F(WizardGrid, TheFieldsBecomeColumns) {
  RunRetrieved({u"Codigo", u"Nome"}, [&] {
    EXPECT_EQ(Captions(), (Rows{u"Codigo", u"Nome"}));
    ASSERT_EQ(Definitions().Count(), 2);
    const auto column = Definitions().Item(2);
    EXPECT_EQ(column->Campo(), u"Nome");
    EXPECT_EQ(column->Caption(), u"Nome");
    EXPECT_EQ(column->Mascara(), u"");
    EXPECT_EQ(column->Width(), Preview(1).Width());
    EXPECT_TRUE(column->Visible());
    for (const StringView box : kBoxes) EXPECT_TRUE(IsEnabled(box));
    EXPECT_EQ(SettingsShown(), (Rows{u"Codigo", u"", CStr(Preview(0).Width()), u"1"}));
    for (const Tab tab : {Tab::Ordem, Tab::Retorno, Tab::SqlPronta}) EXPECT_TRUE(IsTabEnabled(tab));
  });
}

TEST_F(WizardGrid, FieldsAreNamedAsTheDatabaseReturnsThem) {
  RunGrid({u"Codigo"}, [&] {
    Accept(u"Select Codigo From Cliente Where 1 = Null", {u"CODIGO"});
    Click(u"btn4Retrieve");
    EXPECT_EQ(Definitions().Item(1)->Campo(), u"CODIGO");
  });
}

TEST_F(WizardGrid, AnotherRetrieveReplacesAllSettings) {
  RunRetrieved({u"Codigo", u"Nome"}, [&] {
    window->ClickHeader(u"grdWizard", 1);
    Type(u"txt4GrdCaption", u"Nome do cliente");
    Type(u"txt4GrdMascara", u"@");
    Type(u"txt4GrdWidth", u"900");
    Click(u"btn4Retrieve");
    EXPECT_EQ(Parts().intColAtual, 0);
    EXPECT_EQ(Captions(), (Rows{u"Codigo", u"Nome"}));
    EXPECT_EQ(Definitions().Item(1)->Caption(), u"Codigo")
        << "what stood in the boxes does not come into the first column";
    EXPECT_EQ(Definitions().Item(2)->Caption(), u"Nome");
    EXPECT_EQ(Definitions().Item(2)->Mascara(), u"");
    EXPECT_NE(Definitions().Item(2)->Width(), 900);
    EXPECT_EQ(SettingsShown()[0], u"Codigo");
  });
}

TEST_F(WizardGrid, AStatementWithoutFieldsLeavesTheColumnsAlone) {
  RunRetrieved({u"Codigo"}, [&] {
    columns.clear();
    Click(u"btn4Retrieve");
    ExpectNoBox();
    EXPECT_EQ(Definitions().Count(), 1);
  });
}

/// The rows of a tried statement are those that a test supplies.
class FaultyTry final : public PassingConnection {
 public:
  FaultyTry(host::ConnectionPtr real, std::shared_ptr<FaultyRows> rows)
      : PassingConnection(std::move(real)), rows_(std::move(rows)) {}

  host::RecordsetPtr Execute(const String& statement) override {
    auto answer = real_->Execute(statement);
    if (statement.starts_with(u"Select * From ")) return answer;
    rows_->real = std::move(answer);
    return rows_;
  }

 private:
  std::shared_ptr<FaultyRows> rows_;
};

TEST_F(WizardGrid, APreviewThatCannotShowTheRowsStillGetsTheirColumns) {
  const auto rows = std::make_shared<FaultyRows>();
  app.OnNewConnection = [&] { return std::make_shared<FaultyTry>(database, rows); };
  RunRetrieved({u"Codigo", u"Nome"}, [&] {
    rows->failsNextFields = true;
    Click(u"btn4Retrieve");
    EXPECT_FALSE(rows->failsNextFields);
    ExpectNoBox();
    EXPECT_EQ(Captions(), (Rows{u"Codigo", u"Nome"}));
    EXPECT_EQ(Definitions().Count(), 2);
    EXPECT_EQ(Parts().dcWizard, rows);
    EXPECT_TRUE(IsTabEnabled(Tab::Ordem));
  });
}

TEST_F(WizardGrid, AColumnThatCannotBeRemovedBecomesTheFirst) {
  RunRetrieved({u"Codigo", u"Nome"}, [&] {
    window->Find<memory::DataGrid>(u"grdWizard").keepsLastColumn = true;
    Click(u"btn4Retrieve");
    ExpectNoBox();
    EXPECT_EQ(Captions(), (Rows{u"Codigo", u"Nome"}));
    EXPECT_EQ(Definitions().Count(), 2);
    EXPECT_EQ(Definitions().Item(1)->Campo(), u"Codigo");
  });
}

// --- Settings of a column

TEST_F(WizardGrid, AClickOnAHeadingShowsItsColumn) {
  RunRetrieved({u"Codigo", u"Nome"}, [&] {
    Definitions().Item(2)->Width(1234.5F);
    Definitions().Item(2)->Mascara(u">");
    Definitions().Item(2)->Visible(false);
    window->ClickHeader(u"grdWizard", 1);
    EXPECT_EQ(Parts().intColAtual, 1);
    EXPECT_EQ(SettingsShown(), (Rows{u"Nome", u">", u"1234", u"0"})) << "halves go to even";
    EXPECT_EQ(window->Focused(), u"grdWizard");
    EXPECT_EQ(Combo(u"cmb4Coluna").Text(), u"Nome");
  });
}

TEST_F(WizardGrid, AColumnCanBeChosenWithoutAMouse) {
  RunRetrieved({u"Codigo", u"Nome"}, [&] {
    EXPECT_EQ(Choices(u"cmb4Coluna"), (Rows{u"Codigo", u"Nome"}));
    EXPECT_EQ(Combo(u"cmb4Coluna").Text(), u"Codigo");
    window->FocusOn(u"cmb4Coluna");
    window->Press(memory::Key::Down);
    EXPECT_EQ(Parts().intColAtual, 1);
    EXPECT_EQ(SettingsShown()[0], u"Nome");
    EXPECT_EQ(window->Focused(), u"cmb4Coluna") << "the next key chooses on";
    Type(u"txt4GrdCaption", u"Cliente");
    EXPECT_EQ(Captions(), (Rows{u"Codigo", u"Cliente"}));
    EXPECT_EQ(Choices(u"cmb4Coluna"), (Rows{u"Codigo", u"Nome"}));
  });
}

TEST_F(WizardGrid, TheBoxesSetTheirColumn) {
  RunRetrieved({u"Codigo", u"Nome"}, [&] {
    window->ClickHeader(u"grdWizard", 1);
    Type(u"txt4GrdCaption", u"Cliente");
    EXPECT_EQ(Preview(1).Caption(), u"Cliente");
    Type(u"txt4GrdMascara", u"@@@");
    EXPECT_EQ(Preview(1).DataField(), u"@@@") << "the mask stands for the field in the preview";
    Type(u"txt4GrdWidth", u"900,4");
    EXPECT_NE(Preview(1).Width(), 900) << "not while it is typed";
    Click(u"chk4GrdVisible");
    EXPECT_EQ(Preview(1).Width(), 900);
    EXPECT_TRUE(Definitions().Item(2)->Visible());
    window->FocusOn(u"txt4Caption");
    const auto column = Definitions().Item(2);
    EXPECT_EQ(column->Caption(), u"Cliente");
    EXPECT_EQ(column->Mascara(), u"@@@");
    EXPECT_EQ(column->Width(), 900);
    EXPECT_FALSE(column->Visible());
    EXPECT_TRUE(Preview(1).Visible());
    EXPECT_EQ(Definitions().Item(1)->Caption(), u"Codigo");
    ExpectNoBox();
  });
}

TEST_F(WizardGrid, AWidthThatIsBeingTypedBelongsToItsColumn) {
  RunRetrieved({u"Codigo", u"Nome"}, [&] {
    Type(u"txt4GrdWidth", u"700");
    window->ClickHeader(u"grdWizard", 1);
    EXPECT_EQ(Definitions().Item(1)->Width(), 700);
    EXPECT_NE(Definitions().Item(2)->Width(), 700);
  });
}

TEST_F(WizardGrid, AWidthMustBeANumberOf16Bits) {
  RunRetrieved({u"Codigo"}, [&] {
    const float before = Definitions().Item(1)->Width();
    Type(u"txt4GrdWidth", u"largo");
    window->FocusOn(u"txt4Caption");
    ExpectUnhandled(errors::TypeMismatch);
    Type(u"txt4GrdWidth", u"40000");
    window->FocusOn(u"txt4Caption");
    ExpectUnhandled(errors::Overflow);
    EXPECT_EQ(Definitions().Item(1)->Width(), before);
    EXPECT_EQ(Preview(0).Width(), before);
  });
}

TEST_F(WizardGrid, AWidthThatIsDraggedIsKept) {
  RunRetrieved({u"Codigo", u"Nome"}, [&] {
    window->ResizeColumn(u"grdWizard", 1, 2000);
    EXPECT_EQ(Definitions().Item(2)->Width(), 2000);
    EXPECT_EQ(Parts().intColAtual, 1);
    EXPECT_EQ(Text(u"txt4GrdWidth"), u"2000");
  });
}

TEST_F(WizardGrid, AHeadingWithoutAColumnIsAnErrorAndTheChoiceStays) {
  RunRetrieved({u"Codigo", u"Nome"}, [&] {
    Definitions().Clear();
    Definitions().Add(u"Codigo", u"Codigo", u"", 900, true);
    window->ClickHeader(u"grdWizard", 1);
    ExpectUnhandled(errors::SubscriptOutOfRange);
    EXPECT_EQ(Parts().intColAtual, 0);
    EXPECT_EQ(Combo(u"cmb4Coluna").Text(), u"Codigo");
  });
}

TEST_F(WizardGrid, HeadingsThatOutliveTheirColumnsChooseNothing) {
  RunRetrieved({u"Codigo", u"Nome"}, [&] {
    Definitions().Clear();
    Parts().OnColumns();
    window->ClickHeader(u"grdWizard", 1);
    window->ResizeColumn(u"grdWizard", 1, 2000);
    EXPECT_EQ(window->Focused(), u"grdWizard");
    EXPECT_EQ(Parts().intColAtual, 0);
    for (const StringView box : kBoxes) EXPECT_FALSE(IsEnabled(box));
    EXPECT_TRUE(Choices(u"cmb4Coluna").empty());
    ExpectNoBox();
    Click(u"btn4Retrieve");
    EXPECT_EQ(Definitions().Count(), 2);
    for (const StringView box : kBoxes) EXPECT_TRUE(IsEnabled(box));
  });
}

TEST_F(WizardGrid, WithoutAFirstCaptionNothingCountsAsRetrieved) {
  RunRetrieved({u"Codigo"}, [&] {
    Type(u"txt4GrdCaption", u"");
    frmMontaSql::Instance()->AtualizaAbas();
    EXPECT_FALSE(IsTabEnabled(Tab::Ordem));
    EXPECT_TRUE(IsTabEnabled(Tab::Grid));
  });
}

// --- Columns that were not retrieved

TEST_F(WizardGrid, TheColumnsOfADefinitionAreSetInTheSameWay) {
  frmMontaSql::Instance()->StartGridRun();
  Definitions().Add(u"codigo", u"Código", u"", 500, true);
  Definitions().Add(u"nome", u"Nome", u">", 800, false);
  Preview(0).Caption(u"Código");
  Parts().Grid().AddColumn(1).Caption(u"Nome");
  Parts().OnColumns();
  Run([&] {
    EXPECT_EQ(Choices(u"cmb4Coluna"), (Rows{u"codigo", u"nome"}));
    Choose(u"cmb4Coluna", u"nome");
    EXPECT_EQ(SettingsShown(), (Rows{u"Nome", u">", u"800", u"0"}));
    Type(u"txt4GrdCaption", u"Cliente");
    EXPECT_EQ(Definitions().Item(2)->Caption(), u"Cliente");
    EXPECT_EQ(Definitions().Item(2)->Campo(), u"nome");
  });
}

TEST_F(WizardGrid, FiveHundredFieldsBecomeColumns) {
  Rows fields;
  for (int i = 1; i <= 500; ++i) fields.push_back(u"Campo" + CStr(Long{i}));
  database->fields[u"Cliente"] = fields;
  RunRetrieved(fields, [&] {
    EXPECT_EQ(Definitions().Count(), 500);
    EXPECT_EQ(Captions().size(), 500U);
    EXPECT_EQ(Definitions().Item(500)->Campo(), u"Campo500");
    ExpectNoBox();
  });
}

TEST_F(WizardGrid, ColumnsOfOneNameAreSetApart) {
  RunGrid({u"Codigo", u"Nome"}, [&] {
    Accept(u"Select Codigo, Nome From Cliente Where 1 = Null", {u"Nome", u"Nome"});
    Click(u"btn4Retrieve");
    window->ClickHeader(u"grdWizard", 1);
    Type(u"txt4GrdCaption", u"O segundo");
    EXPECT_EQ(Captions(), (Rows{u"Nome", u"O segundo"}));
    EXPECT_EQ(Definitions().Item(1)->Caption(), u"Nome");
    EXPECT_EQ(Definitions().Item(2)->Caption(), u"O segundo");
  });
}

// A half goes to the even number.
TEST_F(WizardGrid, TheShownWidthIsAWholeNumber) {
  RunRetrieved({u"Codigo"}, [&] {
    for (const auto& [width, shown] :
         {std::pair{1500.5F, u"1500"}, std::pair{1501.5F, u"1502"}, std::pair{1499.6F, u"1500"}}) {
      Definitions().Item(1)->Width(width);
      window->ClickHeader(u"grdWizard", 0);
      EXPECT_EQ(Text(u"txt4GrdWidth"), shown);
      EXPECT_EQ(Definitions().Item(1)->Width(), width) << "a look changes nothing";
      Preview(0).Width(width);
      Parts().Grid().OnColResize(0);
      EXPECT_EQ(CStr(Definitions().Item(1)->Width()), shown);
    }
  });
}

}  // namespace
}  // namespace tessaria::test
