// From a data source to a lookup on the page, through all tabs.
#include "tests/support/printers.h"
#include "tests/wizard/session_of_today.h"

namespace tessaria::test {
namespace {

using wizard::Tab;

// --- Names without a "_", by the three dialects

struct Dialect {
  const char16_t* name;
  const char16_t* concatenated;
};

const Dialect kAccess{u"ACCESS",
                      u"Mid(Cliente.Cep,  1,  5) & '-' & Mid(Cliente.Cep,  6,  3) & '' as CepFmt"};
const Dialect kSqlServer{
    u"Microsoft SQL Server",
    u"Substring(Cliente.Cep,  1,  5) & '-' & Substring(Cliente.Cep,  6,  3) & '' as CepFmt"};
const Dialect kUnfoldedPostgres{
    u"POSTGRESQL",
    u"Substring(\"Cliente\".\"Cep\",  1,  5) || '-' || Substring(\"Cliente\".\"Cep\",  6,  3) || "
    u"'' as CepFmt"};

class WizardSession : public SessionTest {
 protected:
  WizardSession() {
    database->Memory().Answer(u"Select unnest(current_schemas(true))",
                              ScriptedDatabase::Columns({u"unnest"}, {{u"public"}}));
    database->answer = [this](const String& statement) -> std::optional<memory::Rows> {
      if (statement != Statement()) return std::nullopt;
      return ScriptedDatabase::Columns({u"Codigo", u"Nome", u"Descricao", u"CepFmt"});
    };
  }
  void Speak(const Dialect& spoken) {
    dialect = spoken;
    database->Memory().SetProperty(u"DBMS Name", spoken.name);
    const String schema = String(spoken.name) == u"Microsoft SQL Server" ? u"dbo" : u"public";
    database->relations = {{schema, u"Cliente"}, {schema, u"Cidade"}};
    database->fields = {{N(u"Cliente"), {u"Codigo", u"Nome", u"CodCidade", u"Cep"}},
                        {N(u"Cidade"), {u"Codigo", u"Descricao"}}};
  }
  /// A name as the database takes it.
  String N(StringView name) const {
    const String quote = String(dialect.name) == u"POSTGRESQL" ? u"\"" : u"";
    return quote + String(name) + quote;
  }
  String Field(StringView table, StringView field) const { return N(table) + u"." + N(field); }
  String From() const {
    return N(u"Cliente") + u" Left Join " + N(u"Cidade") + u" on (" + Field(u"Cidade", u"Codigo") +
           u"=" + Field(u"Cliente", u"CodCidade") + u")";
  }
  String Statement() const {
    return u"Select " + Field(u"Cliente", u"Codigo") + u", " + Field(u"Cliente", u"Nome") + u", " +
           Field(u"Cidade", u"Descricao") + u", " + dialect.concatenated + u" From " + From() +
           u" Where 1 = Null";
  }
  String LaidOut() const {
    return u"SELECT\r\n      " + Field(u"Cliente", u"Codigo") + u",\r\n       " +
           Field(u"Cliente", u"Nome") + u",\r\n       " + Field(u"Cidade", u"Descricao") +
           u",\r\n       " + dialect.concatenated + u" \r\nFROM\r\n      " + N(u"Cliente") +
           u" \r\n      Left Join " + N(u"Cidade") + u" on (" + Field(u"Cidade", u"Codigo") + u"=" +
           Field(u"Cliente", u"CodCidade") + u") \r\nWHERE\r\n      " +
           Searches(u" and \r\n      ") + u"\r\nORDER BY\r\n      Nome";
  }
  String Searches(const String& joint) const {
    return Field(u"Cliente", u"Codigo") + u"=@codCliente@" + joint + Field(u"Cliente", u"Nome") +
           u">='@desCliente@'";
  }

