#include "wizard/grid_tab.h"

#include "services/message_box.h"
#include "services/trap.h"
#include "tessaria/conversion.h"
#include "tessaria/format.h"
#include "tessaria/host/application.h"
#include "tessaria/thread_state.h"
#include "wizard/list_rows.h"
#include "wizard/statement_tab.h"
#include "wizard/waiting.h"

namespace tessaria::wizard {
namespace {

constexpr StringView kColumnChoice = u"cmb4Coluna";
constexpr StringView kColumnCaption = u"txt4GrdCaption";
constexpr StringView kColumnMask = u"txt4GrdMascara";
constexpr StringView kColumnWidth = u"txt4GrdWidth";
constexpr StringView kColumnVisible = u"chk4GrdVisible";
constexpr StringView kSelectedTables = u"lst1TabSel";
constexpr StringView kSelectedFields = u"lst3CmpSel";

String SelectList(const std::vector<String>& fields) {
  String text;
  for (const String& field : fields) text += (text.empty() ? u"" : u", ") + field;
  return text;
}

float Whole(float width) { return static_cast<float>(Round(width)); }

}  // namespace

GridTab::GridTab(Wizard& wizard) : wizard_(wizard) {
  wizard_.Button(u"btn4Retrieve").OnClick = [this] { Retrieve(); };
  wizard_.OnColumns = [this] {
    wizard_.selected.clear();
    ListChoices();
    EnableColumnBoxes();
  };
  EnableColumnBoxes();
  ConnectColumn();
}

void GridTab::ConnectColumn() {
  host::DataGrid& grid = wizard_.Grid();
  grid.OnHeadClick = [this](Long position) { HeadClick(position); };
  grid.OnColResize = [this](Long position) { ColResize(position); };
  wizard_.Combo(kColumnChoice).OnClick = [this] {
    ChooseColumn(wizard_.Combo(kColumnChoice).ListIndex());
  };
  wizard_.Box(kColumnCaption).OnChange = [this] { CaptionChanged(); };
  wizard_.Box(kColumnMask).OnChange = [this] { MaskChanged(); };
  wizard_.Widget(kColumnWidth).OnLostFocus = [this] { WidthLeft(); };
  wizard_.Widget(kColumnVisible).OnLostFocus = [this] { VisibleLeft(); };
}

// --- The statement -------------------------------------------------------------------------------

bool GridTab::LacksSelection() const {
  const bool noTable = wizard_.List(kSelectedTables).Count() == 0;
  const bool noField = wizard_.List(kSelectedFields).Count() == 0;
  if (noTable || noField)
    wizard_.Alert(noTable ? u"Informe o Nome da(s) Tabela(s)" : u"Informe o Nome do(s) Campo(s)");
  return noTable || noField;
}

// A refused statement stays in both texts, so that what is wrong with it can be read.
void GridTab::Retrieve() {
  if (LacksSelection()) return;
  const std::vector<String> fields = TextsOf(wizard_.List(kSelectedFields));
  const String from = FromText(Tables(), TextsOf(wizard_.List(u"lst2Links")));
  wizard_.strCampos = SelectList(fields);
  wizard_.strTabelas = from;
  const auto rows = Try(u"Select " + wizard_.strCampos + u" From " + from + u" Where 1 = Null");
  if (!rows) return OfferStatement();
  wizard_.dcWizard = rows;
  ShowPreview(rows);
  if (rows->State() == host::state::Closed || rows->Fields().Count() == 0) return;
  ListColumns(rows->Fields());
  wizard_.selected = fields;
  const auto first = wizard_.cgrColGrid.Item(1);
  ShowColumn(*first, CStr(first->Width()));
  wizard_.AtualizaAbas();
}

std::vector<FromTable> GridTab::Tables() const {
  std::vector<FromTable> tables;
  auto& list = wizard_.List(kSelectedTables);
  for (Long i = 1; i <= list.Count(); ++i) {
    const host::ListRow& row = list.Item(i);
    const bool isDeclared = wizard_.AcceptsAliases() && wizard_.IsAlias(row.Text());
    tables.push_back({.text = row.Text(),
                      .table = isDeclared ? wizard_.colTabelas.Item(row.Text()) : String(),
                      .isMain = row.Checked(),
                      .tag = row.Tag});
  }
  return tables;
}

/// Null when the database refuses it.
host::RecordsetPtr GridTab::Try(const String& statement) const {
  host::RecordsetPtr rows;
  Catch(
      [&] {
        Waiting waiting(wizard_, u"Executando o comando...", u"O comando não foi executado.");
        rows = wizard_.Connection().Execute(statement);
        waiting.Done();
      },
      [] {});
  return rows;
}

void GridTab::OfferStatement() const {
  const String text =
      LaidOut(wizard_, u"Select " + wizard_.strCampos + u" From " + wizard_.strTabelas);
  const Long answer = mdlMsgBox::ExibeMensagem(wizard_.window.hWnd(), text,
                                               mdlMsgBox::flag::YesNo + mdlMsgBox::flag::Stop,
                                               u"Copiar Para Área de Transferência ?");
  if (answer == host::answer::Yes) TheDesktop().ClipboardText(text);
}

// A grid that keeps its last column lends it to the first field.
void GridTab::ShowPreview(const host::RecordsetPtr& rows) {
  Catch(
      [&] {
        host::DataGrid& grid = wizard_.Grid();
        grid.DataSource(rows);
        while (grid.ColumnCount() > 0) grid.RemoveColumn(grid.ColumnCount() - 1);
      },
      [] {});
}

void GridTab::ListColumns(host::Fields& fields) {
  host::DataGrid& grid = wizard_.Grid();
  wizard_.cgrColGrid.Clear();
  for (Long i = 0; i < fields.Count(); ++i) {
    if (grid.ColumnCount() <= i) grid.AddColumn(i);
    const String name = fields.Item(i)->Name();
    grid.Column(i).Caption(name);
    wizard_.cgrColGrid.Add(name, name, String(), grid.Column(i).Width(), true);
  }
  wizard_.intColAtual = 0;
  wizard_.OnColumns();
}

// Without columns there is nothing that the boxes could set.
void GridTab::EnableColumnBoxes() {
  for (const StringView box : {kColumnCaption, kColumnWidth, kColumnMask, kColumnVisible})
    wizard_.Widget(box).Enabled(HasColumns());
}

// --- Settings of a column ------------------------------------------------------------------------

void GridTab::ListChoices() {
  host::DialogCombo& columns = wizard_.Combo(kColumnChoice);
  columns.Clear();
  for (Long i = 1; i <= wizard_.cgrColGrid.Count(); ++i)
    columns.AddItem(wizard_.cgrColGrid.Item(i)->Campo());
  if (columns.ListCount() > 0) columns.ListIndex(wizard_.intColAtual);
}

std::shared_ptr<ColunaGrid> GridTab::Definition() const {
  return wizard_.cgrColGrid.Item(wizard_.intColAtual + 1);
}

host::GridColumn& GridTab::Preview() const { return wizard_.Grid().Column(wizard_.intColAtual); }

void GridTab::ShowColumn(const ColunaGrid& column, const String& width) {
  const bool visible = column.Visible();
  const String mask = column.Mascara();
  wizard_.Box(kColumnCaption).Text(column.Caption());
  wizard_.Box(kColumnWidth).Text(width);
  wizard_.Box(kColumnMask).Text(mask);
  wizard_.Check(kColumnVisible).Value(visible ? 1 : 0);
}

// Settings that are being typed are stored before another column comes into the boxes. A preview
// can outlive its columns, and its headings then have nothing to choose.
void GridTab::HeadClick(Long position) {
  wizard_.Grid().SetFocus();
  App().DoEvents();
  if (HasColumns()) ChooseColumn(position);
}

void GridTab::ChooseColumn(Long position) {
  const auto column = wizard_.cgrColGrid.Item(position + 1);
  wizard_.intColAtual = static_cast<Integer>(position);
  wizard_.Combo(kColumnChoice).ListIndex(position);
  ShowColumn(*column, CStr(Whole(column->Width())));
}

void GridTab::ColResize(Long position) {
  if (HasColumns())
    wizard_.cgrColGrid.Item(position + 1)->Width(Whole(wizard_.Grid().Column(position).Width()));
  HeadClick(position);
}

void GridTab::CaptionChanged() {
  const String text = wizard_.Box(kColumnCaption).Text();
  const auto column = Definition();
  Preview().Caption(text);
  column->Caption(text);
}

// The preview has no rows, so nothing shows that its column loses the field.
void GridTab::MaskChanged() {
  const String text = wizard_.Box(kColumnMask).Text();
  const auto column = Definition();
  Preview().DataField(text);
  column->Mascara(text);
}

void GridTab::WidthLeft() {
  const Integer width = CInt(wizard_.Box(kColumnWidth).Text());
  const auto column = Definition();
  Preview().Width(width);
  column->Width(width);
}

// The preview shows a column that the lookup hides, so that it can be chosen.
void GridTab::VisibleLeft() { Definition()->Visible(wizard_.Check(kColumnVisible).Value() == 1); }

}  // namespace tessaria::wizard
