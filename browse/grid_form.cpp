#include "browse/grid_form.h"

#include <algorithm>
#include <vector>

#include "browse/refused_statement.h"
#include "browse/search_run.h"
#include "lookup/dialect.h"
#include "runtime/text.h"
#include "services/message_box.h"
#include "services/trap.h"
#include "tessaria/host/application.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

using host::WidgetKind;

constexpr Long kYesNo = 4;
constexpr Long kStop = 16;

constexpr Integer keyEnter = 13;
constexpr Integer keyEscape = 27;
constexpr Integer keyPageUp = 33;
constexpr Integer keyPageDown = 34;
constexpr Integer shiftControl = 2;

// Twips.
constexpr Long besideGrid = 120;
constexpr Long aboveGrid = 435;

constexpr host::WidgetDescription widgets[] = {
    {u"lblTitulo", WidgetKind::Label},
    {u"barBrowse", WidgetKind::ToolBar, u"Pesquisar", u"Pesquisar"},
    {u"grdBrowse", WidgetKind::DataGrid, u"Registros"},
    {u"btnConfirmar", WidgetKind::CommandButton, u"&Confirmar", u"Confirmar"},
    {u"btnVoltar", WidgetKind::CommandButton, u"&Voltar", u"Voltar"},
};

/// A run of keys and the menu position of its first one.
struct MenuKeys {
  Integer First;
  Integer Last;
  Long Position;
};
constexpr MenuKeys digits{49, 57, 1};
/// F1 and F5 do nothing.
constexpr MenuKeys functionKeys[] = {{113, 115, 1}, {117, 123, 4}};

/// 0 for a key that is not of the run.
Long PositionOf(const MenuKeys& keys, Integer code) {
  return code >= keys.First && code <= keys.Last ? keys.Position + code - keys.First : 0;
}

bool IsTextType(Long type) {
  using namespace host;
  return type == type::VarWChar || type == type::VarChar || type == type::WChar ||
         type == type::Char;
}

bool IsJumpCharacter(char16_t c) {
  return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z') || (c >= u'0' && c <= u'9');
}

}  // namespace

const host::DialogDescription& frmBrowse::Description() {
  static const host::DialogDescription description{u"frmBrowse", u"Pesquisa", widgets};
  return description;
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
  grid_.Width(dialog_->Width() - besideGrid);
  grid_.Height(dialog_->Height() - aboveGrid);
}

// --- Rows ---------------------------------------------------------------------------------------

void frmBrowse::ConectGrid(const String& strInstrucao, bool& blnOk) {
  blnOk = true;
  Catch(
      [&] {
        const auto connection = ConexaoAtual();
        if (connection->State() == host::state::Closed) {
          mdlMsgBox::ExibeMensagem(hWndMsgBox, u"Conexão ao banco foi encerrada. verifique", kStop);
          return;
        }
        dcBrowse = connection->Execute(strInstrucao);
        grid_.DataSource(dcBrowse);
      },
      [&] {
        blnOk = false;
        mdlObjTxt::OfereceInstrucao(strInstrucao, u"Copiar Para Área de Transferência ?",
                                    kYesNo + kStop, hWndMsgBox);
      });
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

/// Asked in this way and not by the number of rows, which would read them all.
bool frmBrowse::HasRows() const { return dcBrowse && !(dcBrowse->Bof() && dcBrowse->Eof()); }

void frmBrowse::AtualizaBotoes() {
  confirm_.Enabled(false);
  if (dcBrowse) {
    confirm_.Enabled(HasRows());
    if (confirm_.Enabled() && (dcBrowse->Eof() || dcBrowse->Bof())) dcBrowse->MoveFirst();
  }
  grid_.TabStop(confirm_.Enabled());
}

// --- Leaving ------------------------------------------------------------------------------------

void frmBrowse::ConfirmClick() {
  if (confirm_.Enabled()) Leave(true);
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
  dcBrowse = ConexaoAtual()->Execute(statement);
  grid_.DataSource(dcBrowse);
}

void frmBrowse::Search(Long indice) {
  std::vector<mdlObjTxt::EntradaPesquisa> entries;
  for (Long i = 1; Pesquisa && i <= Pesquisa->Count(); ++i) {
    const auto item = Pesquisa->Item(i);
    if (item->Indice() != indice) continue;
    entries.push_back({strTabela, item->Campo(), item->Tipo(), item->Like(), item->Caption(),
                       item->Width(), item->CompletaDescr(), item->Mascara(), item->MaxLength(),
                       item->PromptInclude(), item->CampoPronto(), item->OrderBy()});
  }
  mdlObjTxt::ExecutaPesquisa(entries, strCampos, strFrom, strWhere, strOrderBy, strGroupBy,
                             dcBrowse, grid_, hWndMsgBox);
}

// --- Keys ---------------------------------------------------------------------------------------

void frmBrowse::FormKeyDown(Integer KeyCode, Integer Shift) {
  if (Shift != shiftControl) return;
  const Long position = PositionOf(digits, KeyCode);
  if (position > 0 && position <= bar_.MenuCount()) MenuClick(position);
}

void frmBrowse::GridKeyDown(Integer KeyCode, Integer Shift) {
  if (Shift == shiftControl) {
    if ((KeyCode != keyPageUp && KeyCode != keyPageDown) || !HasRows()) return;
    if (KeyCode == keyPageUp)
      dcBrowse->MoveFirst();
    else
      dcBrowse->MoveLast();
    grid_.ShowCurrentRow();
    return;
  }
  for (const auto& keys : functionKeys) {
    const Long position = PositionOf(keys, KeyCode);
    if (position > 0 && position <= bar_.MenuCount()) return MenuClick(position);
  }
}

void frmBrowse::GridKeyPress(Integer KeyAscii) {
  const auto character = static_cast<char16_t>(KeyAscii);
  if (KeyAscii == keyEnter)
    ConfirmClick();
  else if (KeyAscii == keyEscape)
    Leave(false);
  else if (IsJumpCharacter(character))
    JumpTo(character);
}

/// To the first row that begins with the character; each key starts again at the top.
void frmBrowse::JumpTo(char16_t character) {
  if (!HasRows()) return;
  const auto field = dcBrowse->Fields().Item(0);
  if (!IsTextType(field->Type())) return;
  const Long before = dcBrowse->AbsolutePosition();
  dcBrowse->MoveFirst();
  dcBrowse->Find(field->Name() + u" like '" + String(1, character) + u"%'");
  if (dcBrowse->Eof()) dcBrowse->AbsolutePosition(before);
  grid_.ShowCurrentRow();
}

/// Always ascending: a second click does nothing new.
void frmBrowse::SortBy(Long column) {
  dcBrowse->Sort(grid_.Column(column).DataField());
  grid_.ShowCurrentRow();
}

}  // namespace tessaria
