// What the page gives to the SQL wizard, and what it takes back.
#include "wizard/frm_monta_sql.h"

#include "tessaria/thread_state.h"
#include "tests/propertypage/page_fixture.h"
#include "tests/wizard/scripted_database.h"

namespace tessaria::test {
namespace {

using Names = std::vector<String>;
using wizard::Tab;

/// A page in front of its tab "Browse". The tabs of the wizard are not worked here: what they leave
/// is put into its lists.
class WizardHandOver : public PageTest {
 protected:
  WizardHandOver() {
    code->Let(u"TipoControle", Long{1});
    app.AddDataSource(u"Compras");
    app.AddDataSource(u"Vendas");
    app.OnNewConnection = [] { return std::make_shared<ScriptedDatabase>(); };
  }
  ~WizardHandOver() override { State().frmMontaSql = nullptr; }

  void OpenPage() {
    Open({code});
    surface->ClickTab(u"tabPropriedade", 1);
    site.changed = false;
  }
  /// A click on a button of the page, and what is done in the wizard that it opens.
  void Work(StringView button, const std::function<void(memory::Dialog&)>& work) {
    desktop->WillShow(u"frmMontaSql", [&](memory::Dialog& dialog) {
      work(dialog);
      if (dialog.IsShown()) dialog.Click(u"btnVoltar");
    });
    surface->Click(button);
  }
  wizard::Wizard& Its() { return State().frmMontaSql->Parts(); }
  Browse& Definition() { return DefinitionOf(*code); }

