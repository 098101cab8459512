#include "wizard/tables_tab.h"

#include "tessaria/host/application.h"
#include "tessaria/thread_state.h"
#include "wizard/catalogue.h"

namespace tessaria::wizard {

TablesTab::TablesTab(Wizard& wizard) : wizard_(wizard) {
  ListSources();
  wizard_.Combo(u"cmbSistema").OnClick = [this] { wizard_.Button(u"btnConectar").Enabled(true); };
  wizard_.Button(u"btnConectar").OnClick = [this] {
    ConectaBanco(wizard_, wizard_.Combo(u"cmbSistema").Text(), true);
  };
  wizard_.Check(u"chkAceitaApelidos").OnClick = [this] { AliasesClicked(); };
  wizard_.List(kTableWidgets.lstSel).OnItemCheck = [this](host::ListRow& row) {
    MainTableChecked(row);
  };
  ConnectTransfer(wizard_, kTableWidgets);
  AtualizaBotoes(wizard_, kTableWidgets);
}

void TablesTab::ListSources() {
  const auto names = App().DataSourceNames();
  for (const String& name : names) wizard_.Combo(u"cmbSistema").AddItem(name);
  if (names.empty()) wizard_.Estado(u"O sistema não tem nenhuma fonte de dados ODBC.");
}

// What was picked stays; without a list the box keeps its former state.
void TablesTab::AliasesClicked() {
  auto& box = wizard_.Check(u"chkAceitaApelidos");
  try {
    if (IsConnected(wizard_)) CarregaTabelas(wizard_);
  } catch (...) {
    box.Value(box.Value() == 0 ? 1 : 0);
    throw;
  }
  wizard_.OnAliases();
}

// A choice among the rows, except that a checked row can be cleared.
void TablesTab::MainTableChecked(const host::ListRow& row) {
  auto& list = wizard_.List(kTableWidgets.lstSel);
  for (Long i = 1; i <= list.Count(); ++i)
    if (i != row.Index()) list.Item(i).Checked(false);
}

}  // namespace tessaria::wizard
