#include "wizard/order_tab.h"

#include "wizard/list_rows.h"
#include "wizard/transfer.h"

namespace tessaria::wizard {
namespace {

constexpr TransferWidgets kOrderWidgets{
    .btnInc = u"btn5Inc",
    .btnIncTodos = u"btn5IncTodos",
    .btnExc = u"Btn5Exc",
    .btnExcTodos = u"btn5ExcTodos",
    .lstTodos = u"lst5CmpTodos",
    .lstSel = u"lst5CmpSel",
    .blnRemoveOrigem = true,
    .blnRegistraTabela = false,
};

}  // namespace

OrderTab::OrderTab(Wizard& wizard) : wizard_(wizard) {
  ConnectTransfer(wizard_, kOrderWidgets);
  ConnectMoves(wizard_, kOrderWidgets.lstSel, u"btn5CmpSobe", u"btn5CmpDesce");
  wizard_.OnEnter(Tab::Ordem) = [this] { ListFields(); };
}

// Both lists come back in the order of the columns: an order that was set is lost. The buttons stay
// as they are.
void OrderTab::ListFields() {
  auto& all = wizard_.List(kOrderWidgets.lstTodos);
  auto& selected = wizard_.List(kOrderWidgets.lstSel);
  auto& former = wizard_.List(u"lstSel");
  CopyTexts(selected, former);
  all.Clear();
  selected.Clear();
  for (Long i = 1; i <= wizard_.cgrColGrid.Count(); ++i) {
    const String field = wizard_.cgrColGrid.Item(i)->Campo();
    (former.FindItem(field) == nullptr ? all : selected).Add(field);
  }
}

}  // namespace tessaria::wizard