  void PutTables(const Names& tables) {
    for (const String& table : tables) {
      Its().List(u"lst1TabSel").Add(table);
      Its().colTabelas.Add(table, table);
    }
    Its().List(u"lst1TabSel").Item(1).Checked(true);
  }
  void PutSearch(const String& field, const Names& subItems) {
    auto& row = Its().List(u"lst6CmpSel").Add(field);
    for (const String& text : subItems) row.AddSubItem(text);
  }
  void PutNames(const String& key, const String& sibling) {
    Its().Box(u"txt7CampoChave").Text(key);
    Its().Box(u"txt7CampoIrmao").Text(sibling);
  }
  void PutColumns(const Names& fields) {
    for (const String& field : fields) Its().cgrColGrid.Add(field, u"T " + field, u"0", 900, true);
  }
  static Names FieldsOf(const ListaColunas& columns) {
    Names fields;
    for (Long i = 1; i <= columns.Count(); ++i) fields.push_back(columns.Item(i)->Campo());
    return fields;
  }
  Names ReturnFields() {
    Names fields;
    for (Long i = 1; i <= Definition().Outros().Count(); ++i)
      fields.push_back(Definition().Outros().Item(i)->Nome());
    return fields;
  }
  void ExpectColumnBoxes(bool enabled) {
    for (const auto* box :
         {u"txt4GrdCaption", u"txt4GrdMascara", u"txt4GrdWidth", u"chk4GrdVisible"})
      EXPECT_EQ(Its().Widget(box).Enabled(), enabled);
  }
  Names RowsOf(StringView combo) {
    Names rows;
    for (Long i = 0; i < Its().Combo(combo).ListCount(); ++i)
      rows.push_back(Its().Combo(combo).List(i));
    return rows;
  }
};

// --- The whole wizard

TEST_F(WizardHandOver, TheSiblingsAndTheFieldItselfAreOffered) {
  OpenPage();
  Work(u"btnSql", [&](auto&) {
    EXPECT_EQ(RowsOf(u"cmb6Objeto"), (Names{u"desCliente", u"txtValor", u"codCliente"}));
  });
}

TEST_F(WizardHandOver, AFieldWithoutSiblingsOffersItselfOnly) {
  const auto alone = memory::Form::Create(u"frmUm", memory::Form::Mode::Design);
  const auto field = alone->Add<memory::TsText>(u"txtUm");
  field->Let(u"TipoControle", Long{1});
  Open({field});
  surface->ClickTab(u"tabPropriedade", 1);
  Work(u"btnSql", [&](auto&) { EXPECT_EQ(RowsOf(u"cmb6Objeto"), (Names{u"txtUm"})); });
  alone->Close();
}

TEST_F(WizardHandOver, VoltarCopiesNothingAndKeepsTheWizard) {
  Definition().BrwGroupBy(u"Group By x");
  OpenPage();
  Work(u"btnSql", [&](auto&) {
    PutTables({u"Cliente"});
    PutNames(u"Codigo", u"Nome");
    PutColumns({u"Codigo"});
    Its().List(u"lst7CmpRet").Add(u"Nome");
  });
  EXPECT_EQ(Text(u"txtBrowseTable"), u"");
  EXPECT_EQ(Text(u"txtBrwCampo"), u"");
  EXPECT_EQ(Definition().cgrColGrid().Count(), 0);
  EXPECT_TRUE(ReturnFields().empty());
  EXPECT_FALSE(site.changed);
  EXPECT_TRUE(IsEnabled(u"btnSql"));
  Work(u"btnSql", [&](auto&) {
    EXPECT_EQ(Its().List(u"lst1TabSel").Count(), 1) << "the wizard is as it was";
    EXPECT_EQ(RowsOf(u"cmb6Objeto").size(), 3U) << "listed anew";
    EXPECT_EQ(Its().cgrColGrid.Count(), 0);
    ExpectColumnBoxes(false);
  });
}

TEST_F(WizardHandOver, TheNextOpeningOffersTheSiblingsOfTheFieldThatOpensIt) {
  OpenPage();
  Work(u"btnSql", [&](auto&) { PutTables({u"Cliente"}); });
  description->Let(u"TipoControle", Long{1});
  Open({description});
  surface->ClickTab(u"tabPropriedade", 1);
  Work(u"btnSql", [&](auto&) {
    EXPECT_EQ(RowsOf(u"cmb6Objeto"), (Names{u"codCliente", u"txtValor", u"desCliente"}));
    EXPECT_EQ(Its().List(u"lst1TabSel").Count(), 1) << "the wizard is as it was";
  });
}

TEST_F(WizardHandOver, ClosingByTheFrameCopiesNothingAndDropsTheWizard) {
  OpenPage();
  Work(u"btnSql", [&](memory::Dialog& dialog) {
    PutTables({u"Cliente"});
    PutNames(u"Codigo", u"");
    dialog.CloseWindow();
  });
  EXPECT_EQ(Text(u"txtBrowseTable"), u"");
  EXPECT_FALSE(site.changed);
  EXPECT_EQ(State().frmMontaSql, nullptr);
}

TEST_F(WizardHandOver, ConfirmingFillsThePageAndTheDefinition) {
  Definition().BrwGroupBy(u"Group By x");
  Definition().Outros().Add(u"velho");
  Definition().cgrColGrid().Add(u"velho", u"", u"", 0, true);
  OpenPage();
  Work(u"btnSql", [&](memory::Dialog& dialog) {
    PutTables({u"Cliente"});
    PutNames(u"Codigo", u"Nome");
    Its().Box(u"txt4Caption").Text(u"Clientes");
    Its().strCampos = u"Codigo, Nome, Cidade";
    Its().strTabelas = u"Cliente";
    PutColumns({u"Codigo", u"Nome", u"Cidade"});
    for (const auto* field : {u"Cidade", u"Nome"}) Its().List(u"lst7CmpRet").Add(field);
    PutSearch(u"Cliente.Codigo", {u"=", u"txtCodigo", u"Numerico"});
    PutSearch(u"Cliente.Nome", {u">=", u"txtNome", u"String"});
    PutSearch(u"Cliente.Cidade", {});
    dialog.Click(u"btnConfirma");
  });
  EXPECT_EQ(Text(u"txtBrwTitulo"), u"Clientes");
  EXPECT_EQ(Text(u"txtBrowseTable"), u"Cliente");
  EXPECT_EQ(Text(u"txtBrwCampo"), u"Codigo");
  EXPECT_EQ(Text(u"txtBrwCampoIrmao"), u"Nome");
  EXPECT_EQ(Text(u"txtBrwCampoOutros"), u"Cidade");
  EXPECT_EQ(Text(u"txtBrwLeftJoin"), u"");
  EXPECT_EQ(Text(u"txtBrwWhere"), u"Cliente.Codigo=@txtCodigo@ and Cliente.Nome>='@txtNome@'");
  EXPECT_EQ(Text(u"txtBrwGroupBy"), u"Group By x");
  EXPECT_EQ(ReturnFields(), (Names{u"Cidade", u"Nome"}));
  EXPECT_EQ(FieldsOf(Definition().cgrColGrid()), (Names{u"Codigo", u"Nome", u"Cidade"}));
  EXPECT_EQ(Definition().cgrColGrid().Item(1)->Caption(), u"T Codigo");
  EXPECT_EQ(Definition().BrowseTable(), u"Cliente") << "final in the definition at once";
  EXPECT_EQ(Definition().BrwCampo(), u"Codigo");
  EXPECT_TRUE(site.changed);
  EXPECT_EQ(State().frmMontaSql, nullptr) << "each run starts empty";
}

TEST_F(WizardHandOver, SeveralTablesGiveTheWholeTextAfterFrom) {
  OpenPage();
  Work(u"btnSql", [&](memory::Dialog& dialog) {
    PutTables({u"Cidade", u"Cliente"});
    Its().List(u"lst1TabSel").Item(1).Checked(false);
    Its().List(u"lst1TabSel").Item(2).Checked(true);
    PutNames(u"Codigo", u"Nome");
    Its().strCampos = u"Cliente.Codigo, Cliente.Nome, Cidade.Descricao";
    Its().strTabelas = u"Cliente Left Join Cidade on (Cidade.Codigo=Cliente.CodCidade)";
    dialog.Click(u"btnConfirma");
  });
  EXPECT_EQ(Text(u"txtBrowseTable"), u"Cliente");
  EXPECT_EQ(Text(u"txtBrwLeftJoin"),
            u"Cliente Left Join Cidade on (Cidade.Codigo=Cliente.CodCidade)");
  EXPECT_EQ(Text(u"txtBrwCampoOutros"), u"Cidade.Descricao");
}

TEST_F(WizardHandOver, ASingleAliasHasATextAfterFromWhereAliasesAreAccepted) {
  OpenPage();
  const auto run = [&](bool accepts) {
    Type(u"txtBrowseTable", u"");
    Type(u"txtBrwCampo", u"");
    Work(u"btnSql", [&](memory::Dialog& dialog) {
      if (accepts) dialog.Click(u"chkAceitaApelidos");
      Its().List(u"lst1TabSel").Add(u"Pagador");
      Its().colTabelas.Add(u"Cliente", u"Pagador");
      Its().strTabelas = u"Cliente as Pagador";
      PutNames(u"Codigo", u"");
      dialog.Click(u"btnConfirma");
    });
    EXPECT_EQ(Text(u"txtBrowseTable"), u"Pagador");
    return Text(u"txtBrwLeftJoin");
  };
  EXPECT_EQ(run(true), u"Cliente as Pagador");
  EXPECT_EQ(run(false), u"");
}

// Connecting again has forgotten which table the alias stands for.
TEST_F(WizardHandOver, AnAliasKeepsItsTextAfterFromWhenTheTablesWereListedAnew) {
  OpenPage();
  Work(u"btnSql", [&](memory::Dialog& dialog) {
    dialog.Click(u"chkAceitaApelidos");
    PutTables({u"Pagador"});
    Its().colTabelas = {};
    Its().strTabelas = u"Cliente as Pagador";
    PutNames(u"Codigo", u"");
    dialog.Click(u"btnConfirma");
  });
  EXPECT_EQ(Text(u"txtBrowseTable"), u"Pagador");
  EXPECT_EQ(Text(u"txtBrwLeftJoin"), u"Cliente as Pagador");
}

TEST_F(WizardHandOver, ASingleTableNeedsNoTextAfterFromAlsoWithAliases) {
  OpenPage();
  Work(u"btnSql", [&](memory::Dialog& dialog) {
    dialog.Click(u"chkAceitaApelidos");
    PutTables({u"Pedido_Item"});
    Its().strTabelas = u"Pedido_Item";
    PutNames(u"id", u"");
    dialog.Click(u"btnConfirma");
  });
  EXPECT_EQ(Text(u"txtBrowseTable"), u"Pedido_Item");
  EXPECT_EQ(Text(u"txtBrwLeftJoin"), u"");
}

TEST_F(WizardHandOver, AfterAConfirmedRunTheWizardIsForAnEmptyDefinitionAgain) {
  OpenPage();
  Work(u"btnSql", [&](memory::Dialog& dialog) {
    PutTables({u"Cliente"});
    PutNames(u"Codigo", u"");
    dialog.Click(u"btnConfirma");
  });
  EXPECT_FALSE(IsEnabled(u"btnSql"));
  Type(u"txtBrowseTable", u"");
  EXPECT_FALSE(IsEnabled(u"btnSql"));
  Type(u"txtBrwCampo", u"");
  EXPECT_TRUE(IsEnabled(u"btnSql"));
}

TEST_F(WizardHandOver, EnteringTheTabWithoutATableGivesTheWizardBack) {
  OpenPage();
  Work(u"btnSql", [&](memory::Dialog& dialog) {
    PutNames(u"Codigo", u"");
    dialog.Click(u"btnConfirma");
  });
  EXPECT_EQ(Text(u"txtBrowseTable"), u"");
  EXPECT_FALSE(IsEnabled(u"btnSql"));
  surface->ClickTab(u"tabPropriedade", 0);
  surface->ClickTab(u"tabPropriedade", 1);
  EXPECT_TRUE(IsEnabled(u"btnSql"));
}

// --- The data source

TEST_F(WizardHandOver, TheDataSourceOfTheFieldIsChosen) {
  auto& own = dynamic_cast<memory::DataControl&>(*form->Controls(u"dcItens"));
  auto& other = dynamic_cast<memory::DataControl&>(*form->Controls(u"dcPedido"));
  other.ConnectionString(u"DSN=Compras;UID=a");
  own.ConnectionString(u"Provider=x;DSN=Vendas");
  code->Let(u"DataSource", u"dcItens");
  OpenPage();
  Work(u"btnSql", [&](auto&) { EXPECT_EQ(Its().Combo(u"cmbSistema").Text(), u"Vendas"); });
}

TEST_F(WizardHandOver, WithoutOneOfItsOwnTheFirstOfTheFormIsChosen) {
  dynamic_cast<memory::DataControl&>(*form->Controls(u"dcItens")).ConnectionString(u"DSN=Compras");
  OpenPage();
  Work(u"btnSql", [&](memory::Dialog& dialog) {
    EXPECT_EQ(Its().Combo(u"cmbSistema").Text(), u"Compras");
    dialog.Choose(u"cmbSistema", 1);
  });
  Work(u"btnSql", [&](auto&) {
    EXPECT_EQ(Its().Combo(u"cmbSistema").Text(), u"Vendas") << "the operator's choice stays";
  });
}

TEST_F(WizardHandOver, ASourceThatTheSystemDoesNotHaveIsNotChosen) {
  dynamic_cast<memory::DataControl&>(*form->Controls(u"dcItens")).ConnectionString(u"DSN=Outra");
  OpenPage();
  Work(u"btnSql", [&](auto&) { EXPECT_EQ(Its().Combo(u"cmbSistema").ListIndex(), -1); });
}

TEST_F(WizardHandOver, ADataControlOfItsOwnThatNamesNoneGivesWayToTheFirstThatDoes) {
  dynamic_cast<memory::DataControl&>(*form->Controls(u"dcItens")).ConnectionString(u"Server=x");
  dynamic_cast<memory::DataControl&>(*form->Controls(u"dcPedido"))
      .ConnectionString(u"dsn={VENDAS}");
  code->Let(u"DataSource", u"dcItens");
  OpenPage();
  Work(u"btnSql", [&](auto&) { EXPECT_EQ(Its().Combo(u"cmbSistema").Text(), u"Vendas"); });
}

// --- The columns alone

class ColumnsHandOver : public WizardHandOver {
 protected:
  ColumnsHandOver() {
    Browse& its = Definition();
    its.BrwTitulo(u"Clientes");
    its.BrowseTable(u"cliente");
    its.BrwCampo(u"codigo");
    its.BrwCampoIrmao(u"nome");
    its.BrwCampoOutros(u"cidade, uf");
    its.BrwWhere(u"ativo = 1");
    its.BrwGroupBy(u"Group By x");
    its.Outros().Add(u"cidade");
    its.cgrColGrid().Add(u"codigo", u"Código", u"000", 900, true);
    its.cgrColGrid().Add(u"nome", u"Nome", u"", 2500, true);
    its.cgrColGrid().Add(u"uf", u"UF", u"", 300, false);
  }
  /// Changes everything that a run may change.
  void Edit() {
    Its().cgrColGrid.Item(1)->Caption(u"Nº");
    Its().Box(u"txt4Caption").Text(u"Fregueses");
    PutNames(u"uf", u"codigo");
    Its().List(u"lst7CmpRet").Add(u"uf");
  }
};

TEST_F(ColumnsHandOver, WithoutColumnsNothingOpens) {
  OpenPage();
  Definition().cgrColGrid().Clear();
  surface->Click(u"btnGrid");
  EXPECT_TRUE(desktop->Shown().empty());
  EXPECT_EQ(State().frmMontaSql, nullptr);
  EXPECT_FALSE(site.changed);
}

TEST_F(ColumnsHandOver, TheWizardShowsTheColumnsAndTheNames) {
  OpenPage();
  Work(u"btnGrid", [&](auto&) {
    ExpectColumnBoxes(true);
    EXPECT_EQ(Its().Tabs().Tab(), static_cast<Long>(Tab::Grid));
    host::DataGrid& grid = Its().Grid();
    ASSERT_EQ(grid.ColumnCount(), 3);
    EXPECT_EQ(grid.Column(0).Caption(), u"Código");
    EXPECT_EQ(grid.Column(1).Width(), 2500);
    EXPECT_TRUE(grid.Column(1).Visible());
    EXPECT_FALSE(grid.Column(2).Visible());
    EXPECT_EQ(Its().Box(u"txt4GrdCaption").Text(), u"Código");
    EXPECT_EQ(Its().Box(u"txt4GrdWidth").Text(), u"900");
    EXPECT_EQ(Its().Box(u"txt4GrdMascara").Text(), u"000");
    EXPECT_EQ(Its().Check(u"chk4GrdVisible").Value(), 1);
    EXPECT_EQ(Its().Box(u"txt4Caption").Text(), u"Clientes");
    EXPECT_EQ(Its().Box(u"txt7CampoChave").Text(), u"codigo");
    EXPECT_EQ(Its().Box(u"txt7CampoIrmao").Text(), u"nome");
    ASSERT_EQ(Its().List(u"lst7CmpRet").Count(), 1);
    EXPECT_EQ(Its().List(u"lst7CmpRet").Item(1).Text(), u"cidade");
    EXPECT_EQ(FieldsOf(Its().cgrColGrid), (Names{u"codigo", u"nome", u"uf"}));
    EXPECT_EQ(Its().intColAtual, 0);
    EXPECT_TRUE(Its().Button(u"btnConfirma").Enabled());
    EXPECT_TRUE(Its().Widget(u"lblCampoOutros").Visible());
  });
}

TEST_F(ColumnsHandOver, AHiddenFirstColumnOfABrokenWidthStaysAsItIs) {
  const auto first = Definition().cgrColGrid().Item(1);
  first->Visible(false);
  first->Width(900.5F);
  OpenPage();
  Work(u"btnGrid", [&](memory::Dialog& dialog) {
    EXPECT_EQ(Its().Check(u"chk4GrdVisible").Value(), 0);
    EXPECT_EQ(Its().Box(u"txt4GrdWidth").Text(), u"900,5");
    EXPECT_FALSE(Its().Grid().Column(0).Visible());
    EXPECT_EQ(Its().Grid().Column(0).Width(), 900.5F);
    dialog.Click(u"btnConfirma");
  });
  EXPECT_FALSE(Definition().cgrColGrid().Item(1)->Visible());
  EXPECT_EQ(Definition().cgrColGrid().Item(1)->Width(), 900.5F);
}

TEST_F(ColumnsHandOver, ARunAfterAFullOneThatWasLeftShowsTheDefinition) {
  OpenPage();
  Type(u"txtBrowseTable", u"");
  Type(u"txtBrwCampo", u"");
  Work(u"btnSql", [&](auto&) {
    PutTables({u"Pedido"});
    PutColumns({u"numero", u"data", u"valor", u"prazo"});
    Its().strCampos = u"numero, data, valor, prazo";
    Its().Grid().Column(0).Caption(u"numero");
  });
  Work(u"btnGrid", [&](auto&) {
    EXPECT_EQ(Its().Grid().ColumnCount(), 3);
    EXPECT_EQ(Its().Grid().Column(0).Caption(), u"Código");
    EXPECT_EQ(FieldsOf(Its().cgrColGrid), (Names{u"codigo", u"nome", u"uf"}));
    EXPECT_EQ(Its().strCampos, u"");
  });
}

TEST_F(ColumnsHandOver, WithoutAConnectionNamesKeepTheirQuotes) {
  Definition().cgrColGrid().Clear();
  Definition().cgrColGrid().Add(u"Id", u"Id", u"", 900, true);
  Definition().cgrColGrid().Add(u"Nota Fiscal", u"Nota", u"", 900, true);
  Definition().BrwCampo(u"\"Id\"");
  OpenPage();
  Work(u"btnGrid", [&](memory::Dialog& dialog) {
    dialog.ClickTab(u"tabWizard", 6);
    dialog.ClickRow(u"lst7Cmp", 1);
    dialog.Click(u"btn7CmpChaveInc");
    EXPECT_EQ(Its().Box(u"txt7CampoChave").Text(), u"\"Id\"");
    dialog.ClickRow(u"lst7Cmp", 2);
    dialog.Click(u"btn7CmpIrmaoInc");
    EXPECT_EQ(Its().Box(u"txt7CampoIrmao").Text(), u"Nota Fiscal");
  });
}

TEST_F(ColumnsHandOver, TheWizardsButtonStaysAsItWas) {
  Definition().BrowseTable(u"");
  OpenPage();
  surface->ClickTab(u"tabPropriedade", 0);
  surface->ClickTab(u"tabPropriedade", 1);
  ASSERT_TRUE(IsEnabled(u"btnSql"));
  Work(u"btnGrid", [&](memory::Dialog& dialog) {
    PutNames(u"uf", u"codigo");
    dialog.Click(u"btnConfirma");
  });
  EXPECT_EQ(Text(u"txtBrwCampo"), u"uf");
  EXPECT_TRUE(IsEnabled(u"btnSql"));
}

TEST_F(ColumnsHandOver, ARunThatIsGivenUpLeavesTheDefinition) {
  OpenPage();
  Work(u"btnGrid", [&](auto&) { Edit(); });
  EXPECT_EQ(FieldsOf(Definition().cgrColGrid()), (Names{u"codigo", u"nome", u"uf"}));
  EXPECT_EQ(Definition().cgrColGrid().Item(1)->Caption(), u"Código");
  EXPECT_EQ(Text(u"txtBrwTitulo"), u"Clientes");
  EXPECT_EQ(Text(u"txtBrwCampo"), u"codigo");
  EXPECT_EQ(Text(u"txtBrwCampoOutros"), u"cidade, uf");
  EXPECT_EQ(ReturnFields(), (Names{u"cidade"}));
  EXPECT_FALSE(site.changed);
}

TEST_F(ColumnsHandOver, AConfirmedRunRewritesColumnsAndNamesAndEmptiesTheOtherFields) {
  OpenPage();
  const String join = u"cliente Left Join cidade on (cidade.codigo=cliente.cidade)";
  Type(u"txtBrwLeftJoin", join);
  EXPECT_FALSE(IsEnabled(u"btnSql"));
  Work(u"btnGrid", [&](memory::Dialog& dialog) {
    Edit();
    dialog.Click(u"btnConfirma");
  });
  EXPECT_EQ(FieldsOf(Definition().cgrColGrid()), (Names{u"codigo", u"nome", u"uf"}));
  EXPECT_EQ(Definition().cgrColGrid().Item(1)->Caption(), u"Nº");
  EXPECT_FALSE(Definition().cgrColGrid().Item(3)->Visible());
  EXPECT_EQ(Text(u"txtBrwTitulo"), u"Fregueses");
  EXPECT_EQ(Text(u"txtBrwCampo"), u"uf");
  EXPECT_EQ(Text(u"txtBrwCampoIrmao"), u"codigo");
  EXPECT_EQ(Text(u"txtBrwCampoOutros"), u"") << "a run over the columns loses them";
  EXPECT_EQ(ReturnFields(), (Names{u"cidade", u"uf"}));
  EXPECT_EQ(Text(u"txtBrowseTable"), u"cliente");
  EXPECT_EQ(Text(u"txtBrwWhere"), u"ativo = 1");
  EXPECT_EQ(Text(u"txtBrwGroupBy"), u"Group By x");
  EXPECT_EQ(Text(u"txtBrwLeftJoin"), join);
  EXPECT_TRUE(site.changed);
  EXPECT_FALSE(IsEnabled(u"btnSql"));
  EXPECT_TRUE(IsEnabled(u"btnGrid"));
  EXPECT_EQ(State().frmMontaSql, nullptr);
}

TEST_F(ColumnsHandOver, AnOldSelectListPlaysNoPartInARunOverTheColumns) {
  OpenPage();
  Type(u"txtBrowseTable", u"");
  Type(u"txtBrwCampo", u"");
  Work(u"btnSql", [&](auto&) { Its().strCampos = u"a, b"; });
  Work(u"btnGrid", [&](memory::Dialog& dialog) {
    PutNames(u"a", u"");
    dialog.Click(u"btnConfirma");
  });
  EXPECT_EQ(Text(u"txtBrwCampoOutros"), u"");
}

TEST_F(ColumnsHandOver, FewerColumnsThanBeforeLeaveNoneBehind) {
  OpenPage();
  Work(u"btnGrid", [](auto&) {});
  Definition().cgrColGrid().Clear();
  Definition().cgrColGrid().Add(u"nome", u"Nome", u"", 2500, true);
  Definition().Outros().Clear();
  Work(u"btnGrid", [&](auto&) {
    ASSERT_EQ(Its().Grid().ColumnCount(), 1);
    EXPECT_EQ(Its().Grid().Column(0).Caption(), u"Nome");
    EXPECT_EQ(Its().cgrColGrid.Count(), 1);
    EXPECT_EQ(Its().List(u"lst7CmpRet").Count(), 0);
  });
}

TEST_F(ColumnsHandOver, AFullRunAfterOneThatWasGivenUpStartsWithItsTabs) {
  OpenPage();
  Work(u"btnGrid", [](auto&) {});
  Type(u"txtBrowseTable", u"");
  Type(u"txtBrwCampo", u"");
  Work(u"btnSql", [&](auto&) {
    EXPECT_EQ(Its().Tabs().Tab(), static_cast<Long>(Tab::Tabelas));
    EXPECT_TRUE(Its().Tabs().TabEnabled(static_cast<Long>(Tab::Tabelas)));
    for (Long tab = 1; tab < wizard::kTabs; ++tab) EXPECT_FALSE(Its().Tabs().TabEnabled(tab));
    EXPECT_TRUE(Its().Button(u"btn4Retrieve").Enabled());
  });
}

// --- The life of the wizard

TEST_F(WizardHandOver, AnyFieldThatGoesAwayUnloadsTheWizard) {
  OpenPage();
  Work(u"btnSql", [](auto&) {});
  EXPECT_NE(State().frmMontaSql, nullptr);
  const auto other = memory::Form::Create(u"frmOutro");
  other->Add<memory::TsText>(u"txtOutro");
  other->Close();
  EXPECT_EQ(State().frmMontaSql, nullptr);
}

TEST_F(WizardHandOver, AFieldThatGoesAwayClosesTheOpenWizardAndNothingIsTaken) {
  OpenPage();
  Work(u"btnSql", [&](memory::Dialog& dialog) {
    const auto other = memory::Form::Create(u"frmOutro");
    other->Add<memory::TsText>(u"txtOutro");
    other->Close();
    EXPECT_FALSE(dialog.IsShown());
  });
  EXPECT_FALSE(site.changed);
  EXPECT_EQ(Text(u"txtBrowseTable"), u"");
}

TEST_F(WizardHandOver, WithoutADesktopTheErrorIsShownAndThePageStays) {
  OpenPage();
  auto* const former = std::exchange(State().desktop, nullptr);
  surface->Click(u"btnSql");
  State().desktop = former;
  EXPECT_EQ(app.TakeBoxes().size(), 1U);
  EXPECT_TRUE(IsEnabled(u"btnSql"));
}

}  // namespace
}  // namespace tessaria::test
