// A failed lookup is reported, and is distinguished from an empty table and from a cancel.
#include "tests/browse/run_fixture.h"

namespace tessaria::test {
namespace {

using memory::MessageBoxRecord;
using testing::ElementsAre;
using testing::IsEmpty;

class LookupFailure : public RunTest {
 protected:
  /// A search is refused in the list of a field whose value is 15; then the list is closed.
  void CancelBehindARefusal(const std::function<void()>& meanwhile) {
    AddSearch(1, u"Nome");
    RunArguments a;
    a.Value = Variant(Long{15});
    const auto search = [&](memory::Dialog& shown) {
      desktop->WillShow(u"frmTsPesquisa", [&](memory::Dialog& prompt) {
        prompt.Type(u"x");
        meanwhile();
        prompt.Click(u"btnOk");
      });
      connection->FailNext(HostError(errors::ProviderError, u"recusado"));
      shown.ClickMenu(u"barBrowse", 1);
      Leave(shown);
    };
    EXPECT_EQ(Run(a, search), u"15");
    EXPECT_EQ(end, ListEnd::NoChoice);
    EXPECT_FALSE(app.Boxes().empty());
  }
};

TEST_F(LookupFailure, AnEmptyTableShowsItsMessageAndNoList) {
  const StringView standard = u"Não Existem Dados na Tabela Pesquisada, Favor Cadastrar";
  const struct {
    StringView Own;
    StringView Shown;
  } cases[] = {
      {u"", standard}, {u"   ", standard}, {u"Cadastre as cidades", u"Cadastre as cidades"}};
  rows.Cells.clear();
  for (const auto& c : cases) {
    RunArguments a;
    a.Value = Variant(Long{15});
    a.MsgBrowse = c.Own;
    EXPECT_EQ(RunUnseen(a), u"");
    EXPECT_EQ(end, ListEnd::Answered);
    EXPECT_THAT(app.TakeBoxes(),
                ElementsAre(MessageBoxRecord{kOwner, String(c.Shown), host::box::Ok, u"Alerta!"}));
  }
  EXPECT_THAT(desktop->Shown(), IsEmpty());
  EXPECT_EQ(box.Tag, u"");
}

TEST_F(LookupFailure, ARefusedStatementIsShownWithoutOwnerBecauseTheFormHasNoneYet) {
  connection->FailNext(HostError(errors::ProviderError, u"relação não existe"));
  RunArguments a;
  EXPECT_EQ(RunUnseen(a), u"");
  EXPECT_EQ(end, ListEnd::Failed);
  const String statement =
      u"SELECT\r\n      codigo,\r\n       nome,\r\n       cidade \r\nFROM\r\n      clientes Where "
      u"ativo = 1 And codigo Is Not Null  Order by 1";
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(MessageBoxRecord{0, u"relação não existe\r\r" + statement,
                                           host::box::YesNo + host::box::Stop,
                                           u"Copiar Para Área de Transferência ?"}));
  EXPECT_EQ(desktop->Clipboard(), std::nullopt);
  EXPECT_THAT(desktop->Shown(), IsEmpty());

  connection->FailNext(HostError(errors::ProviderError, u"relação não existe"));
  app.WillAnswer(host::answer::Yes);
  EXPECT_EQ(RunUnseen(a), u"");
  EXPECT_EQ(desktop->Clipboard(), statement);
}

TEST_F(LookupFailure, AClosedConnectionIsReportedTwice) {
  connection->Close();
  RunArguments a;
  EXPECT_EQ(RunUnseen(a), u"");
  EXPECT_EQ(end, ListEnd::Failed);
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(MessageBoxRecord{0, u"Conexão ao banco foi encerrada. verifique",
                                           host::box::Stop, u"Alerta!"},
                          ErrorBox(HostError(errors::ObjectNotSet), u"VerBrowse")));
}

TEST_F(LookupFailure, AMissingConnectionIsARefusedStatement) {
  State().dbConexao = nullptr;
  RunArguments a;
  EXPECT_EQ(RunUnseen(a), u"");
  EXPECT_EQ(end, ListEnd::Failed);
  const auto boxes = app.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].Title, u"Copiar Para Área de Transferência ?");
}

TEST_F(LookupFailure, AServerLostWhileTheListIsOpenLosesTheChoiceAndIsReported) {
  RunArguments a;
  a.Value = Variant(Long{15});
  EXPECT_EQ(Run(a,
                [&](memory::Dialog& shown) {
                  connection->Close();
                  Confirm(shown);
                }),
            u"");
  EXPECT_EQ(end, ListEnd::Failed);
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(HostError(errors::ObjectClosed), u"VerBrowse")));
}

TEST_F(LookupFailure, ACancelAfterARefusedSearchReturnsTheOldValue) {
  CancelBehindARefusal([] {});
}

TEST_F(LookupFailure, ACancelAfterALostServerReturnsTheOldValue) {
  CancelBehindARefusal([&] { connection->Close(); });
}

TEST_F(LookupFailure, TheFormMayCloseWhileTheListIsOpen) {
  auto field = form->Add<memory::TsText>(u"txtCliente");
  form->Show();
  RunArguments a;
  EXPECT_EQ(Run(a,
                [&](memory::Dialog& shown) {
                  form->Close();
                  form = memory::Form::Create(u"frmOutro");
                  field = nullptr;
                  shown.SelectRow(u"grdBrowse", 2);
                  Confirm(shown);
                }),
            u"15");
}

TEST_F(LookupFailure, AThreadWithoutADesktopIsReported) {
  auto* const kept = std::exchange(State().desktop, nullptr);
  RunArguments a;
  EXPECT_EQ(RunUnseen(a), u"");
  State().desktop = kept;
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(HostError(errors::ObjectNotSet), u"VerBrowse")));
}

}  // namespace
}  // namespace tessaria::test
