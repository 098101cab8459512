#include "wizard/frm_monta_sql.h"

#include <utility>

#include "lookup/sql_family.h"
#include "tessaria/thread_state.h"
#include "wizard/catalogue.h"
#include "wizard/format_sql.h"
#include "wizard/list_rows.h"

namespace tessaria {

using wizard::Tab;

namespace {

constexpr StringView kNoMainTable = u"Marque a Tabela Que Será a Principal";

}  // namespace

const host::DialogDescription& frmMontaSql::Description() { return wizard::Description(); }

std::shared_ptr<frmMontaSql> frmMontaSql::Instance() {
  auto& slot = State().frmMontaSql;
  if (!slot) slot = std::make_shared<frmMontaSql>();
  return slot;
}

frmMontaSql::frmMontaSql()
    : dialog_(TheDesktop().MakeDialog(Description())),
      wizard_(*dialog_),
      tablesTab_(wizard_),
      linksTab_(wizard_),
      fieldsTab_(wizard_),
      gridTab_(wizard_),
      orderTab_(wizard_),
      whereTab_(wizard_),
      returnTab_(wizard_),
      statementTab_(wizard_) {
  Connect();
  wizard_.Widget(u"lstSel").Visible(false);
  ShowGridRun();
  AtualizaAbas();
}

frmMontaSql::~frmMontaSql() = default;

void frmMontaSql::Connect() {
  wizard_.AtualizaAbas = [this] { AtualizaAbas(); };
  ConnectFieldLists();
  wizard_.Tabs().OnClick = [this](Long previous) { TabClicked(previous); };
  wizard_.Box(u"txt7CampoChave").OnChange = [this] { EnableConfirm(); };
  wizard_.Button(u"btnVoltar").OnClick = [this] { Leave(u"Voltar"); };
  wizard_.Button(u"btnConfirma").OnClick = [this] { Confirm(); };
  dialog_->OnCloseRequest = [this] {
    Leave(u"Voltar");
    Unload();
  };
}

// The tabs that show the fields of one table.
void frmMontaSql::ConnectFieldLists() {
  struct Fields {
    Tab tab;
    StringView combo, list;
  };
  static constexpr Fields kFields[] = {{Tab::Campos, u"cmb3Tab", u"lst3Cmp"},
                                       {Tab::Where, u"cmb6Tab", u"lst6Cmp"}};
  for (const Fields& fields : kFields) {
    wizard_.Combo(fields.combo).OnClick = [this, fields] {
      wizard::CarregaCamposDe(wizard_, fields.combo, fields.list);
    };
    wizard_.OnEnter(fields.tab) = [this, fields] { wizard::ListaTabelas(wizard_, fields.combo); };
  }
}

// --- Tabs ----------------------------------------------------------------------------------------

void frmMontaSql::TabClicked(Long previous) {
  host::DialogTabs& tabs = wizard_.Tabs();
  if (previous == tabs.Tab()) return;
  if (previous == static_cast<Long>(Tab::Tabelas)) TakeMainTable();
  if (const auto& enter = wizard_.OnEnter(static_cast<Tab>(tabs.Tab()))) enter();
  AtualizaAbas();
}

// A single table is the main one without being asked for.
void frmMontaSql::TakeMainTable() {
  auto& tables = wizard_.List(u"lst1TabSel");
  if (tables.Count() == 1) tables.Item(1).Checked(true);
  if (!LacksMainTable()) return;
  wizard_.Tabs().Tab(static_cast<Long>(Tab::Tabelas));
  wizard_.Alert(String(kNoMainTable));
}

bool frmMontaSql::LacksMainTable() const {
  auto& tables = wizard_.List(u"lst1TabSel");
  return tables.Count() > 1 && wizard::CheckedRow(tables) == nullptr;
}

// A grid without fields keeps columns without a caption.
bool frmMontaSql::HasRetrieved() const {
  host::DataGrid& grid = wizard_.Grid();
  return grid.ColumnCount() >= 1 && !grid.Column(0).Caption().empty();
}

String frmMontaSql::tsFormatSQL(const String& strCampo, const String& strMascara) const {
  return wizard::FormatSql(strCampo, strMascara, DialectName(wizard_.Connection()));
}

void frmMontaSql::AtualizaAbas() {
  const Long tables = wizard_.List(u"lst1TabSel").Count();
  const bool retrieved = HasRetrieved();
  const auto enable = [&](Tab tab, bool enabled) {
    wizard_.Tabs().TabEnabled(static_cast<Long>(tab), enabled);
  };
  enable(Tab::Links, tables >= 2);
  enable(Tab::Campos, tables >= 1);
  enable(Tab::Grid, retrieved || wizard_.List(u"lst3CmpSel").Count() >= 1);
  enable(Tab::Ordem, retrieved);
  enable(Tab::Where, tables > 0);
  enable(Tab::Retorno, retrieved);
  enable(Tab::SqlPronta, retrieved);
  EnableConfirm();
}

void frmMontaSql::EnableConfirm() {
  wizard_.Button(u"btnConfirma").Enabled(!wizard_.Box(u"txt7CampoChave").Text().empty());
}

// --- Runs ----------------------------------------------------------------------------------------

void frmMontaSql::StartFullRun() {
  if (!std::exchange(isGridRun_, false)) return;
  ShowGridRun();
  EmptyGrid();
  wizard_.Tabs().TabEnabled(static_cast<Long>(Tab::Tabelas), true);
  wizard_.Tabs().Tab(static_cast<Long>(Tab::Tabelas));
  AtualizaAbas();
}

// The columns of a definition were not retrieved here.
void frmMontaSql::EmptyGrid() {
  host::DataGrid& grid = wizard_.Grid();
  wizard_.dcWizard = nullptr;
  grid.DataSource(nullptr);
  while (grid.ColumnCount() > 1) grid.RemoveColumn(grid.ColumnCount() - 1);
  if (grid.ColumnCount() == 1) grid.Column(0).Caption(String());
}

void frmMontaSql::StartGridRun() {
  isGridRun_ = true;
  ShowGridRun();
  wizard_.Tabs().Tab(static_cast<Long>(Tab::Grid));
  for (Long tab = 0; tab < wizard::kTabs; ++tab) {
    const bool isOfColumns =
        static_cast<Tab>(tab) == Tab::Grid || static_cast<Tab>(tab) == Tab::Retorno;
    wizard_.Tabs().TabEnabled(tab, isOfColumns);
  }
}

void frmMontaSql::ShowGridRun() {
  wizard_.Button(u"btn4Retrieve").Enabled(!isGridRun_);
  wizard_.Widget(u"lblCampoOutros").Visible(isGridRun_);
}

// --- Leaving -------------------------------------------------------------------------------------

// The columns of a definition have their tables already.
void frmMontaSql::Confirm() {
  if (!isGridRun_ && LacksMainTable()) return wizard_.Alert(String(kNoMainTable));
  Leave(String(kConfirmed));
}

void frmMontaSql::Leave(const String& how) {
  Tag = how;
  dialog_->Hide();
}

void frmMontaSql::Show() {
  Tag.clear();
  dialog_->ShowModal();
}

void frmMontaSql::Unload() {
  dialog_->Hide();
  auto& slot = State().frmMontaSql;
  if (slot.get() == this) slot = nullptr;
}

}  // namespace tessaria
