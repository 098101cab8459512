// The statement, laid out.
#include "wizard/statement_tab.h"

#include "tests/support/printers.h"
#include "tests/wizard/wizard_fixture.h"

namespace tessaria::test {
namespace {

using wizard::Tab;

class WizardStatement : public WizardTest {
 protected:
  WizardStatement() { Parts().Grid().Column(0).Caption(u"Codigo"); }
  void Show() {
    frmMontaSql::Instance()->AtualizaAbas();
    GoTo(Tab::SqlPronta);
  }
};

TEST_F(WizardStatement, TheStatementIsTheOneThatWasExecuted) {
  const auto connection = memory::Connection::CreateOpen();
  const String statement = u"Select Codigo, Nome From Cliente Where 1 = Null";
  connection->Answer(statement, ScriptedDatabase::Columns({u"Codigo", u"Nome"}));
  Parts().dcWizard = connection->Execute(statement);
  Parts().strCampos = u"Outro";
  Run([&] {
    Show();
    EXPECT_EQ(Text(u"txt8Sql"),
              u"SELECT\r\n      Codigo,\r\n       Nome \r\nFROM\r\n      Cliente ");
  });
}

TEST_F(WizardStatement, ThePointerWaitsWhileItIsLaidOut) {
  bool isBusy = false;
  Parts().Box(u"txt8Sql").OnChange = [&] { isBusy = desktop->IsBusy(); };
  Parts().dcWizard = nullptr;
  List(u"lst5CmpSel").Add(u"Nome");
  Run([&] {
    Show();
    EXPECT_TRUE(isBusy);
    EXPECT_FALSE(desktop->IsBusy());
  });
}

TEST_F(WizardStatement, SearchesAndOrderComeBehindIt) {
  auto& row = List(u"lst6CmpSel").Add(u"Cliente.Codigo");
  for (const char16_t* part : {u"=", u"txtCodigo", u"Numerico"}) row.AddSubItem(part);
  List(u"lst6CmpSel").Add(u"Cliente.Uf");
  List(u"lst5CmpSel").Add(u"Nome");
  List(u"lst5CmpSel").Add(u"Uf");
  Run([&] {
    Show();
    EXPECT_EQ(Text(u"txt8Sql"),
              u"\r\nWHERE\r\n      Cliente.Codigo=@txtCodigo@\r\nORDER BY\r\n      Nome,\r\n"
              u"      Uf")
        << "columns of a definition have no statement, a moved search has no term";
  });
}

TEST_F(WizardStatement, ItIsLaidOutAtEachEntry) {
  Run([&] {
    Show();
    EXPECT_EQ(Text(u"txt8Sql"), u"");
    GoTo(Tab::Tabelas);
    List(u"lst5CmpSel").Add(u"Nome");
    EXPECT_EQ(Text(u"txt8Sql"), u"");
    GoTo(Tab::SqlPronta);
    EXPECT_EQ(Text(u"txt8Sql"), u"\r\nORDER BY\r\n      Nome");
  });
}

}  // namespace
}  // namespace tessaria::test
