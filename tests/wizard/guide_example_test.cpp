// The example of the guide to the SQL wizard: what the page then has, and what surprises in it.
#include "tessaria/error.h"
#include "tests/support/printers.h"
#include "tests/wizard/server_connection.h"
#include "tests/wizard/session_fixture.h"

namespace tessaria::test {
namespace {

using wizard::Tab;

/// A server with cities and states. The form's second field holds the state.
class GuideExample : public SessionTest {
 protected:
  void SetUp() override {
    const std::string missing = PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    server = EmptyServer();
    for (const auto* statement :
         {u"create table estados (uf char(2) primary key, nome varchar(30), capital varchar(40))",
          u"create table cidades (codigo varchar(5) primary key, nome varchar(60),"
          u" uf char(2) references estados, ddd varchar(2), cep varchar(8))",
          u"insert into estados values ('MG', 'Minas Gerais', 'Belo Horizonte'),"
          u" ('SP', 'São Paulo', 'São Paulo')",
          u"insert into cidades values ('00001', 'Belo Horizonte', 'MG', '31', '30000000'),"
          u" ('00002', 'Assis', 'SP', '18', '19800000')"})
      server->Execute(statement);
    app.OnNewConnection = [] { return std::make_shared<ServerConnection>(); };
  }
  void PickAndLink() {
    Choose(u"cmbSistema", u"Vendas");
    Click(u"btnConectar");
    Pick({u"cidades", u"estados"});
    Check(u"lst1TabSel", u"cidades");
    GoTo(Tab::Links);
    Link(u"estados", u"uf", u"cidades", u"uf");
  }
  void Concatenate(StringView table, StringView field, StringView mask, StringView name) {
    AddPiece(table, field);
    if (!mask.empty()) Type(u"txt3ConcMascara", mask);
    Type(u"txt3ConcNome", name);
    Click(u"btn3CriaConcatena");
  }
  void PickFields() {
    GoTo(Tab::Campos);
    Include(u"cidades", {u"codigo", u"nome", u"ddd"});
    Concatenate(u"estados", u"nome", u"", u"estado");
    Concatenate(u"cidades", u"cep", u"#####-###", u"cepfmt");
  }
  void SetColumns() {
    GoTo(Tab::Grid);
    Type(u"txt4Caption", u"Cidades");
    Click(u"btn4Retrieve");
    Type(u"txt4GrdCaption", u"Código");
    ChooseColumn(2);
    Click(u"chk4GrdVisible");
    ChooseColumn(0);
  }
  void Finish() {
    GoTo(Tab::Where);
    Search(u"cidades", u"uf", {u"=", u"desCliente", u"String"});
    GoTo(Tab::Retorno);
    TakeField(u"codigo", u"btn7CmpChaveInc");
    TakeField(u"nome", u"btn7CmpIrmaoInc");
    TakeField(u"ddd", u"btn7CmpRetInc");
    GoTo(Tab::SqlPronta);
    Click(u"btnConfirma");
  }
  void RunAll() {
    RunFromPage([&] {
      PickAndLink();
      PickFields();
      SetColumns();
      Finish();
    });
    ExpectNoBox();
  }
  /// Types into a box of the page.
  void Edit(StringView box, StringView text) {
    surface->Find<host::DialogTextBox>(box).Box().Text(String(text));
  }
  /// The first city of a state, as the list asks for it.
  host::RecordsetPtr ListOf(const String& state) {
    return server->Execute(u"Select " + PageText(u"txtBrwCampo") + u", " +
                           PageText(u"txtBrwCampoIrmao") + u", " + PageText(u"txtBrwCampoOutros") +
                           u" From " + PageText(u"txtBrwLeftJoin") + u" Where " +
                           Replace(PageText(u"txtBrwWhere"), u"@desCliente@", state));
  }

  host::ConnectionPtr server;
};

TEST_F(GuideExample, GivesThePageItsTexts) {
  RunAll();
  EXPECT_EQ(PageText(u"txtBrwTitulo"), u"Cidades");
  EXPECT_EQ(PageText(u"txtBrowseTable"), u"cidades");
  EXPECT_EQ(PageText(u"txtBrwCampo"), u"codigo");
  EXPECT_EQ(PageText(u"txtBrwCampoIrmao"), u"nome");
  EXPECT_EQ(PageText(u"txtBrwCampoOutros"),
            u"cidades.ddd, estados.nome as estado, Substring(cidades.cep,  1,  5) || '-' || "
            u"Substring(cidades.cep,  6,  3) || '' as cepfmt");
  EXPECT_EQ(PageText(u"txtBrwLeftJoin"), u"cidades Left Join estados on (estados.uf=cidades.uf)");
  EXPECT_EQ(PageText(u"txtBrwWhere"), u"cidades.uf='@desCliente@'");
  EXPECT_EQ(Columns()[0], u"codigo|Código||1440|1");
  EXPECT_EQ(Columns()[2], u"ddd|ddd||1440|0");
  EXPECT_EQ(ReturnFields(), Rows{u"ddd"});
}

TEST_F(GuideExample, RunsOnceTheNameOfBothTablesIsQualifiedOnThePage) {
  RunAll();
  EXPECT_THROW(ListOf(u"SP"), HostError) << "both tables have a nome";
  Edit(u"txtBrwCampoIrmao", u"cidades.nome");
  const auto rows = ListOf(u"SP");
  Rows cells;
  for (Long i = 0; i < rows->Fields().Count(); ++i)
    cells.push_back(CStr(rows->Fields().Item(i)->Value()));
  EXPECT_EQ(cells, (Rows{u"00002", u"Assis", u"18", u"São Paulo", u"19800-000"}));
}

TEST_F(GuideExample, GridKeepsTheQualifiedNameAndEmptiesTheOtherFields) {
  RunAll();
  Edit(u"txtBrwCampoIrmao", u"cidades.nome");
  WillWork([&] {
    GoTo(Tab::Retorno);
    Click(u"btnConfirma");
  });
  surface->ClickTab(u"tabPropriedade", 0);
  surface->ClickTab(u"tabPropriedade", 1);
  surface->Click(u"btnGrid");
  EXPECT_EQ(PageText(u"txtBrwCampoIrmao"), u"cidades.nome");
  EXPECT_EQ(PageText(u"txtBrwCampoOutros"), u"");
}

}  // namespace
}  // namespace tessaria::test
