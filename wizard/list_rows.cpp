#include "wizard/list_rows.h"

#include "tessaria/error.h"

namespace tessaria::wizard {

host::ListRow& SelectedRow(host::DialogListView& list) {
  host::ListRow* row = list.SelectedItem();
  if (row == nullptr) throw HostError(errors::ObjectNotSet);
  return *row;
}

host::ListRow* CheckedRow(host::DialogListView& list) {
  for (Long i = 1; i <= list.Count(); ++i)
    if (list.Item(i).Checked()) return &list.Item(i);
  return nullptr;
}

void SelectFirstVisible(host::DialogListView& list) {
  if (host::ListRow* row = list.FirstVisible()) row->Selected(true);
}

void RemoveSelected(host::DialogListView& list) {
  list.Remove(SelectedRow(list).Index());
  SelectFirstVisible(list);
}

std::vector<String> TextsOf(host::DialogListView& list) {
  std::vector<String> texts;
  for (Long i = 1; i <= list.Count(); ++i) texts.push_back(list.Item(i).Text());
  return texts;
}

mdlObjTxt::ListRows RowsOf(host::DialogListView& list) {
  mdlObjTxt::ListRows rows;
  for (Long i = 1; i <= list.Count(); ++i) {
    const host::ListRow& row = list.Item(i);
    rows.push_back({row.Text(), {}});
    for (Long n = 1; n <= row.SubItemCount(); ++n) rows.back().SubItems.push_back(row.SubItem(n));
  }
  return rows;
}

void CopyTexts(host::DialogListView& from, host::DialogListView& to) {
  to.Clear();
  for (Long i = 1; i <= from.Count(); ++i) to.Add(from.Item(i).Text());
}

void MoveItem(host::DialogListView& list, Direction direction) {
  const host::ListRow& row = SelectedRow(list);
  const Long from = row.Index();
  const bool down = direction == Direction::Desce;
  if (down ? from >= list.Count() : from < 2) return;
  const String text = row.Text();
  const Long to = down ? from + 1 : from - 1;
  list.Remove(from);
  list.Add(text, to > list.Count() ? 0 : to).Selected(true);
}

}  // namespace tessaria::wizard
