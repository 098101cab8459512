// Without aliases, each statement that the wizard makes runs on a real server, or is refused for a
// reason that its guide tells.
#include "tessaria/error.h"
#include "tests/support/printers.h"
#include "tests/wizard/running_lookup.h"
#include "tests/wizard/session_fixture.h"

namespace tessaria::test {
namespace {

using wizard::Tab;

/// Keeps what the server says to the statements that it refuses.
class WatchedServer final : public PassingConnection {
 public:
  explicit WatchedServer(std::vector<String>& refusals)
      : PassingConnection(std::make_shared<ServerConnection>()), refusals_(refusals) {}

  host::RecordsetPtr Execute(const String& statement) override {
    try {
      return real_->Execute(statement);
    } catch (const HostError& refusal) {
      refusals_.push_back(refusal.Description());
      throw;
    }
  }

 private:
  std::vector<String>& refusals_;
};

/// A server with customers, their cities, states and countries, and without cDate and Str.
class StatementsOnAServer : public SessionTest {
 protected:
  void SetUp() override {
    const std::string missing = PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    server = EmptyServer();
    for (const auto* statement :
         {u"create table pais (sigla char(2) primary key, idioma text)",
          u"create table estado (uf char(2) primary key, capital text, pais char(2))",
          u"create table cidade (numero int primary key, descricao text, uf char(2))",
          u"create table cliente (codigo int primary key, nome text, cidade int, cep text)",
          u"alter table cliente add limite numeric(9, 2), add desde date",
          u"insert into pais values ('BR', 'Português')",
          u"insert into estado values ('MG', 'Belo Horizonte', 'BR')",
          u"insert into cidade values (31, 'Contagem', 'MG')",
          u"insert into cliente values (1, 'Ana', 31, '32000100', 150.50, '2017-12-25')"})
      server->Execute(statement);
    app.OnNewConnection = [this] { return std::make_shared<WatchedServer>(refusals); };
  }

  // --- Work in the wizard
  /// The tab of the fields, after these tables were picked; the first is the main one.
  void PickTables(const Rows& tables) {
    Choose(u"cmbSistema", u"Vendas");
    Click(u"btnConectar");
    Pick(tables);
    Check(u"lst1TabSel", tables.front());
    GoTo(Tab::Campos);
  }
  /// A column of these pieces, all of them marked as numbers if that is wanted.
  void Concatenate(const Rows& pieces, StringView mask, bool marked) {
    for (const String& piece : pieces) {
      if (piece.starts_with(u'\'')) {
        app.WillEnter(piece);
        Click(u"btn3ConcIncluir");
      } else {
        AddPiece(u"cliente", piece);
        if (marked) Check(u"lst3Concatena", piece);
      }
    }
    if (!mask.empty()) Type(u"txt3ConcMascara", mask);
    Type(u"txt3ConcNome", u"junto");
    Click(u"btn3CriaConcatena");
  }
  void Retrieve() {
    GoTo(Tab::Grid);
    Click(u"btn4Retrieve");
  }
  /// The one refusal since the last call; "" for none.
  String TakeRefusal() {
    EXPECT_LE(refusals.size(), 1U);
    const String text = refusals.empty() ? String() : refusals.front();
    refusals.clear();
    return text;
  }
  void ExpectRefused(const String& refusal, StringView reason) {
    if (reason.empty()) {
      EXPECT_EQ(refusal, u"");
    } else {
      EXPECT_NE(refusal.find(reason), String::npos) << ToUtf8(refusal);
    }
  }

  // --- The page's lookup
  /// The first row that the list shows; what the server says when it refuses the list.
  Rows ListedFor(const String& condition = {}) {
    page->PropertyPage_ApplyChanges();
    RunningLookup lookup(*code, *desktop);
    lookup.Run(condition);
    Rows texts = lookup.first;
    EXPECT_EQ(lookup.Key(), texts.empty() ? String() : texts.front());
    for (const auto& box : app.TakeBoxes()) texts.push_back(box.Text);
    return texts;
  }