  // --- The tabs, one after the other
  void PickTables() {
    Choose(u"cmbSistema", u"Vendas");
    Click(u"btnConectar");
    Pick({N(u"Cliente"), N(u"Cidade")});
    Check(u"lst1TabSel", N(u"Cliente"));
    GoTo(Tab::Links);
    Link(N(u"Cidade"), N(u"Codigo"), N(u"Cliente"), N(u"CodCidade"));
  }
  void PickFields() {
    GoTo(Tab::Campos);
    Include(N(u"Cliente"), {N(u"Codigo"), N(u"Nome")});
    Include(N(u"Cidade"), {N(u"Descricao")});
    AddPiece(N(u"Cliente"), N(u"Cep"));
    Type(u"txt3ConcMascara", u"#####-###");
    Type(u"txt3ConcNome", u"CepFmt");
    Click(u"btn3CriaConcatena");
  }
  void SetColumns() {
    GoTo(Tab::Grid);
    Click(u"btn4Retrieve");
    Type(u"txt4Caption", u"Clientes");
    ChooseColumn(1);
    Type(u"txt4GrdCaption", u"Nome do cliente");
    Type(u"txt4GrdWidth", u"3000");
    ChooseColumn(0);
    Click(u"chk4GrdVisible");
  }
  void SortAndSearch() {
    GoTo(Tab::Ordem);
    OrderBy(u"Nome");
    GoTo(Tab::Where);
    Search(N(u"Cliente"), N(u"Codigo"), {u"=", u"codCliente", u"Numerico"});
    Search(N(u"Cliente"), N(u"Nome"), {u">=", u"desCliente", u"String"});
  }
  /// All tabs up to the retrieve.
  void Retrieve() {
    PickTables();
    PickFields();
    GoTo(Tab::Grid);
    Click(u"btn4Retrieve");
  }
  void NameFields() {
    GoTo(Tab::Retorno);
    TakeField(u"Codigo", u"btn7CmpChaveInc");
    TakeField(u"Nome", u"btn7CmpIrmaoInc");
    TakeField(u"Descricao", u"btn7CmpRetInc");
    TakeField(u"CepFmt", u"btn7CmpRetInc");
  }
  void RunAll() {
    RunFromPage([&] {
      PickTables();
      PickFields();
      SetColumns();
      SortAndSearch();
      NameFields();
      GoTo(Tab::SqlPronta);
      EXPECT_EQ(Text(u"txt8Sql"), LaidOut());
      Click(u"btnConfirma");
    });
  }
  void ExpectOnPage() {
    ExpectNoBox();
    EXPECT_EQ(PageText(u"txtBrwTitulo"), u"Clientes");
    EXPECT_EQ(PageText(u"txtBrowseTable"), N(u"Cliente"));
    EXPECT_EQ(PageText(u"txtBrwCampo"), N(u"Codigo"));
    EXPECT_EQ(PageText(u"txtBrwCampoIrmao"), N(u"Nome"));
    EXPECT_EQ(PageText(u"txtBrwCampoOutros"),
              Field(u"Cidade", u"Descricao") + u", " + dialect.concatenated);
    EXPECT_EQ(PageText(u"txtBrwLeftJoin"), From());
    EXPECT_EQ(PageText(u"txtBrwWhere"), Searches(u" and "));
    EXPECT_EQ(Columns(), (Rows{u"Codigo|Codigo||1440|0", u"Nome|Nome do cliente||3000|1",
                               u"Descricao|Descricao||1440|1", u"CepFmt|CepFmt||1440|1"}));
    EXPECT_EQ(ReturnFields(), (Rows{u"Descricao", u"CepFmt"}));
    EXPECT_TRUE(site.changed);
    EXPECT_EQ(State().frmMontaSql, nullptr);
  }

