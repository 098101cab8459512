// What the wizard's window is made of: names, captions, tool tips, fixed rows.
#include <set>

#include "tests/support/printers.h"
#include "tests/wizard/wizard_fixture.h"

namespace tessaria::test {
namespace {

using Kind = host::WidgetKind;

const host::WidgetDescription* Find(StringView name) {
  for (const auto& widget : frmMontaSql::Description().Widgets)
    if (widget.Name == name) return &widget;
  return nullptr;
}

std::vector<String> RowsIn(StringView name) {
  const auto rows = Find(name)->Rows;
  return {rows.begin(), rows.end()};
}

/// The tab that a widget stands on, also inside a frame; -1 for none.
Integer TabOf(const host::WidgetDescription& widget) {
  if (widget.Container == u"tabWizard" || widget.Container.empty()) return widget.Page;
  return TabOf(*Find(widget.Container));
}

TEST(WizardWidgets, TheWindowHasItsNameAndCaption) {
  EXPECT_EQ(String(frmMontaSql::Description().Name), u"frmMontaSql");
  EXPECT_EQ(String(frmMontaSql::Description().Caption), u"Tessaria SQL Wizard");
}

TEST(WizardWidgets, ThereAreEightTabs) {
  EXPECT_EQ(RowsIn(u"tabWizard"),
            (std::vector<String>{u"Passo 1: Tabelas", u"2: Links", u"3: Campos", u"4: Grid",
                                 u"5: Ordem", u"6: Where", u"7: Retorno", u"8: Sql Pronta"}));
}

TEST(WizardWidgets, EachTabHasItsOwn) {
  const std::vector<std::vector<const char16_t*>> tabs = {
      {u"frameConectar", u"lblSistema", u"cmbSistema", u"btnConectar", u"frameTabelas",
       u"lblTabTodas", u"lst1TabTodas", u"lblTabSel", u"lst1TabSel", u"btn1Inc", u"btn1IncTodos",
       u"btn1Exc", u"btn1ExcTodos", u"chkAceitaApelidos"},
      {u"frame2Link", u"lbl2LnkPai", u"cmb2TabPai", u"lst2CmpPai", u"lbl2LnkFilho", u"cmb2TabFilho",
       u"lst2CmpFilho", u"btn2LnkAdiciona", u"btn2LnkRemove", u"lst2Links"},
      {u"cmb3Tab", u"lst3Cmp", u"lst3CmpSel", u"btn3Inclui", u"btn3Concatena", u"btn3CriaConcatena",
       u"btn3CmpSelExclui", u"btn3CmpSelSobe", u"btn3CmpSelDesce", u"frame3Concatena",
       u"lbl3ConcNome", u"txt3ConcNome", u"lbl3ConcMascara", u"txt3ConcMascara", u"lst3Concatena",
       u"btn3ConcIncluir", u"btn3ConcExclui", u"btn3ConcSobe", u"btn3ConcDesce"},
      {u"lbl4Caption", u"txt4Caption", u"grdWizard", u"btn4Retrieve", u"frame4Grid",
       u"lbl4GrdCaption", u"txt4GrdCaption", u"lbl4GrdMascara", u"txt4GrdMascara", u"lbl4GrdWidth",
       u"txt4GrdWidth", u"chk4GrdVisible", u"lbl4Coluna", u"cmb4Coluna"},
      {u"lst5CmpTodos", u"lst5CmpSel", u"btn5Inc", u"Btn5Exc", u"btn5IncTodos", u"btn5ExcTodos",
       u"btn5CmpSobe", u"btn5CmpDesce"},
      {u"cmb6Tab", u"lst6Cmp", u"btn6CmpInc", u"frame6Cmp", u"lst6CmpSel", u"cmb6TipoBusca",
       u"cmb6Objeto", u"cmb6TipoDado", u"btn6CmpExc", u"btn6CmpSobe", u"btn6CmpDesce"},
      {u"lbl7CampoChave", u"txt7CampoChave", u"btn7CmpChaveInc", u"lbl7CampoIrmao",
       u"txt7CampoIrmao", u"btn7CmpIrmaoInc", u"lbl7Cmp", u"lst7Cmp", u"frame7CamposRetorno",
       u"lst7CmpRet", u"btn7CmpRetInc", u"btn7CmpRetExc", u"btn7CmpRetSobe", u"btn7CmpRetDesce"},
      {u"txt8Sql", u"lstSel"}};
  std::set<String> named = {u"tabWizard", u"btnVoltar", u"btnConfirma", u"lblEstado",
                            u"lblCampoOutros"};
  for (std::size_t tab = 0; tab < tabs.size(); ++tab) {
    for (const auto* name : tabs[tab]) {
      ASSERT_NE(Find(name), nullptr) << ToUtf8(name);
      EXPECT_EQ(TabOf(*Find(name)), static_cast<Integer>(tab)) << ToUtf8(name);
      named.insert(name);
    }
  }
  for (const auto& widget : frmMontaSql::Description().Widgets)
    EXPECT_TRUE(named.contains(String(widget.Name))) << ToUtf8(widget.Name);
  for (const auto* outside : {u"btnVoltar", u"btnConfirma", u"lblEstado", u"lblCampoOutros"})
    EXPECT_EQ(TabOf(*Find(outside)), -1);
}

TEST(WizardWidgets, CaptionsAreThoseOfTheDesign) {
  const std::pair<const char16_t*, const char16_t*> captions[] = {
      {u"frameConectar", u"ODBC"},
      {u"lblSistema", u"Sistema"},
      {u"btnConectar", u"Conectar"},
      {u"chkAceitaApelidos", u"Aceitar nomes com _ e apelidos"},
      {u"lblTabTodas", u"Disponíveis no Banco de Dados"},
      {u"lblTabSel", u"Tabelas Selecionadas"},
      {u"lbl2LnkPai", u"Link Pai"},
      {u"lbl2LnkFilho", u"Link Filho"},
      {u"btn2LnkAdiciona", u"Adiciona"},
      {u"btn2LnkRemove", u"Remove"},
      {u"btn3Concatena", u"&&"},
      {u"frame3Concatena", u"Concatenados"},
      {u"lbl3ConcNome", u"Nome do Campo"},
      {u"lbl3ConcMascara", u"Mascara"},
      {u"lbl4Caption", u"Caption da Browse"},
      {u"btn4Retrieve", u"Retrieve Fields"},
      {u"lbl4GrdCaption", u"Caption"},
      {u"lbl4GrdMascara", u"Mascara"},
      {u"lbl4GrdWidth", u"Width"},
      {u"chk4GrdVisible", u"Visible"},
      {u"lbl7CampoChave", u"CampoChave"},
      {u"lbl7CampoIrmao", u"CampoIrmao"},
      {u"lbl7Cmp", u"Campos Disponíveis"},
      {u"frame7CamposRetorno", u"CamposRetorno"}};
  for (const auto& [name, caption] : captions)
    EXPECT_EQ(String(Find(name)->Caption), caption) << ToUtf8(name);
}

TEST(WizardWidgets, ToolTipsAreThoseOfTheDesignCrossedOnesIncluded) {
  const std::map<String, String> tips = {{u"btn1Inc", u"Acrescentar Tabela"},
                                         {u"btn5Inc", u"Acrescentar Tabela"},
                                         {u"btn1IncTodos", u"Acrescentar Todas Tabelas"},
                                         {u"btn5IncTodos", u"Acrescentar Todas Tabelas"},
                                         {u"btn1Exc", u"Remover Tabela"},
                                         {u"Btn5Exc", u"Remover Tabela"},
                                         {u"btn1ExcTodos", u"Remover Todas as Tabelas"},
                                         {u"btn5ExcTodos", u"Remover Todas as Tabelas"},
                                         {u"btnConectar", u"Conectar ao Banco"},
                                         {u"btn2LnkAdiciona", u"Adicionar Link"},
                                         {u"btn2LnkRemove", u"Remover Link"},
                                         {u"btn3Inclui", u"Adicionar Campo Direto"},
                                         {u"btn3Concatena", u"Adicionar Campo Para Concatenar"},
                                         {u"btn3CriaConcatena", u"Criar Campo Concatenado"},
                                         {u"btn6CmpInc", u"Criar Campo Concatenado"},
                                         {u"btn3ConcIncluir", u"Incluir Novo Texto"},
                                         {u"btn3CmpSelExclui", u"Excluir Item"},
                                         {u"btn3ConcExclui", u"Excluir Item"},
                                         {u"btn6CmpExc", u"Excluir Item"},
                                         {u"btn7CmpRetExc", u"Excluir Item"},
                                         {u"btn3ConcSobe", u"Subir Item"},
                                         {u"btn3ConcDesce", u"Descer Item"},
                                         {u"btn7CmpChaveInc", u"Definir Retorno Para CampoChave"},
                                         {u"btn7CmpIrmaoInc", u"Definir Retorno Para CampoIrmao"},
                                         {u"btn7CmpRetInc", u"Definir Retorno Para Outros Campos"},
                                         {u"lst1TabSel", u"Marque a Tabela Que Será a Principal"},
                                         {u"lst3Concatena", u"Marque os Campos Que São Numericos"},
                                         {u"btn3CmpSelSobe", u"Descer Item"},
                                         {u"btn5CmpSobe", u"Descer Item"},
                                         {u"btn6CmpSobe", u"Descer Item"},
                                         {u"btn7CmpRetSobe", u"Descer Item"},
                                         {u"btn3CmpSelDesce", u"Sobir Item"},
                                         {u"btn5CmpDesce", u"Sobir Item"},
                                         {u"btn6CmpDesce", u"Sobir Item"},
                                         {u"btn7CmpRetDesce", u"Sobir Item"}};
  for (const auto& widget : frmMontaSql::Description().Widgets) {
    const auto tip = tips.find(String(widget.Name));
    EXPECT_EQ(String(widget.ToolTip), tip == tips.end() ? String() : tip->second)
        << ToUtf8(widget.Name);
  }
}

TEST(WizardWidgets, AButtonWithASignHasWordsForAScreenReader) {
  for (const auto& widget : frmMontaSql::Description().Widgets) {
    if (widget.Kind != Kind::CommandButton || widget.Caption.size() > 2) continue;
    EXPECT_GT(widget.AccessibleName.size(), 2U) << ToUtf8(widget.Name);
  }
  EXPECT_EQ(String(Find(u"btn5CmpSobe")->AccessibleName), u"Subir campo");
}

TEST(WizardWidgets, ComparisonsAndDataTypesAreFixed) {
  EXPECT_EQ(RowsIn(u"cmb6TipoBusca"), (std::vector<String>{u"=", u"<>", u">=", u"<="}));
  EXPECT_EQ(RowsIn(u"cmb6TipoDado"), (std::vector<String>{u"Numerico", u"String", u"Data"}));
  EXPECT_EQ(RowsIn(u"lst3Concatena"), (std::vector<String>{u"Texto"}));
}

TEST(WizardWidgets, RowsWithABoxAreTheTablesAndThePieces) {
  for (const auto& widget : frmMontaSql::Description().Widgets) {
    const bool checks = widget.Name == u"lst1TabSel" || widget.Name == u"lst3Concatena";
    EXPECT_EQ(widget.Kind == Kind::CheckList, checks) << ToUtf8(widget.Name);
  }
}

}  // namespace
}  // namespace tessaria::test
