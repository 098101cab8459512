#include "wizard/return_tab.h"

#include "wizard/catalogue.h"
#include "wizard/list_rows.h"
#include "wizard/transfer.h"

namespace tessaria::wizard {
namespace {

constexpr StringView kKey = u"txt7CampoChave";
constexpr StringView kSibling = u"txt7CampoIrmao";

}  // namespace

ReturnTab::ReturnTab(Wizard& wizard) : wizard_(wizard) {
  wizard_.OnEnter(Tab::Retorno) = [this] { ListFields(); };
  wizard_.Button(u"btn7CmpChaveInc").OnClick = [this] {
    TakeName(kKey);
    wizard_.AtualizaAbas();
  };
  wizard_.Button(u"btn7CmpIrmaoInc").OnClick = [this] { TakeName(kSibling); };
  wizard_.OnAliases = [this] {
    for (const StringView box : {kKey, kSibling}) Rename(box);
  };
  ConnectReturned();
}

/// A name that was taken under the former rule becomes that of the present one.
void ReturnTab::Rename(StringView box) {
  const bool accepts = wizard_.AcceptsAliases();
  const String text = wizard_.Box(box).Text();
  for (Long i = 1; i <= wizard_.cgrColGrid.Count(); ++i)
    if (StatementName(i, !accepts) == text) return wizard_.Box(box).Text(StatementName(i, accepts));
}

void ReturnTab::ConnectReturned() {
  wizard_.Button(u"btn7CmpRetInc").OnClick = [this] { AddReturned(); };
  wizard_.Button(u"btn7CmpRetExc").OnClick = [this] { RemoveReturned(); };
  ConnectMoves(wizard_, u"lst7CmpRet", u"btn7CmpRetSobe", u"btn7CmpRetDesce");
}

// What has left the statement is forgotten; the return fields come back in the order of the
// columns.
void ReturnTab::ListFields() {
  auto& former = wizard_.List(u"lstSel");
  CopyTexts(Returned(), former);
  Fields().Clear();
  Returned().Clear();
  for (Long i = 1; i <= wizard_.cgrColGrid.Count(); ++i) {
    const String field = wizard_.cgrColGrid.Item(i)->Campo();
    if (former.FindItem(field) != nullptr) Returned().Add(field);
    Fields().Add(field).Tag = StatementName(i);
  }
  for (const StringView box : {kKey, kSibling}) Forget(box);
}

/// Empties a box whose field is gone.
void ReturnTab::Forget(StringView box) {
  const String text = wizard_.Box(box).Text();
  for (Long i = 1; i <= Fields().Count(); ++i)
    if (IsNamed(text, Fields().Item(i))) return;
  wizard_.Box(box).Text(String());
}

/// With aliases accepted, a field is named as the select list has it; a concatenated one has only
/// its own name.
String ReturnTab::StatementName(Long column, bool acceptsAliases) const {
  const String field = wizard_.cgrColGrid.Item(column)->Campo();
  const auto at = static_cast<std::size_t>(column - 1);
  if (acceptsAliases && at < wizard_.selected.size() &&
      SqlNames::Bare(wizard_.selected[at]) == field)
    return wizard_.selected[at];
  return KnowsNames() ? wizard_.names.Name(field) : field;
}

/// With aliases accepted, the field of another table is another one.
bool ReturnTab::IsNamed(const String& text, const host::ListRow& field) const {
  if (text == field.Text() || text == field.Tag) return true;
  return (!wizard_.AcceptsAliases() || wizard_.selected.empty()) &&
         SqlNames::Bare(text) == field.Text();
}

/// Whether the database has told which names need quotes; columns of a definition come without one.
bool ReturnTab::KnowsNames() const { return !wizard_.selected.empty() || IsConnected(wizard_); }

// While nobody knows which names need quotes, one that is there keeps its own.
void ReturnTab::TakeName(StringView box) {
  const host::ListRow& field = SelectedRow(Fields());
  const bool isThere = SqlNames::Bare(wizard_.Box(box).Text()) == field.Text();
  if (isThere && !KnowsNames()) return;
  wizard_.Box(box).Text(field.Tag);
}

void ReturnTab::AddReturned() {
  const String field = SelectedRow(Fields()).Text();
  if (Returned().FindItem(field) != nullptr) return wizard_.Alert(u"Campo Já Incluído");
  host::ListRow& row = Returned().Add(field);
  row.Selected(true);
  row.EnsureVisible();
}

void ReturnTab::RemoveReturned() {
  if (Returned().Count() > 0) RemoveSelected(Returned());
}

}  // namespace tessaria::wizard
