#include "wizard/where_tab.h"

#include "tessaria/host/application.h"
#include "tessaria/thread_state.h"
#include "wizard/list_rows.h"
#include "wizard/transfer.h"

namespace tessaria::wizard {
namespace {

struct SubItem {
  StringView combo;
  Long position;
};
constexpr SubItem kSubItems[] = {{u"cmb6TipoBusca", 1}, {u"cmb6Objeto", 2}, {u"cmb6TipoDado", 3}};

void ChooseText(host::DialogCombo& combo, const String& text) {
  Long row = 0;
  while (row < combo.ListCount() && combo.List(row) != text) ++row;
  combo.ListIndex(row < combo.ListCount() ? row : -1);
}

}  // namespace

WhereTab::WhereTab(Wizard& wizard) : wizard_(wizard) {
  wizard_.Button(u"btn6CmpInc").OnClick =
      wizard_.List(u"lst6Cmp").OnDblClick = [this] { AddField(); };
  wizard_.Button(u"btn6CmpExc").OnClick = [this] { RemoveField(); };
  Searched().OnItemClick = [this](host::ListRow&) { ShowSelected(); };
  for (const SubItem& part : kSubItems)
    wizard_.Combo(part.combo).OnLostFocus = [this, part] { Store(part.combo, part.position); };
  ConnectMoves(wizard_, u"lst6CmpSel", u"btn6CmpSobe", u"btn6CmpDesce");
}

// With a single table too the field has its table in front.
void WhereTab::AddField() {
  const String field = SelectedRow(wizard_.List(u"lst6Cmp")).Text();
  const String text = wizard_.Combo(u"cmb6Tab").Text() + u"." + field;
  if (Searched().FindItem(text) != nullptr) return wizard_.Alert(u"Campo Já Incluído");
  host::ListRow& row = Searched().Add(text);
  row.Selected(true);
  row.EnsureVisible();
  for ([[maybe_unused]] const SubItem& part : kSubItems) row.AddSubItem(String());
  ShowSelected();
}

void WhereTab::RemoveField() {
  if (Searched().Count() == 0) return;
  RemoveSelected(Searched());
  ShowSelected();
}

// The boxes have stored what was chosen in them before they show another row. A row that was moved
// has nothing to show, which is an error.
void WhereTab::ShowSelected() {
  Searched().SetFocus();
  App().DoEvents();
  const host::ListRow* row = Searched().SelectedItem();
  if (row == nullptr) return;
  row->SubItem(std::size(kSubItems));
  for (const SubItem& part : kSubItems)
    ChooseText(wizard_.Combo(part.combo), row->SubItem(part.position));
}

void WhereTab::Store(StringView combo, Long subItem) {
  if (host::ListRow* row = Searched().SelectedItem())
    row->SubItem(subItem, wizard_.Combo(combo).Text());
}

}  // namespace tessaria::wizard