  host::ConnectionPtr server;
  std::vector<String> refusals;
};

// --- The tables

/// The parameter is how many tables are joined.
class JoinedOnAServer : public StatementsOnAServer, public testing::WithParamInterface<Long> {
 protected:
  Rows FirstOf(const Rows& all, Long count) { return {all.begin(), all.begin() + count}; }
  void PickChain() {
    const Rows tables{u"cliente", u"cidade", u"estado", u"pais"};
    const Rows fields{u"", u"descricao", u"capital", u"idioma"};
    PickTables(FirstOf(tables, GetParam()));
    if (GetParam() > 1) LinkChain();
    GoTo(Tab::Campos);
    Include(u"cliente", {u"codigo", u"nome"});
    for (std::size_t i = 1; i < static_cast<std::size_t>(GetParam()); ++i)
      Include(tables[i], {fields[i]});
  }
  void LinkChain() {
    GoTo(Tab::Links);
    Link(u"cidade", u"numero", u"cliente", u"cidade");
    if (GetParam() > 2) Link(u"estado", u"uf", u"cidade", u"uf");
    if (GetParam() > 3) Link(u"pais", u"sigla", u"estado", u"pais");
  }
  void SortAndSearch() {
    GoTo(Tab::Ordem);
    OrderBy(u"nome");
    GoTo(Tab::Where);
    Search(u"cliente", u"codigo", {u">=", u"desCliente", u"Numerico"});
  }
  void NameFields() {
    GoTo(Tab::Retorno);
    TakeField(u"codigo", u"btn7CmpChaveInc");
    TakeField(u"nome", u"btn7CmpIrmaoInc");
  }
};

TEST_P(JoinedOnAServer, TheStatementTheShownTextAndTheLookupRun) {
  String shown;
  RunFromPage([&] {
    PickChain();
    Retrieve();
    SortAndSearch();
    NameFields();
    GoTo(Tab::SqlPronta);
    shown = Text(u"txt8Sql");
    Click(u"btnConfirma");
  });
  ExpectNoBox();
  EXPECT_EQ(TakeRefusal(), u"");
  const auto rows = server->Execute(Replace(shown, u"@desCliente@", u"0"));
  ASSERT_FALSE(rows->Eof());
  EXPECT_EQ(rows->Fields().Count(), GetParam() + 1);
  EXPECT_EQ(ListedFor(u"0"),
            FirstOf({u"1", u"Ana", u"Contagem", u"Belo Horizonte", u"Português"}, GetParam() + 1));
  EXPECT_EQ(ListedFor(u"2"), Rows{u"Não Existem Dados na Tabela Pesquisada, Favor Cadastrar"})
      << "the condition counts";
}

INSTANTIATE_TEST_SUITE_P(Tables, JoinedOnAServer, testing::Values(1, 2, 3, 4));

TEST_F(StatementsOnAServer, ALinkThatIsMissingOrOutOfItsPlaceIsRefused) {
  RunFromPage([&] {
    PickTables({u"cliente", u"cidade", u"estado"});
    Include(u"cliente", {u"codigo"});
    Retrieve();
    ExpectRefused(TakeRefusal(), u"syntax error");
    GoTo(Tab::Links);
    Link(u"estado", u"uf", u"cidade", u"uf");
    Link(u"cidade", u"numero", u"cliente", u"cidade");
    Retrieve();
    ExpectRefused(TakeRefusal(), u"\"estado\"");
    EXPECT_EQ(app.TakeBoxes().size(), 2U) << "each offers its statement";
    GoTo(Tab::Links);
    Select(u"lst2Links", u"estado.uf=cidade.uf");
    Click(u"btn2LnkRemove");
    Link(u"estado", u"uf", u"cidade", u"uf");
    Retrieve();
    EXPECT_EQ(TakeRefusal(), u"");
  });
  ExpectNoBox();
}

TEST_F(StatementsOnAServer, AnAliasIsRefusedAsATableThatIsNotThere) {
  RunFromPage([&] {
    app.WillEnter(u"pagador");
    PickTables({u"cliente", u"cliente"});
    Select(u"lst1TabSel", u"cliente");
    GoTo(Tab::Tabelas);
    Click(u"btn1Exc");
    GoTo(Tab::Campos);
    Include(u"pagador", {u"nome"});
    Retrieve();
    ExpectRefused(TakeRefusal(), u"\"pagador\"");
    EXPECT_EQ(app.TakeBoxes().size(), 1U);
  });
}

// --- The pieces of a column

struct Pieces {
  std::vector<String> pieces;
  const char16_t* mask;
  bool marked;
  const char16_t* refused;       ///< what the refusal speaks of; "" when the statement runs
  const char16_t* stillRefused;  ///< the same once the server has Str
};

TEST_F(StatementsOnAServer, PiecesRunUnlessTheServerHasNoStr) {
  const Pieces columns[] = {
      {{u"nome"}, u"", false, u"", u""},
      {{u"nome", u"' / '", u"cep"}, u"", false, u"", u""},
      {{u"codigo", u"' d''água '", u"nome"}, u"", false, u"", u""},
      {{u"cep"}, u"#####-###", false, u"", u""},
      {{u"cep"}, u"(##) ###''###", false, u"", u""},
      {{u"limite", u"codigo"}, u"", true, u"str(numeric)", u""},
      {{u"codigo"}, u"#/#", true, u"str(integer)", u""},
      {{u"codigo", u"limite"}, u"", false, u"integer || numeric", u"integer || numeric"},
      {{u"codigo"}, u"#/#", false, u"substring(integer", u"substring(integer"},
      {{u"nome"}, u"", true, u"str(text)", u"str(text)"},
      {{u"cep"}, u"##'##", false, u"falta fechar um texto", u"falta fechar um texto"}};
  for (const bool hasStr : {false, true}) {
    if (hasStr) AddWizardFunctions();
    for (const Pieces& column : columns) {
      RunFromPage([&] {
        PickTables({u"cliente"});
        Concatenate(column.pieces, column.mask, column.marked);
        Retrieve();
        SCOPED_TRACE(ToUtf8(Parts().strCampos));
        ExpectRefused(TakeRefusal(), hasStr ? column.stillRefused : column.refused);
        app.TakeBoxes();
      });
      State().frmMontaSql = nullptr;
    }
  }
}

// --- The conditions

struct Condition {
  const char16_t *field, *comparison, *type, *value;
  const char16_t* refused;  ///< what the refusal speaks of; "" when the list shows the customer
  const char16_t* stillRefused;
};

TEST_F(StatementsOnAServer, ConditionsRunUnlessTheServerHasNoCDate) {
  const Condition conditions[] = {
      {u"codigo", u"=", u"Numerico", u"1", u"", u""},
      {u"limite", u">=", u"Numerico", u"150,5", u"", u""},
      {u"nome", u"=", u"String", u"Ana", u"", u""},
      {u"nome", u"<>", u"String", u"d'Ávila", u"", u""},
      {u"codigo", u"<=", u"String", u"1", u"", u""},
      {u"desde", u"=", u"Data", u"25/12/2017", u"cdate(", u""},
      {u"nome", u"=", u"Numerico", u"1", u"text = integer", u"text = integer"}};
  for (const bool hasCDate : {false, true}) {
    if (hasCDate) AddWizardFunctions();
    for (const Condition& condition : conditions) {
      SCOPED_TRACE(ToUtf8(condition.field) + " " + ToUtf8(condition.type));
      RunFromPage([&] {
        PickTables({u"cliente"});
        Include(u"cliente", {u"codigo", u"nome"});
        Retrieve();
        GoTo(Tab::Where);
        Search(u"cliente", condition.field, {condition.comparison, u"desCliente", condition.type});
        GoTo(Tab::Retorno);
        TakeField(u"codigo", u"btn7CmpChaveInc");
        TakeField(u"nome", u"btn7CmpIrmaoInc");
        Click(u"btnConfirma");
      });
      EXPECT_EQ(TakeRefusal(), u"");
      const Rows listed = ListedFor(condition.value);
      const String refused = hasCDate ? condition.stillRefused : condition.refused;
      if (refused.empty()) {
        EXPECT_EQ(listed, (Rows{u"1", u"Ana"}));
      } else {
        ASSERT_EQ(listed.size(), 1U);
        ExpectRefused(listed.front(), refused);
      }
      surface->Find<host::DialogButton>(u"btnSql").Enabled(true);
    }
  }
}

TEST_F(StatementsOnAServer, AConcatenatedKeyIsRefused) {
  RunFromPage([&] {
    PickTables({u"cliente"});
    Include(u"cliente", {u"nome"});
    Concatenate({u"nome", u"' '", u"cep"}, u"", false);
    Retrieve();
    GoTo(Tab::Retorno);
    TakeField(u"junto", u"btn7CmpChaveInc");
    Click(u"btnConfirma");
  });
  ExpectNoBox();
  EXPECT_EQ(PageText(u"txtBrwCampoOutros"), u"nome, nome || ' ' || cep as");
  EXPECT_EQ(ListedFor().size(), 1U) << "the box with the refusal";
}

}  // namespace
}  // namespace tessaria::test
