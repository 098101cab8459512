#include "wizard/transfer.h"

#include <vector>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/host/application.h"
#include "tessaria/thread_state.h"
#include "wizard/list_rows.h"
#include "wizard/sql_names.h"

namespace tessaria::wizard {
namespace {

constexpr StringView kAliasPrompt = u"Informe um Alias Para a Tabela";

bool LeavesTheTables(const Wizard& wizard, const Way& way) {
  return &way.lstOrigem == &wizard.List(u"lst1TabSel");
}

bool IsLeftBehind(const Wizard& wizard, const Way& way, const String& text) {
  if (!wizard.AcceptsAliases()) return text.find(u'_') != String::npos;
  return LeavesTheTables(wizard, way) && wizard.IsAlias(text);
}

/// Whether a row that is carried needs an entry of its own. Without aliases the tables are
/// searched, not the keys, so that the alias of a second visit is registered once more and refused.
bool NeedsEntry(const Wizard& wizard, const Way& way, const String& text, const String& table) {
  if (!way.blnRegistraTabela) return false;
  if (!wizard.AcceptsAliases()) return !wizard.colTabelas.HasItem(text);
  return !wizard.colTabelas.HasKey(text) || wizard.colTabelas.Item(text) != table;
}

/// With aliases, an entry that is there is of a row that has gone.
void Register(Wizard& wizard, const String& text, const String& table) {
  if (wizard.AcceptsAliases() && wizard.colTabelas.HasKey(text)) wizard.colTabelas.Remove(text);
  wizard.colTabelas.Add(table, text);
}

void Forget(Wizard& wizard, const Way& way, const String& text) {
  if (wizard.AcceptsAliases() && LeavesTheTables(wizard, way) && wizard.colTabelas.HasKey(text))
    wizard.colTabelas.Remove(text);
}

String Ask(const String& offered) {
  return App().ShowInputBox(String(kAliasPrompt), String(), offered);
}

/// A name that the list does not have yet; "" when the operator gives up.
String AskAlias(const Wizard& wizard, host::DialogListView& list, const String& table) {
  const String start = SqlNames::Bare(table) + u"_";
  String name = table;
  for (Long n = 1; list.FindItem(name) != nullptr; ++n) name = wizard.names.Name(start + CStr(n));
  do {
    name = Ask(name);
  } while (!name.empty() && list.FindItem(name) != nullptr);
  return name;
}

/// False when the operator gives up.
bool CarrySelected(Wizard& wizard, const Way& way, const String& source) {
  String text = source;
  if (way.blnPedeAlias && way.lstDestino.FindItem(source) != nullptr)
    text = AskAlias(wizard, way.lstDestino, source);
  if (text.empty()) return false;
  if (way.lstDestino.FindItem(text) != nullptr) return true;
  way.lstDestino.Add(text);
  if (NeedsEntry(wizard, way, text, source)) Register(wizard, text, source);
  return true;
}

void TransferSelected(Wizard& wizard, const Way& way) {
  const String source = SelectedRow(way.lstOrigem).Text();
  if (!IsLeftBehind(wizard, way, source) && !CarrySelected(wizard, way, source)) return;
  if (way.blnRemoveOrigem) {
    Forget(wizard, way, source);
    RemoveSelected(way.lstOrigem);
  }
  wizard.AtualizaAbas();
}

/// A row that the other list has already gets its entry too: after another connection there is
/// none.
void TransferAll(Wizard& wizard, const Way& way) {
  const std::vector<String> texts = TextsOf(way.lstOrigem);
  for (const String& text : texts) {
    if (IsLeftBehind(wizard, way, text)) continue;
    if (way.lstDestino.FindItem(text) == nullptr) way.lstDestino.Add(text);
    if (NeedsEntry(wizard, way, text, text)) Register(wizard, text, text);
  }
  for (const String& text : texts) Forget(wizard, way, text);
  way.lstOrigem.Clear();
  wizard.AtualizaAbas();
}

}  // namespace

void AtualizaBotoes(const Wizard& wizard, const TransferWidgets& widgets) {
  const bool hasMore = wizard.List(widgets.lstTodos).Count() > 0;
  const bool hasSelected = wizard.List(widgets.lstSel).Count() > 0;
  wizard.Button(widgets.btnInc).Enabled(hasMore);
  wizard.Button(widgets.btnIncTodos).Enabled(hasMore);
  wizard.Button(widgets.btnExc).Enabled(hasSelected);
  wizard.Button(widgets.btnExcTodos).Enabled(hasSelected);
}

void ConnectTransfer(Wizard& wizard, const TransferWidgets& widgets) {
  auto& all = wizard.List(widgets.lstTodos);
  auto& selected = wizard.List(widgets.lstSel);
  const auto carry = [&wizard, widgets](const Way& way) {
    TransfereItem(wizard, way);
    AtualizaBotoes(wizard, widgets);
  };
  const auto include = [&, carry, widgets](bool whole) {
    return [&all, &selected, carry, widgets, whole] {
      carry({all, selected, whole, true, widgets.blnRemoveOrigem, widgets.blnRegistraTabela});
    };
  };
  const auto exclude = [&, carry, widgets](bool whole) {
    return [&all, &selected, carry, widgets, whole] {
      carry({selected, all, whole, false, true, widgets.blnRegistraTabela});
    };
  };
  wizard.Button(widgets.btnInc).OnClick = all.OnDblClick = include(false);
  wizard.Button(widgets.btnIncTodos).OnClick = include(true);
  wizard.Button(widgets.btnExc).OnClick = exclude(false);
  wizard.Button(widgets.btnExcTodos).OnClick = exclude(true);
}

void TransfereItem(Wizard& wizard, const Way& way) {
  way.blnTodos ? TransferAll(wizard, way) : TransferSelected(wizard, way);
}

void ConnectMoves(Wizard& wizard, StringView list, StringView up, StringView down) {
  auto& rows = wizard.List(list);
  wizard.Button(up).OnClick = [&rows] { MoveItem(rows, Direction::Sobe); };
  wizard.Button(down).OnClick = [&rows] { MoveItem(rows, Direction::Desce); };
}

}  // namespace tessaria::wizard
