// Names with accents, capitals, blanks and quotes, from the list of tables to a lookup that runs.
#include "tests/support/printers.h"
#include "tests/wizard/running_lookup.h"
#include "tests/wizard/session_fixture.h"

namespace tessaria::test {
namespace {

using wizard::Tab;

/// One table, without aliases.
class OddNames : public SessionTest {
 protected:
  void SetUp() override {
    const std::string missing = PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    server = EmptyServer();
    for (const auto* statement :
         {u"create table \"Peças\" (\"Código\" int primary key, \"nome da \"\"peça\"\"\" text,"
          u" \"user\" text, fabricada date)",
          u"insert into \"Peças\" values (1, 'Porca', 'Ana', '2026-01-31'),"
          u" (2, 'Parafuso', 'Rui', '2026-02-01')"})
      server->Execute(statement);
    app.OnNewConnection = [] { return std::make_shared<ServerConnection>(); };
  }
  void RunAll() {
    RunFromPage([&] {
      Choose(u"cmbSistema", u"Vendas");
      Click(u"btnConectar");
      Pick({u"\"Peças\""});
      GoTo(Tab::Campos);
      Include(u"\"Peças\"", {u"\"Código\"", u"\"nome da \"\"peça\"\"\"", u"\"user\""});
      GoTo(Tab::Grid);
      Click(u"btn4Retrieve");
      GoTo(Tab::Where);
      Search(u"\"Peças\"", u"fabricada", {u"=", u"desCliente", u"Data"});
      GoTo(Tab::Retorno);
      TakeField(u"Código", u"btn7CmpChaveInc");
      TakeField(u"nome da \"peça\"", u"btn7CmpIrmaoInc");
      TakeField(u"user", u"btn7CmpRetInc");
      Click(u"btnConfirma");
    });
    ExpectNoBox();
  }

  host::ConnectionPtr server;
};

TEST_F(OddNames, ReachThePageAsTheServerTakesThem) {
  RunAll();
  EXPECT_EQ(PageText(u"txtBrowseTable"), u"\"Peças\"");
  EXPECT_EQ(PageText(u"txtBrwCampo"), u"\"Código\"");
  EXPECT_EQ(PageText(u"txtBrwCampoIrmao"), u"\"nome da \"\"peça\"\"\"");
  EXPECT_EQ(PageText(u"txtBrwCampoOutros"), u"\"user\"");
  EXPECT_EQ(PageText(u"txtBrwWhere"), u"\"Peças\".fabricada=cDate('@desCliente@')");
  EXPECT_EQ(ReturnFields(), Rows{u"user"}) << "a return field is a field of the rows";
}

TEST_F(OddNames, RunOnceTheServerHasTheFunctionForDates) {
  RunAll();
  page->PropertyPage_ApplyChanges();
  RunningLookup lookup(*code, *desktop);
  lookup.Run(u"01/02/2026");
  EXPECT_EQ(lookup.first, Rows()) << "the server has no cDate of its own";
  EXPECT_EQ(app.TakeBoxes().size(), 1U);
  AddWizardFunctions();
  lookup.Run(u"01/02/2026");
  ExpectNoBox();
  EXPECT_EQ(lookup.headings, (Rows{u"Código", u"nome da \"peça\"", u"user"}));
  EXPECT_EQ(lookup.first, (Rows{u"2", u"Parafuso", u"Rui"}));
  EXPECT_EQ(lookup.Key(), u"2");
  EXPECT_EQ(CStr(lookup.ReturnField(1)), u"Rui");
}

}  // namespace
}  // namespace tessaria::test
