#include "browse/grid_form.h"

#include <algorithm>
#include <vector>

#include "browse/refused_statement.h"
#include "browse/row_criterion.h"
#include "browse/search_run.h"
#include "lookup/field_types.h"
#include "lookup/sql_family.h"
#include "runtime/field_names.h"
#include "services/busy_pointer.h"
#include "services/key_codes.h"
#include "services/message_box.h"
#include "services/trap.h"
#include "tessaria/conversion.h"
#include "tessaria/host/application.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

using host::WidgetKind;

constexpr Integer kKeyPageUp = 33;
constexpr Integer kKeyPageDown = 34;
constexpr Integer kKeyBeforeF1 = 111;
constexpr Integer kShiftControl = 2;

// Twips.
constexpr Long kBesideGrid = 120;
constexpr Long kAboveGrid = 435;

constexpr host::WidgetDescription kListWidgets[] = {
    {u"lblTitulo", WidgetKind::Label},
    {u"barBrowse", WidgetKind::ToolBar, u"&Pesquisar", u"Pesquisar"},
    {u"grdBrowse", WidgetKind::DataGrid, u"Registros"},
    {u"btnConfirmar", WidgetKind::CommandButton, u"&Confirmar", u"Confirmar"},
    {u"btnVoltar", WidgetKind::CommandButton, u"&Voltar", u"Voltar"},
};

/// A range of keys and the menu position of the first one.
struct MenuKeys {
  Integer First;
  Integer Last;
  Long Position;
};
constexpr MenuKeys kDigits{49, 57, 1};
/// F1 and F5 do nothing.
constexpr MenuKeys kFunctionKeys[] = {{113, 115, 1}, {117, 123, 4}};

/// 0 for a key outside the range.
Long PositionOf(const MenuKeys& keys, Integer code) {
  return code >= keys.First && code <= keys.Last ? keys.Position + code - keys.First : 0;
}

/// 0 for a position without a key in the range.
Integer CodeOf(const MenuKeys& keys, Long position) {
  const Long code = keys.First + position - keys.Position;
  return code >= keys.First && code <= keys.Last ? static_cast<Integer>(code) : Integer{0};
}

bool IsJumpCharacter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9');
}

}  // namespace

const host::DialogDescription& frmBrowse::Description() {
  static const host::DialogDescription description{u"frmBrowse", u"Pesquisa", kListWidgets};
  return description;
}

String frmBrowse::MenuShortcuts(Long position) {
  String keys;
  for (const auto& run : kFunctionKeys)
    if (const Integer code = CodeOf(run, position); code != 0)
      keys = u"F" + CStr(Variant(static_cast<Long>(code - kKeyBeforeF1)));
  if (CodeOf(kDigits, position) == 0) return keys;
  return keys + (keys.empty() ? u"" : u", ") + u"Ctrl+" + CStr(Variant(position));
}

frmBrowse::frmBrowse()
    : dialog_(TheDesktop().MakeDialog(Description())),
      title_(dialog_->Find<host::DialogLabel>(u"lblTitulo")),
      bar_(dialog_->Find<host::ToolBar>(u"barBrowse")),
      grid_(dialog_->Find<host::DataGrid>(u"grdBrowse")),
      confirm_(dialog_->Find<host::DialogButton>(u"btnConfirmar")) {
  dialog_->OnActivate = [this] { Activate(); };
  dialog_->OnResize = [this] { Resize(); };
  dialog_->OnKeyDown = [this](Integer& code, Integer& shift) { FormKeyDown(code, shift); };
  confirm_.OnClick = [this] { ConfirmClick(); };
  dialog_->Find<host::DialogButton>(u"btnVoltar").OnClick = [this] { Leave(false); };
  bar_.OnButtonClick = [this] {
    if (bar_.MenuCount() > 0) MenuClick(1);
  };
  bar_.OnMenuClick = [this](Long position) { MenuClick(position); };
  grid_.OnDblClick = [this] { ConfirmClick(); };
  grid_.OnHeadClick = [this](Long column) { SortBy(column); };
  grid_.OnKeyDown = [this](Integer& code, Integer& shift) { GridKeyDown(code, shift); };
  grid_.OnKeyPress = [this](Integer& code) { GridKeyPress(code); };
}

frmBrowse::~frmBrowse() = default;

void frmBrowse::ShowModal() { dialog_->ShowModal(); }

void frmBrowse::Activate() {
  if (!activated_) AtualizaBotoes();
  activated_ = true;
  bar_.Refresh();
}

void frmBrowse::Resize() {
  grid_.Width(dialog_->Width() - kBesideGrid);
  grid_.Height(dialog_->Height() - kAboveGrid);
}

// --- Rows ---------------------------------------------------------------------------------------

void frmBrowse::ConectGrid(const String& strInstrucao, bool& blnOk) {
  blnOk = true;
  Catch(
      [&] {
        const auto connection = CurrentConnection();
        if (connection->State() == host::state::Closed && !connection->CanReconnect()) {
          mdlMsgBox::ExibeMensagem(hWndMsgBox, u"Conexão ao banco foi encerrada. verifique",
                                   mdlMsgBox::flag::Stop);
          return;
        }
        ShowRowsOf(strInstrucao);
      },
      [&] {
        blnOk = false;
        mdlObjTxt::OfferStatement(strInstrucao, u"Copiar Para Área de Transferência ?",
                                  mdlMsgBox::flag::YesNo + mdlMsgBox::flag::Stop, hWndMsgBox);
      });
}