  Dialect dialect = kAccess;
};

TEST_F(WizardSession, TwoTablesBecomeALookup) {
  Speak(kAccess);
  RunAll();
  ExpectOnPage();
}

TEST_F(WizardSession, TheSameInTheDialectOfSqlServer) {
  Speak(kSqlServer);
  RunAll();
  ExpectOnPage();
}

TEST_F(WizardSession, TheSameWithNamesInQuotes) {
  Speak(kUnfoldedPostgres);
  RunAll();
  ExpectOnPage();
}

TEST_F(WizardSession, TheSameByKeyboardAlone) {
  Speak(kAccess);
  hands = Hands::Keyboard;
  RunAll();
  ExpectOnPage();
}

TEST_F(WizardSession, ASecondRunStartsEmpty) {
  Speak(kAccess);
  RunAll();
  for (const StringView box : {u"txtBrowseTable", u"txtBrwCampo"})
    surface->Find<host::DialogTextBox>(box).Box().Text(u"");
  surface->FocusOn(u"txtBrowseTable");
  surface->Type(u"x");
  surface->Press(memory::Key::Backspace);
  ASSERT_TRUE(surface->Find<host::DialogWidget>(u"btnSql").Enabled());
  RunFromPage([&] {
    EXPECT_TRUE(RowsOf(u"lst1TabSel").empty());
    EXPECT_TRUE(RowsOf(u"lst3CmpSel").empty());
    EXPECT_FALSE(IsTabEnabled(Tab::Grid));
    EXPECT_EQ(Parts().strCampos, u"");
  });
  EXPECT_EQ(Columns().size(), 4U) << "a run that was given up copies nothing";
}

TEST_F(WizardSession, ARefusedRetrieveHandsItsTextsOverWithTheFormerColumns) {
  Speak(kAccess);
  RunFromPage([&] {
    Retrieve();
    NameFields();
    GoTo(Tab::Campos);
    Include(u"Cliente", {u"CodCidade"});
    GoTo(Tab::Grid);
    Click(u"btn4Retrieve");
    EXPECT_EQ(app.TakeBoxes().size(), 1U);
    Click(u"btnConfirma");
  });
  ExpectNoBox();
  EXPECT_EQ(PageText(u"txtBrwCampo"), u"Codigo");
  EXPECT_EQ(PageText(u"txtBrwCampoOutros"),
            u"Cidade.Descricao, " + String(kAccess.concatenated) + u", Cliente.CodCidade");
  EXPECT_EQ(PageText(u"txtBrwLeftJoin"), From());
  EXPECT_EQ(Columns().size(), 4U);
}

TEST_F(WizardSession, AliasesAcceptedAfterTheKeyWasTakenQualifyIt) {
  Speak(kAccess);
  RunFromPage([&] {
    Retrieve();
    NameFields();
    GoTo(Tab::Tabelas);
    Click(u"chkAceitaApelidos");
    Click(u"btnConfirma");
  });
  ExpectNoBox();
  EXPECT_EQ(PageText(u"txtBrwCampo"), u"Cliente.Codigo");
  EXPECT_EQ(PageText(u"txtBrwCampoIrmao"), u"Cliente.Nome");
  EXPECT_EQ(PageText(u"txtBrwCampoOutros"), u"Cidade.Descricao, " + String(kAccess.concatenated));
}

TEST_F(WizardSession, TheColumnsOfADefinitionReplaceThoseThatWereRetrieved) {
  Speak(kAccess);
  RunFromPage([&] { Retrieve(); });
  Definition().cgrColGrid().Add(u"uf", u"Estado", u"", 600, true);
  Definition().cgrColGrid().Add(u"nome", u"Nome", u">", 900, true);
  surface->ClickTab(u"tabPropriedade", 0);
  surface->ClickTab(u"tabPropriedade", 1);
  WillWork([&] {
    EXPECT_EQ(window->Find<memory::DataGrid>(u"grdWizard").Captions(), (Rows{u"Estado", u"Nome"}));
    ChooseColumn(1);
    EXPECT_EQ(Text(u"txt4GrdWidth"), u"900");
    Type(u"txt4GrdCaption", u"Sigla");
    GoTo(Tab::Retorno);
    EXPECT_EQ(RowsOf(u"lst7Cmp"), (Rows{u"uf", u"nome"}));
  });
  surface->Click(u"btnGrid");
  EXPECT_EQ(Columns(), (Rows{u"uf|Estado||600|1", u"nome|Nome|>|900|1"})) << "given up";
  RunFromPage([&] {
    EXPECT_EQ(Front(), Tab::Tabelas);
    EXPECT_FALSE(IsTabEnabled(Tab::Ordem)) << "nothing is retrieved any more";
    GoTo(Tab::Grid);
    Click(u"btn4Retrieve");
    EXPECT_EQ(Parts().cgrColGrid.Count(), 4);
  });
  ExpectNoBox();
}

// --- Names of today: "_", "id" in every table, a view, a table joined to itself

class WizardSessionOfToday : public SessionOfToday {
 protected:
  WizardSessionOfToday() {
    database->relations = {{u"public", u"pedido"},
                           {u"public", u"pedido_item"},
                           {u"public", u"pessoa"},
                           {u"public", u"saldo_pedido", u"VIEW"}};
    database->fields = {{u"pedido", {u"id", u"pessoa_id"}},
                        {u"pedido_item", {u"id", u"pedido_id", u"descricao", u"preco", u"Obs"}},
                        {u"pessoa", {u"id", u"nome", u"chefe_id"}},
                        {u"saldo_pedido", {u"pedido_id", u"total"}}};
    database->Memory().Answer(u"Select unnest(current_schemas(true))",
                              ScriptedDatabase::Columns({u"unnest"}, {{u"public"}}));
    database->answer = [this](const String& statement) { return Reply(statement); };
  }
  std::optional<memory::Rows> Reply(const String& statement) const {
    if (statement.starts_with(u"Select a.attname")) {
      const bool isKey =
          statement.find(u"E'pedido_item'::regclass And k.confrelid = E'pedido'") != String::npos;
      return ScriptedDatabase::Columns(
          {u"attname", u"attname"},
          isKey ? std::vector<memory::Row>{{u"pedido_id", u"id"}} : std::vector<memory::Row>{});
    }
    if (statement !=
        u"Select " + String(kSelected) + u" From " + String(kFrom) + u" Where 1 = Null")
      return std::nullopt;
    return ScriptedDatabase::Columns({u"id", u"descricao", u"Obs", u"nome", u"total", u"rotulo"});
  }
};

TEST_F(WizardSessionOfToday, WithAliasesAcceptedTheyBecomeALookup) {
  RunAll();
  ExpectOnPage();
}

TEST_F(WizardSessionOfToday, TheSameByKeyboardAlone) {
  hands = Hands::Keyboard;
  RunAll();
  ExpectOnPage();
}

// The sibling is of another table, whose fields are not cut without aliases.
TEST_F(WizardSessionOfToday, AliasesRefusedAfterTheKeyWasTakenLeaveBareNames) {
  RunFromPage([&] {
    PickTables();
    LinkTables();
    PickFields();
    FinishTabs();
    GoTo(Tab::Tabelas);
    Click(u"chkAceitaApelidos");
    Click(u"btnConfirma");
  });
  ExpectNoBox();
  EXPECT_EQ(PageText(u"txtBrwCampo"), u"id");
  EXPECT_EQ(PageText(u"txtBrwCampoIrmao"), u"nome");
  EXPECT_EQ(PageText(u"txtBrwCampoOutros"),
            u"pedido_item.descricao, pedido_item.\"Obs\", pessoa.nome, saldo_pedido.total, "
            u"Str(pedido_item.preco) || ' - ' || chefe.nome as rotulo");
  EXPECT_EQ(PageText(u"txtBrwLeftJoin"), kFrom);
}

TEST_F(WizardSessionOfToday, WithoutAliasesSuchNamesAreLeftOut) {
  RunFromPage([&] {
    Choose(u"cmbSistema", u"Vendas");
    Click(u"btnConectar");
    EXPECT_EQ(RowsOf(u"lst1TabTodas"), (Rows{u"pedido", u"pedido_item", u"pessoa"}));
    app.WillEnter(u"chefe");
    Pick({u"pedido_item", u"pessoa", u"pessoa", u"pedido"});
    EXPECT_EQ(RowsOf(u"lst1TabSel"), (Rows{u"pessoa", u"chefe", u"pedido"}));
    Check(u"lst1TabSel", u"pessoa");
    GoTo(Tab::Links);
    Link(u"chefe", u"id", u"pessoa", u"chefe_id");
    ExpectAlert(u"Não é Possivel Fazer Link Entre a Mesma Tabela");
    Link(u"pedido", u"pessoa_id", u"pessoa", u"id");
    EXPECT_EQ(RowsOf(u"lst2Links"), (Rows{u"pedido.pessoa_id=pessoa.id"}));
    GoTo(Tab::Tabelas);
    Select(u"lst1TabSel", u"chefe");
    Click(u"btn1Exc");
    ExpectUnhandled(errors::DuplicateKey);
    EXPECT_EQ(RowsOf(u"lst1TabSel"), (Rows{u"pessoa", u"chefe", u"pedido"}));
    GoTo(Tab::Campos);
    Include(u"pedido", {u"id"});
    GoTo(Tab::Grid);
    Click(u"btn4Retrieve");
    EXPECT_EQ(Parts().strTabelas,
              u"(pessoa Left Join chefe on pedido.pessoa_id=pessoa.id) Left Join pedido on ()");
    EXPECT_EQ(app.TakeBoxes().size(), 1U) << "which the database refuses";
  });
  EXPECT_EQ(PageText(u"txtBrowseTable"), u"");
}

}  // namespace
}  // namespace tessaria::test
