// Further searches while a list is open: what their statements keep from the opening.
#include "tests/browse/run_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;

class LookupSearch : public RunTest {
 protected:
  LookupSearch() { AddSearch(1, u"Nome"); }

  static constexpr Long kAllRows = 3;

  void Search(memory::Dialog& shown) {
    desktop->WillShow(u"frmTsPesquisa", [](memory::Dialog& prompt) {
      EXPECT_EQ(prompt.Caption(), u"Pesquisa Nome");
      prompt.Type(u"b");
      prompt.Click(u"btnOk");
    });
    shown.ClickMenu(u"barBrowse", 1);
  }
  /// The statements of all rows and of a search for "b", after that of the opening.
  std::vector<String> StatementsBehindTheOpening(RunArguments& a,
                                                 const std::function<void()>& meanwhile = {}) {
    Run(a, [&](memory::Dialog& shown) {
      if (meanwhile) meanwhile();
      shown.ClickMenu(u"barBrowse", kAllRows);
      Search(shown);
      Leave(shown);
    });
    auto statements = connection->TakeStatements();
    if (!statements.empty()) statements.erase(statements.begin());
    return statements;
  }
};

TEST_F(LookupSearch, AllRowsComeBackWithoutTheFilterOfTheOpening) {
  RunArguments a;
  a.GroupBy = u"Group By codigo, nome, cidade";
  Run(a, [](memory::Dialog& shown) {
    shown.ClickMenu(u"barBrowse", kAllRows);
    Leave(shown);
  });
  EXPECT_THAT(connection->TakeStatements(),
              ElementsAre(testing::_,
                          u"Select codigo, nome, cidade From clientes Where ativo = 1 Group By "
                          u"codigo, nome, cidade Order By 1"));
}

TEST_F(LookupSearch, TheKeyComesFromTheRowsOfTheLastSearch) {
  RunArguments a;
  EXPECT_EQ(Run(a,
                [&](memory::Dialog& shown) {
                  rows = {{{u"codigo", host::type::Integer}, {u"nome"}}, {{Long{42}, u"beatriz"}}};
                  Search(shown);
                  Confirm(shown);
                }),
            u"42");
  EXPECT_EQ(connection->Statements().back(),
            u"Select codigo, nome, cidade From clientes Where (clientes.nome ilike 'b%') And ativo "
            u"= 1 Order by nome");
}

TEST_F(LookupSearch, TheJoinStaysInPlaceOfTheTable) {
  RunArguments a;
  a.LeftJoin = u"clientes Left Join cidades on clientes.cid = cidades.cod";
  a.Where = u"";
  EXPECT_THAT(StatementsBehindTheOpening(a),
              ElementsAre(u"Select codigo, nome, cidade From clientes Left Join cidades on "
                          u"clientes.cid = cidades.cod Order By 1",
                          u"Select codigo, nome, cidade From clientes Left Join cidades on "
                          u"clientes.cid = cidades.cod Where (clientes.nome ilike 'b%') Order by "
                          u"nome"));
}

TEST_F(LookupSearch, TheConditionKeepsItsExpansionFromTheOpening) {
  const auto city = form->Add<memory::TsText>(u"txtCidade");
  form->Show();
  (*city)->Value(Variant(u"Assis"));
  RunArguments a;
  a.Where = u"cidade = '@txtCidade@'";
  EXPECT_THAT(StatementsBehindTheOpening(a, [&] { (*city)->Value(Variant(u"Bauru")); }),
              ElementsAre(u"Select codigo, nome, cidade From clientes Where cidade = 'Assis' Order "
                          u"By 1",
                          u"Select codigo, nome, cidade From clientes Where (clientes.nome ilike "
                          u"'b%') And cidade = 'Assis' Order by nome"));
}

TEST_F(LookupSearch, TheTextOfTheBoxCountsForTheOpeningOnly) {
  box.Text(u"Ma");
  rows = NamesFirst();
  RunArguments a;
  a.Tipo = TipoControle::Descricao;
  a.Campo = u"nome";
  a.SiblingField = u"codigo";
  a.OtherFields = u"";
  EXPECT_THAT(StatementsBehindTheOpening(a),
              ElementsAre(u"Select nome, codigo From clientes Where ativo = 1 Order By 1",
                          u"Select nome, codigo From clientes Where (clientes.nome ilike 'b%') And "
                          u"ativo = 1 Order by nome"));
}

TEST_F(LookupSearch, ARefusedSearchIsReportedWithTheOwner) {
  RunArguments a;
  Run(a, [&](memory::Dialog& shown) {
    connection->FailNext(HostError(errors::ProviderError, u"recusado"));
    Search(shown);
    Leave(shown);
  });
  const auto boxes = app.TakeBoxes();
  ASSERT_EQ(boxes.size(), 1u);
  EXPECT_EQ(boxes[0].Owner, kOwner);
  EXPECT_EQ(boxes[0].Title, u"Deseja Copiar para Área de Transferencia ?");
}

// All rows include those without a key.
TEST_F(LookupSearch, ARowWithoutAKeyIsAnError) {
  RunArguments a;
  EXPECT_EQ(Run(a,
                [&](memory::Dialog& shown) {
                  rows.Cells = {{Variant::Null(), u"Ana", u"Assis"}};
                  shown.ClickMenu(u"barBrowse", kAllRows);
                  Confirm(shown);
                }),
            u"");
  EXPECT_EQ(end, ListEnd::Failed);
  EXPECT_THAT(app.TakeBoxes(),
              ElementsAre(ErrorBox(HostError(errors::InvalidUseOfNull), u"VerBrowse")));
}

}  // namespace
}  // namespace tessaria::test