/// The former rows stay when the new ones cannot be read.
void frmBrowse::ShowRowsOf(const String& statement) {
  const BusyPointer busy;
  auto rows = CurrentConnection()->Execute(statement);
  rows->Bof();  // rows that cannot be read fail here, not in the grid
  dcBrowse = std::move(rows);
  grid_.DataSource(dcBrowse);
}

void frmBrowse::DesenhaGrid() {
  Catch(
      [&] {
        for (Long i = 1; i <= cgrColGrid.Count(); ++i) {
          const auto definition = cgrColGrid.Item(i);
          auto& column = grid_.Column(i - 1);
          column.Caption(definition->Caption());
          column.Width(definition->Width());
          column.Format(definition->Mascara());
          column.Visible(definition->Visible());
        }
      },
      [] {});
}

/// Tests the rows that the operator sees; after a failed search there are none. Does not use the
/// number of rows, which would read them all.
bool frmBrowse::ShowsRows() const {
  const auto rows = grid_.DataSource();
  return rows && !(rows->Bof() && rows->Eof());
}

void frmBrowse::AtualizaBotoes() {
  confirm_.Enabled(false);
  confirm_.Enabled(ShowsRows());
  if (confirm_.Enabled() && (dcBrowse->Eof() || dcBrowse->Bof())) dcBrowse->MoveFirst();
  grid_.TabStop(confirm_.Enabled());
}

// --- Leaving ------------------------------------------------------------------------------------

/// After a failed search the grid has no rows already before the message box opens, and a key may
/// arrive in between.
void frmBrowse::ConfirmClick() {
  if (confirm_.Enabled() && grid_.DataSource()) Leave(true);
}

void frmBrowse::Leave(bool confirmed) {
  lGravar = confirmed;
  App().DoEvents();
  dialog_->Hide();
  App().DoEvents();
}

// --- Searches -----------------------------------------------------------------------------------

void frmBrowse::MenuClick(Long position) {
  if (position == bar_.MenuCount())
    ReloadAll();
  else
    Search(position);
  AtualizaBotoes();
  DesenhaGrid();
}

void frmBrowse::ReloadAll() {
  String statement = u"Select " + strCampos + u" From " + strFrom;
  if (!strWhere.empty()) statement += u" Where " + strWhere;
  if (!strGroupBy.empty()) statement += u" " + strGroupBy;
  statement += u" Order By " + (strOrderBy.empty() ? String(u"1") : strOrderBy);
  ShowRowsOf(statement);
}

void frmBrowse::Search(Long number) {
  std::vector<mdlObjTxt::SearchEntry> entries;
  for (Long i = 1; Pesquisa && i <= Pesquisa->Count(); ++i) {
    const auto item = Pesquisa->Item(i);
    if (item->Indice() != number) continue;
    entries.push_back({strTabela, item->Campo(), item->Tipo(), item->Like(), item->Caption(),
                       item->Width(), item->CompletaDescr(), item->Mascara(), item->MaxLength(),
                       item->PromptInclude(), item->CampoPronto(), item->OrderBy()});
  }
  mdlObjTxt::ExecutaPesquisa(entries, strCampos, strFrom, strWhere, strOrderBy, strGroupBy,
                             dcBrowse, grid_, hWndMsgBox);
}

// --- Keys ---------------------------------------------------------------------------------------

void frmBrowse::FormKeyDown(Integer KeyCode, Integer Shift) {
  if (Shift != kShiftControl) return;
  const Long position = PositionOf(kDigits, KeyCode);
  if (position > 0 && position <= bar_.MenuCount()) MenuClick(position);
}

void frmBrowse::GridKeyDown(Integer KeyCode, Integer Shift) {
  if (Shift == kShiftControl) {
    if ((KeyCode != kKeyPageUp && KeyCode != kKeyPageDown) || !ShowsRows()) return;
    const BusyPointer busy;
    if (KeyCode == kKeyPageUp)
      dcBrowse->MoveFirst();
    else
      dcBrowse->MoveLast();
    grid_.ShowCurrentRow();
    return;
  }
  for (const auto& keys : kFunctionKeys) {
    const Long position = PositionOf(keys, KeyCode);
    if (position > 0 && position <= bar_.MenuCount()) return MenuClick(position);
  }
}

void frmBrowse::GridKeyPress(Integer KeyAscii) {
  const auto character = static_cast<char16_t>(KeyAscii);
  if (KeyAscii == kKeyEnter)
    ConfirmClick();
  else if (KeyAscii == kKeyEscape)
    Leave(false);
  else if (IsJumpCharacter(character))
    JumpTo(character);
}

/// Goes to the first row that begins with the character; each key starts again at the top.
void frmBrowse::JumpTo(char16_t character) {
  if (!ShowsRows()) return;
  const auto field = dcBrowse->Fields().Item(0);
  if (!IsTextFieldType(field->Type())) return;
  const BusyPointer busy;
  const Long before = dcBrowse->AbsolutePosition();
  const auto stay = [&] { dcBrowse->AbsolutePosition(before); };
  try {
    dcBrowse->MoveFirst();
    mdlObjTxt::FindStart(*dcBrowse, String(1, character));
  } catch (...) {
    stay();  // Enter confirms the highlighted row
    grid_.ShowCurrentRow();
    throw;
  }
  if (dcBrowse->Eof()) stay();
  grid_.ShowCurrentRow();
}

/// Always ascending: a second click does not reverse the order.
void frmBrowse::SortBy(Long column) {
  const BusyPointer busy;
  dcBrowse->Sort(FieldNameText(grid_.Column(column).DataField()));
  grid_.ShowCurrentRow();
}

}  // namespace tessaria
