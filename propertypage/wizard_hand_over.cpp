#include "propertypage/wizard_hand_over.h"

#include "propertypage/page_widgets.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"
#include "tessaria/tstext.h"
#include "wizard/data_source.h"
#include "wizard/hand_over_texts.h"
#include "wizard/list_rows.h"

namespace tessaria::propertypage {
namespace {

constexpr StringView kSelectedTables = u"lst1TabSel";
constexpr StringView kReturnFields = u"lst7CmpRet";

/// The table whose key is looked up; "" when none is chosen.
String MainTable(const wizard::Wizard& its) {
  auto& tables = its.List(kSelectedTables);
  if (tables.Count() == 1) return tables.Item(1).Text();
  const host::ListRow* main = wizard::CheckedRow(tables);
  return main == nullptr ? String() : main->Text();
}

bool IsJoined(const wizard::Wizard& its) { return its.List(kSelectedTables).Count() != 1; }

/// Whether the text after From is more than the name of the main table.
bool HasFromText(const wizard::Wizard& its) {
  return IsJoined(its) ||
         (its.AcceptsAliases() && its.strTabelas.ends_with(u" as " + MainTable(its)));
}

}  // namespace

WizardHandOver::WizardHandOver(Page& page) : page_(page) {
  page_.Button(u"btnSql").OnClick = [this] { SqlClicked(); };
  page_.Button(u"btnGrid").OnClick = [this] { GridClicked(); };
}

// --- All tabs ------------------------------------------------------------------------------------

void WizardHandOver::SqlClicked() {
  const auto form = frmMontaSql::Instance();
  wizard::Wizard& its = form->Parts();
  OfferObjects(its);
  its.cgrColGrid.Clear();
  if (its.OnColumns) its.OnColumns();
  form->StartFullRun();
  ChooseDataSource(its);
  form->Show();
  if (form->Tag != frmMontaSql::kConfirmed) return;
  TakeStatement(its);
  End(*form);
  page_.Button(u"btnSql").Enabled(false);
}

// The siblings on the form, and the control itself.
void WizardHandOver::OfferObjects(wizard::Wizard& its) const {
  host::DialogCombo& objects = its.Combo(u"cmb6Objeto");
  const host::DialogCombo& siblings = page_.Combo(u"txtTxtIrmao");
  objects.Clear();
  for (Long row = 0; row <= siblings.ListCount(); ++row) {
    const String name = siblings.List(row);
    if (!name.empty() && name != kNone) objects.AddItem(name);
  }
  objects.AddItem(page_.surface.Find<host::DialogDisplay>(u"txtNome").Text());
}

// A choice that was made earlier stays.
void WizardHandOver::ChooseDataSource(wizard::Wizard& its) const {
  host::DialogCombo& sources = its.Combo(u"cmbSistema");
  if (sources.ListIndex() != -1) return;
  const String source = DataSourceOfTheForm();
  for (Long row = 0; !source.empty() && row < sources.ListCount(); ++row)
    if (EqualNoCase(sources.List(row), source)) return sources.ListIndex(row);
}

// That of the field's own data control, or else of the first one that names any.
String WizardHandOver::DataSourceOfTheForm() const {
  const auto field = page_.site.Selected(page_.site.SelectedCount() - 1);
  const auto form = dynamic_cast<const tsText&>(field->Control()).FormDoControle();
  const String own = page_.Combo(u"txtDataSource").Text();
  String first;
  for (const host::WidgetPtr& widget : form->Controls()) {
    const auto data = std::dynamic_pointer_cast<host::DataControl>(widget);
    if (!data) continue;
    const String source = wizard::DataSourceIn(data->ConnectionString());
    if (!source.empty() && data->Name() == own) return source;
    if (first.empty()) first = source;
  }
  return first;
}

void WizardHandOver::TakeStatement(wizard::Wizard& its) {
  page_.Box(u"txtBrwTitulo").Text(its.Box(u"txt4Caption").Text());
  page_.Box(u"txtBrowseTable").Text(MainTable(its));
  TakeNames(its);
  TakeOtherFields(its, IsJoined(its));
  page_.Box(u"txtBrwLeftJoin").Text(HasFromText(its) ? its.strTabelas : String());
  page_.Box(u"txtBrwWhere").Text(wizard::BrwWhere(wizard::RowsOf(its.List(u"lst6CmpSel"))));
  TakeLists(its);
}

// --- The columns of a definition -----------------------------------------------------------------

void WizardHandOver::GridClicked() {
  if (page_.Definition().cgrColGrid().Count() == 0) return;
  const auto form = frmMontaSql::Instance();
  wizard::Wizard& its = form->Parts();
  form->StartGridRun();
  its.strCampos.clear();
  ShowColumns(its);
  ShowSettings(its);
  form->Show();
  if (form->Tag != frmMontaSql::kConfirmed) return;
  host::DialogButton& wizardButton = page_.Button(u"btnSql");
  const bool wasEnabled = wizardButton.Enabled();
  page_.Box(u"txtBrwTitulo").Text(its.Box(u"txt4Caption").Text());
  TakeNames(its);
  wizardButton.Enabled(wasEnabled);
  TakeOtherFields(its, !page_.Box(u"txtBrwLeftJoin").Text().empty());
  TakeLists(its);
  End(*form);
}

// The wizard works on copies, so that a run can be given up.
void WizardHandOver::ShowColumns(wizard::Wizard& its) {
  ListaColunas& columns = page_.Definition().cgrColGrid();
  host::DataGrid& grid = its.Grid();
  while (grid.ColumnCount() > 1) grid.RemoveColumn(grid.ColumnCount() - 1);
  for (Long i = 0; i < columns.Count(); ++i) {
    if (i >= grid.ColumnCount()) grid.AddColumn(i);
    const auto column = columns.Item(i + 1);
    grid.Column(i).Caption(column->Caption());
    grid.Column(i).Width(column->Width());
    grid.Column(i).Visible(column->Visible());
  }
  mdlObjTxt::CopiaColunas(columns, its.cgrColGrid, false);
  its.intColAtual = 0;
  if (its.OnColumns) its.OnColumns();
}

void WizardHandOver::ShowSettings(wizard::Wizard& its) {
  const auto column = page_.Definition().cgrColGrid().Item(1);
  its.Box(u"txt4GrdCaption").Text(column->Caption());
  its.Box(u"txt4GrdWidth").Text(CStr(column->Width()));
  its.Box(u"txt4GrdMascara").Text(column->Mascara());
  its.Check(u"chk4GrdVisible").Value(column->Visible() ? 1 : 0);
  its.Box(u"txt4Caption").Text(page_.Box(u"txtBrwTitulo").Text());
  its.Box(u"txt7CampoChave").Text(page_.Box(u"txtBrwCampo").Text());
  its.Box(u"txt7CampoIrmao").Text(page_.Box(u"txtBrwCampoIrmao").Text());
  its.List(kReturnFields).Clear();
  const ListaOutros& others = page_.Definition().Outros();
  for (Long i = 1; i <= others.Count(); ++i) its.List(kReturnFields).Add(others.Item(i)->Nome());
}

// --- What both runs bring back -------------------------------------------------------------------

void WizardHandOver::TakeNames(wizard::Wizard& its) {
  page_.Box(u"txtBrwCampo").Text(its.Box(u"txt7CampoChave").Text());
  page_.Box(u"txtBrwCampoIrmao").Text(its.Box(u"txt7CampoIrmao").Text());
}

void WizardHandOver::TakeOtherFields(wizard::Wizard& its, bool joined) {
  // With aliases the wizard gives both names as the select list has them.
  const bool bare = joined && !its.AcceptsAliases();
  const String table = bare ? page_.Box(u"txtBrowseTable").Text() : String();
  its.strCampos = wizard::BrwCampoOutros(its.strCampos, page_.Box(u"txtBrwCampo").Text(),
                                         page_.Box(u"txtBrwCampoIrmao").Text(), table);
  page_.Box(u"txtBrwCampoOutros").Text(its.strCampos);
}

void WizardHandOver::TakeLists(wizard::Wizard& its) {
  ListaOutros& others = page_.Definition().Outros();
  others.Clear();
  for (const auto& row : wizard::RowsOf(its.List(kReturnFields))) others.Add(row.Text);
  mdlObjTxt::CopiaColunas(its.cgrColGrid, page_.Definition().cgrColGrid(), true);
}

void WizardHandOver::End(frmMontaSql& form) {
  form.Unload();
  page_.site.Changed(true);
}

}  // namespace tessaria::propertypage
