// The wizard's connection, the tables of its database and their fields.
#pragma once

#include "wizard/transfer.h"
#include "wizard/wizard.h"

namespace tessaria::wizard {

/// The tables of the database, and those that were selected.
inline constexpr TransferWidgets kTableWidgets{
    .btnInc = u"btn1Inc",
    .btnIncTodos = u"btn1IncTodos",
    .btnExc = u"btn1Exc",
    .btnExcTodos = u"btn1ExcTodos",
    .lstTodos = u"lst1TabTodas",
    .lstSel = u"lst1TabSel",
    .blnRemoveOrigem = false,
    .blnRegistraTabela = true,
};

/// Connects to a data source of the list, unless the wizard is connected already, and lists its
/// tables; earlier picks lose their real tables, also when this fails. A failure to connect is
/// shown in a box and gives false, as no name does, for which `blnAvisa` asks. A name outside the
/// list does nothing.
bool ConectaBanco(Wizard& wizard, const String& varSistema, bool blnAvisa);

bool IsConnected(const Wizard& wizard);

/// Lists the tables anew; what was picked stays. Errors are the provider's.
void CarregaTabelas(Wizard& wizard);

/// Lists the fields of a table by its real name and selects the first one. Errors: the provider's,
/// 9 for a table without a field; the list stays then.
void CarregaCampos(Wizard& wizard, const String& strTabela, host::DialogListView& lstCampos);

/// The same for the table in a combo box, which may be an alias; nothing when none is chosen. Error
/// 5 for a table that the present connection did not list.
void CarregaCamposDe(Wizard& wizard, StringView combo, StringView list);

/// Replaces the rows of a combo box by the selected tables, and keeps its choice if it can.
void ListaTabelas(Wizard& wizard, StringView combo);

}  // namespace tessaria::wizard
