// Two lists between which rows are carried by four buttons.
#pragma once

#include "wizard/wizard.h"

namespace tessaria::wizard {

/// The widgets of one such pair, by name.
struct TransferWidgets {
  StringView btnInc, btnIncTodos, btnExc, btnExcTodos;
  StringView lstTodos, lstSel;
  bool blnRemoveOrigem;    ///< whether a row that is included leaves `lstTodos`
  bool blnRegistraTabela;  ///< whether the rows are tables, kept in `colTabelas`
};

/// Enables the buttons towards a list when the other one has rows.
void AtualizaBotoes(const Wizard& wizard, const TransferWidgets& widgets);

/// The four buttons, and the double click on `lstTodos`, which includes a row.
void ConnectTransfer(Wizard& wizard, const TransferWidgets& widgets);

/// One way between two lists.
struct Way {
  host::DialogListView& lstOrigem;
  host::DialogListView& lstDestino;
  bool blnTodos;
  bool blnPedeAlias;
  bool blnRemoveOrigem;
  bool blnRegistraTabela;
};

/// Carries the selected row, or all rows. A name with "_" is not carried: it counts as an alias,
/// which leaves `lst1TabSel` without a trace. With aliases accepted that counts only for a row of
/// `lst1TabSel` whose table has another name. Errors: 91 without a selected row, 457 for a row that
/// comes back and whose text is the alias of another table; its row is in the other list then, and
/// nothing after it is carried.
void TransfereItem(Wizard& wizard, const Way& way);

/// The buttons that move a list's selected row up and down.
void ConnectMoves(Wizard& wizard, StringView list, StringView up, StringView down);

}  // namespace tessaria::wizard
