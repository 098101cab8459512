// What the wizard makes, on a real server.
#include "lookup/dialect.h"
#include "tests/wizard/server_connection.h"
#include "tests/wizard/session_of_today.h"
#include "wizard/format_sql.h"

namespace tessaria::test {
namespace {

/// A server with the tables of such a session. It has no Str of its own.
class SessionOnAServer : public SessionOfToday {
 protected:
  void SetUp() override {
    const std::string missing = PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    server = EmptyServer();
    for (const auto* statement :
         {u"create table pessoa (id int primary key, nome text, chefe_id int references pessoa)",
          u"create table pedido (id int primary key, pessoa_id int references pessoa)",
          u"create table pedido_item (id int primary key, pedido_id int references pedido,"
          u" descricao text, preco numeric(9, 2), \"Obs\" text)",
          u"create view saldo_pedido as select pedido_id, sum(preco) as total from pedido_item"
          u" group by pedido_id",
          u"insert into pessoa values (1, 'Ana', null), (2, 'Rui', 1)",
          u"insert into pedido values (10, 2)",
          u"insert into pedido_item values (100, 10, 'Caneta', 2.5, null)"})
      server->Execute(statement);
    app.OnNewConnection = [] { return std::make_shared<ServerConnection>(); };
  }
  /// The first row of the lookup that the page describes.
  std::vector<String> FirstRow() {
    const auto rows = server->Execute(
        u"Select " + PageText(u"txtBrwCampo") + u", " + PageText(u"txtBrwCampoIrmao") + u", " +
        PageText(u"txtBrwCampoOutros") + u" From " + PageText(u"txtBrwLeftJoin") + u" Where " +
        Replace(PageText(u"txtBrwWhere"), u"@desCliente@", u"Ana"));
    std::vector<String> cells;
    if (rows->Eof()) return cells;
    for (Long i = 0; i < rows->Fields().Count(); ++i) {
      const Variant value = rows->Fields().Item(i)->Value();
      cells.push_back(value.IsNull() ? u"-" : CStr(value));
    }
    return cells;
  }

  host::ConnectionPtr server;
};

TEST_F(SessionOnAServer, TheLookupRuns) {
  AddWizardFunctions();
  RunAll();
  ExpectOnPage();
  EXPECT_EQ(FirstRow(), (Rows{u"100", u"Rui", u"Caneta", u"-", u"2,5", u"2.50 - Ana"}));
}

TEST_F(SessionOnAServer, WithoutStrTheStatementIsRefusedAndOffered) {
  RunFromPage([&] {
    PickTables();
    LinkTables();
    PickFields();
    GoTo(Tab::Grid);
    app.WillAnswer(host::answer::Yes);
    Click(u"btn4Retrieve");
    const auto boxes = app.TakeBoxes();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].Title, u"Copiar Para Área de Transferência ?");
    EXPECT_EQ(desktop->Clipboard(), boxes[0].Text);
    EXPECT_FALSE(IsTabEnabled(Tab::Ordem));
    GoTo(Tab::Campos);
    Select(u"lst3CmpSel", List(u"lst3CmpSel").Item(6).Text());
    Click(u"btn3CmpSelExclui");
    GoTo(Tab::Grid);
    Click(u"btn4Retrieve");
    ExpectNoBox();
    EXPECT_TRUE(IsTabEnabled(Tab::Ordem)) << "the connection is still of use";
  });
}

TEST_F(SessionOnAServer, ATableThatMayNotBeReadIsAnErrorAndTheWizardGoesOn) {
  for (const auto* statement :
       {u"drop role if exists vendedor", u"create role vendedor",
        u"grant usage on schema public to vendedor", u"grant select on pessoa to vendedor"})
    server->Execute(statement);
  RunFromPage([&] {
    Choose(u"cmbSistema", u"Vendas");
    Click(u"btnConectar");
    Parts().cnWizard->Execute(u"set role vendedor");
    Pick({u"pedido", u"pessoa"});
    Check(u"lst1TabSel", u"pessoa");
    GoTo(Tab::Campos);
    Choose(u"cmb3Tab", u"pedido");
    EXPECT_EQ(window->UnhandledErrors().size(), 1U);
    app.TakeBoxes();
    EXPECT_TRUE(RowsOf(u"lst3Cmp").empty());
    Choose(u"cmb3Tab", u"pessoa");
    EXPECT_EQ(RowsOf(u"lst3Cmp"), (Rows{u"id", u"nome", u"chefe_id"}));
    ExpectNoBox();
  });
  for (const auto* statement : {u"drop owned by vendedor", u"drop role vendedor"})
    server->Execute(statement);
}

TEST_F(SessionOnAServer, MaskedTextsShowTheirLiterals) {
  struct Value {
    const char16_t *mask, *stored, *shown;
  };
  for (const Value& value : {Value{u"#####-###", u"'30140071'::text", u"30140-071"},
                             Value{u"(##) ####-####", u"'3132223333'::text", u"(31) 3222-3333"},
                             Value{u"###.###.###-##", u"'12345678909'::text", u"123.456.789-09"},
                             Value{u"##''##", u"'1234'::text", u"12'34"},
                             Value{u"##", u"'31'::text", u"31"}, Value{u"", u"'31'::text", u""}}) {
    const auto rows =
        server->Execute(u"Select " + wizard::FormatSql(value.stored, value.mask, u"PostgreSQL"));
    EXPECT_EQ(CStr(rows->Fields().Item(Long{0})->Value()), value.shown);
  }
}

}  // namespace
}  // namespace tessaria::test
