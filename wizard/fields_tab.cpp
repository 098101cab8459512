#include "wizard/fields_tab.h"

#include "lookup/dialect.h"
#include "lookup/sql_family.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/host/application.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"
#include "wizard/format_sql.h"
#include "wizard/list_rows.h"
#include "wizard/transfer.h"

namespace tessaria::wizard {
namespace {

constexpr StringView kNewName = u"txt3ConcNome";
constexpr StringView kPieceMask = u"txt3ConcMascara";
constexpr StringView kEmptyText = u"''";
constexpr StringView kTextPrompt = u"Informe o Texto Adicional Delimitado Por Aspas Simples";
constexpr StringView kFieldTwice = u"Campo Com Esse Nome Já Incluído";

bool IsQuotedText(const String& text) {
  return !text.empty() && text != kEmptyText && text.front() == u'\'' && text.back() == u'\'';
}

/// A text in quotes; "" when the operator gives up.
String AskText() {
  String text(kEmptyText);
  do {
    text = App().ShowInputBox(String(kTextPrompt), String(), text);
  } while (!text.empty() && !IsQuotedText(text));
  return text;
}

void Show(host::ListRow& row) {
  row.Selected(true);
  row.EnsureVisible();
}

}  // namespace

FieldsTab::FieldsTab(Wizard& wizard) : wizard_(wizard) {
  ConnectFields();
  ConnectPieces();
}

void FieldsTab::ConnectFields() {
  wizard_.Button(u"btn3Inclui").OnClick = Available().OnDblClick = [this] { IncludeField(); };
  wizard_.Button(u"btn3CmpSelExclui").OnClick = [this] { ExcludeField(); };
  ConnectMoves(wizard_, u"lst3CmpSel", u"btn3CmpSelSobe", u"btn3CmpSelDesce");
}

void FieldsTab::ConnectPieces() {
  wizard_.Button(u"btn3Concatena").OnClick = [this] { AddPiece(); };
  wizard_.Button(u"btn3ConcIncluir").OnClick = [this] { AddText(); };
  wizard_.Button(u"btn3ConcExclui").OnClick = [this] { ExcludePiece(); };
  wizard_.Button(u"btn3CriaConcatena").OnClick = [this] { CreateColumn(); };
  PieceRows().OnItemClick = [this](host::ListRow& row) { wizard_.Box(kPieceMask).Text(row.Tag); };
  wizard_.Box(kPieceMask).OnChange = [this] { MaskChanged(); };
  ConnectMoves(wizard_, u"lst3Concatena", u"btn3ConcSobe", u"btn3ConcDesce");
}

// --- Fields --------------------------------------------------------------------------------------

String FieldsTab::Prefix() const {
  if (wizard_.List(u"lst1TabSel").Count() <= 1) return {};
  return wizard_.Combo(u"cmb3Tab").Text() + u".";
}

// Two tables cannot both give a field of the same name.
void FieldsTab::IncludeField() {
  const String field = SelectedRow(Available()).Text();
  if (host::ListRow* present = Selected().FindTag(field)) {
    present->Selected(true);
    return wizard_.Alert(String(kFieldTwice));
  }
  AddColumn(Prefix() + field, field);
}

void FieldsTab::AddColumn(const String& text, const String& name) {
  Selected().Add(text).Tag = name;
  wizard_.AtualizaAbas();
}

void FieldsTab::ExcludeField() {
  if (Selected().Count() == 0) return;
  RemoveSelected(Selected());
  wizard_.AtualizaAbas();
}

// --- Pieces of a new column ----------------------------------------------------------------------

void FieldsTab::AddPiece() {
  const String text = Prefix() + SelectedRow(Available()).Text();
  if (PieceRows().FindItem(text) != nullptr) return wizard_.Alert(u"Campo Já Incluído");
  Show(PieceRows().Add(text));
}

void FieldsTab::AddText() {
  const String text = AskText();
  if (!text.empty()) Show(PieceRows().Add(text));
}

void FieldsTab::ExcludePiece() {
  if (PieceRows().Count() > 0) RemoveSelected(PieceRows());
}

void FieldsTab::MaskChanged() {
  if (PieceRows().Count() > 0) SelectedRow(PieceRows()).Tag = wizard_.Box(kPieceMask).Text();
}

// --- The new column ------------------------------------------------------------------------------

bool FieldsTab::LacksColumn() {
  if (PieceRows().Count() == 0) {
    wizard_.Alert(u"Nenhum Campo Concatenado Para Ser Incluso");
    return true;
  }
  if (!wizard_.Box(kNewName).Text().empty()) return false;
  wizard_.Alert(u"Informe o Nome Para o Campo Concatenado");
  wizard_.Widget(kNewName).SetFocus();
  return true;
}

void FieldsTab::CreateColumn() {
  if (LacksColumn()) return;
  host::TextBox& box = wizard_.Box(kNewName);
  const String name = box.Text();
  if (host::ListRow* present = Selected().FindTag(name)) {
    present->Selected(true);
    wizard_.Alert(String(kFieldTwice));
    wizard_.Widget(kNewName).SetFocus();
    box.SelStart(0);
    return box.SelLength(Len(name));
  }
  const String text = Pieces() + u" as " + name;
  PieceRows().Clear();
  box.Text(String());
  wizard_.Box(kPieceMask).Text(String());
  AddColumn(text, name);
}

String FieldsTab::Pieces() const {
  const String joint = u" " + Concatenation(wizard_.Connection()) + u" ";
  String text;
  for (Long i = 1; i <= PieceRows().Count(); ++i) {
    if (!text.empty()) text += joint;
    text += PieceText(PieceRows().Item(i));
  }
  return text;
}

// Every piece that has a mask gets the one that stands in the box, whichever its own is.
String FieldsTab::PieceText(const host::ListRow& piece) const {
  const String text = piece.Checked() ? u"Str(" + piece.Text() + u")" : piece.Text();
  if (piece.Tag.empty()) return text;
  return FormatSql(text, wizard_.Box(kPieceMask).Text(), DialectName(wizard_.Connection()));
}

}  // namespace tessaria::wizard
