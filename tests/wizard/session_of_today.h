// A session over names of today: "_", "id" in every table, a view, and a table joined to itself.
#pragma once

#include "tests/support/printers.h"
#include "tests/wizard/session_fixture.h"

namespace tessaria::test {

/// Works with aliases accepted, on the tables pedido, pedido_item and pessoa and the view
/// saldo_pedido. What the database has is the test's.
class SessionOfToday : public SessionTest {
 protected:
  using Tab = wizard::Tab;

  static constexpr StringView kSelected =
      u"pedido_item.id, pedido_item.descricao, pedido_item.\"Obs\", pessoa.nome, "
      u"saldo_pedido.total, Str(pedido_item.preco) || ' - ' || chefe.nome as rotulo";
  static constexpr StringView kFrom =
      u"(((pedido_item Left Join pedido on pedido.id=pedido_item.pedido_id) Left Join pessoa on "
      u"(pessoa.id=pedido.pessoa_id)) Left Join pessoa as chefe on (chefe.id=pessoa.chefe_id)) "
      u"Left Join saldo_pedido on (saldo_pedido.pedido_id=pedido.id)";

  /// An alias of pessoa, taken back once.
  void PickTables() {
    Click(u"chkAceitaApelidos");
    Choose(u"cmbSistema", u"Vendas");
    Click(u"btnConectar");
    for (int i = 0; i < 2; ++i) app.WillEnter(u"chefe");
    Pick({u"pedido_item", u"pedido", u"pessoa", u"pessoa"});
    EXPECT_EQ(app.InputBoxes().back().Offered, u"pessoa_1");
    Select(u"lst1TabSel", u"chefe");
    Click(u"btn1Exc");
    EXPECT_EQ(RowsOf(u"lst1TabSel"), (Rows{u"pedido_item", u"pedido", u"pessoa"}));
    Pick({u"pessoa", u"saldo_pedido"});
    Check(u"lst1TabSel", u"pedido_item");
  }
  void LinkTables() {
    GoTo(Tab::Links);
    ChooseLink(u"pedido_item", u"pedido");
    EXPECT_EQ(Selected(u"lst2CmpPai"), u"pedido_id") << "the foreign key is offered";
    Click(u"btn2LnkAdiciona");
    Link(u"pessoa", u"id", u"pedido", u"pessoa_id");
    Link(u"chefe", u"id", u"pessoa", u"chefe_id");
    Link(u"saldo_pedido", u"pedido_id", u"pedido", u"id");
  }
  void PickFields() {
    GoTo(Tab::Campos);
    Include(u"pedido_item", {u"id", u"descricao", u"\"Obs\""});
    Include(u"pessoa", {u"nome"});
    Include(u"saldo_pedido", {u"total"});
    AddPiece(u"pedido_item", u"preco");
    Check(u"lst3Concatena", u"pedido_item.preco");
    app.WillEnter(u"' - '");
    Click(u"btn3ConcIncluir");
    AddPiece(u"chefe", u"nome");
    Type(u"txt3ConcNome", u"rotulo");
    Click(u"btn3CriaConcatena");
  }
  void FinishTabs() {
    GoTo(Tab::Grid);
    Click(u"btn4Retrieve");
    Type(u"txt4Caption", u"Itens");
    GoTo(Tab::Ordem);
    OrderBy(u"nome");
    GoTo(Tab::Where);
    Search(u"chefe", u"nome", {u"=", u"desCliente", u"String"});
    GoTo(Tab::Retorno);
    TakeField(u"id", u"btn7CmpChaveInc");
    TakeField(u"nome", u"btn7CmpIrmaoInc");
    TakeField(u"Obs", u"btn7CmpRetInc");
    TakeField(u"rotulo", u"btn7CmpRetInc");
  }
  void RunAll() {
    RunFromPage([&] {
      PickTables();
      LinkTables();
      PickFields();
      FinishTabs();
      Click(u"btnConfirma");
    });
  }
  void ExpectOnPage() {
    ExpectNoBox();
    EXPECT_EQ(PageText(u"txtBrwTitulo"), u"Itens");
    EXPECT_EQ(PageText(u"txtBrowseTable"), u"pedido_item");
    EXPECT_EQ(PageText(u"txtBrwCampo"), u"pedido_item.id");
    EXPECT_EQ(PageText(u"txtBrwCampoIrmao"), u"pessoa.nome");
    EXPECT_EQ(PageText(u"txtBrwCampoOutros"),
              u"pedido_item.descricao, pedido_item.\"Obs\",  saldo_pedido.total, "
              u"Str(pedido_item.preco) || ' - ' || chefe.nome as rotulo");
    EXPECT_EQ(PageText(u"txtBrwLeftJoin"), kFrom);
    EXPECT_EQ(PageText(u"txtBrwWhere"), u"chefe.nome='@desCliente@'");
    EXPECT_EQ(Columns().size(), 6U);
    EXPECT_EQ(Columns()[2], u"Obs|Obs||1440|1");
    EXPECT_EQ(ReturnFields(), (Rows{u"Obs", u"rotulo"}));
  }
};

}  // namespace tessaria::test
