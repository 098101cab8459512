// Rows of the wizard's lists.
#pragma once

#include <vector>

#include "lookup/statement_layout.h"
#include "tessaria/host/dialog_widgets.h"

namespace tessaria::wizard {

/// The selected row. Error 91 when there is none.
host::ListRow& SelectedRow(host::DialogListView& list);
/// The first checked row; null for none.
host::ListRow* CheckedRow(host::DialogListView& list);
/// Does nothing for an empty list.
void SelectFirstVisible(host::DialogListView& list);
/// Removes the selected row and selects the first one that can be seen. Error 91 without a
/// selected row.
void RemoveSelected(host::DialogListView& list);
std::vector<String> TextsOf(host::DialogListView& list);
/// Copies of all rows with their sub-items.
mdlObjTxt::ListRows RowsOf(host::DialogListView& list);
/// Replaces the rows of a list by the texts of another.
void CopyTexts(host::DialogListView& from, host::DialogListView& to);

enum class Direction { Sobe, Desce };

/// Moves the selected row by one place and selects it; nothing at that end. Only the text moves:
/// the row's tag, check mark and sub-items are lost.
void MoveItem(host::DialogListView& list, Direction direction);

}  // namespace tessaria::wizard
