#include "wizard/catalogue.h"

#include <set>
#include <utility>
#include <vector>

#include "services/message_box.h"
#include "services/trap.h"
#include "tessaria/conversion.h"
#include "tessaria/host/application.h"
#include "tessaria/thread_state.h"
#include "wizard/list_rows.h"
#include "wizard/waiting.h"

namespace tessaria::wizard {
namespace {

constexpr StringView kSources = u"cmbSistema";
constexpr Long kSchemaOrdinal = 1;
constexpr Long kNameOrdinal = 2;
constexpr Long kTypeOrdinal = 3;

bool IsOffered(const host::DialogCombo& list, const String& name) {
  for (Long row = 0; row < list.ListCount(); ++row)
    if (list.List(row) == name) return true;
  return false;
}

bool IsListed(const String& type, bool aliases) {
  static const std::set<String> others = {u"VIEW", u"MATVIEW", u"MATERIALIZED VIEW",
                                          u"FOREIGN TABLE"};
  return type == u"TABLE" || (aliases && others.contains(type));
}

String TextIn(host::Recordset& rows, Long ordinal) {
  const Variant value = rows.Fields().Item(ordinal)->Value();
  return value.IsNull() ? String() : CStr(value);
}

std::vector<CatalogueRow> RowsIn(host::Recordset& rows) {
  std::vector<CatalogueRow> all;
  if (rows.Eof()) return all;
  for (rows.MoveFirst(); !rows.Eof(); rows.MoveNext())
    all.push_back(
        {TextIn(rows, kSchemaOrdinal), TextIn(rows, kNameOrdinal), TextIn(rows, kTypeOrdinal)});
  return all;
}

void Open(Wizard& wizard, const String& source) {
  if (!wizard.cnWizard) wizard.cnWizard = App().NewConnection();
  if (!wizard.cnWizard)
    throw HostError(errors::ObjectNotSet, u"Este programa não tem acesso a fontes de dados.");
  Waiting waiting(wizard, u"Conectando a " + source + u"...",
                  u"Não foi possível conectar a " + source + u".");
  wizard.cnWizard->ConnectionString(u"DSN=" + source);
  wizard.cnWizard->Open();
  waiting.Done();
}

void ListAll(Wizard& wizard) {
  CarregaTabelas(wizard);
  wizard.Button(u"btnConectar").Enabled(false);
}

void ReportFailure(const Wizard& wizard) {
  mdlMsgBox::ExibeMensagem(wizard.window.hWnd(), Err().Description, mdlMsgBox::flag::Stop,
                           u"Erro de Conexão ao Banco Nro: " + CStr(Err().Number));
}

}  // namespace

bool IsConnected(const Wizard& wizard) {
  return wizard.cnWizard && wizard.cnWizard->State() != host::state::Closed;
}

bool ConectaBanco(Wizard& wizard, const String& varSistema, bool blnAvisa) {
  host::DialogCombo& sources = wizard.Combo(kSources);
  if (varSistema.empty()) {
    if (blnAvisa) {
      wizard.Alert(u"Informe o Sistema");
      sources.SetFocus();
    }
    return false;
  }
  if (!IsOffered(sources, varSistema)) return true;
  wizard.colTabelas = {};
  if (IsConnected(wizard)) {
    ListAll(wizard);
    return true;
  }
  return Catch(
      [&] {
        Open(wizard, varSistema);
        ListAll(wizard);
      },
      [&] { ReportFailure(wizard); });
}

void CarregaTabelas(Wizard& wizard) {
  Waiting waiting(wizard, u"Lendo as tabelas...", u"Não foi possível ler as tabelas.");
  const SqlNames names(*wizard.cnWizard);
  const auto rows = wizard.cnWizard->OpenSchema(host::SchemaKind::Tables);
  const std::vector<CatalogueRow> all = RowsIn(*rows);
  wizard.rsTabelas = rows;
  wizard.names = names;
  auto& list = wizard.List(kTableWidgets.lstTodos);
  list.Clear();
  const std::vector<String> tables = names.Tables(all);
  for (std::size_t i = 0; i < all.size(); ++i)
    if (IsListed(all[i].type, wizard.AcceptsAliases())) list.Add(tables[i]);
  AtualizaBotoes(wizard, kTableWidgets);
  waiting.Done();
}

void CarregaCampos(Wizard& wizard, const String& strTabela, host::DialogListView& lstCampos) {
  Waiting waiting(wizard, u"Lendo os campos de " + strTabela + u"...",
                  u"Não foi possível ler os campos de " + strTabela + u".");
  const auto rows = wizard.cnWizard->Execute(u"Select * From " + strTabela + u" Where 1 = Null");
  if (rows->State() == host::state::Closed || rows->Fields().Count() == 0)
    throw HostError(errors::SubscriptOutOfRange, u"A tabela " + strTabela + u" não tem campos.");
  host::Fields& fields = rows->Fields();
  wizard.rsCampos = rows;
  lstCampos.Clear();
  for (Long i = 0; i < fields.Count(); ++i)
    lstCampos.Add(wizard.names.Name(fields.Item(i)->Name()));
  lstCampos.Item(1).Selected(true);
  waiting.Done();
}

void CarregaCamposDe(Wizard& wizard, StringView combo, StringView list) {
  const String text = wizard.Combo(combo).Text();
  if (text.empty()) return;
  const String table = wizard.colTabelas.Item(text);
  if (!wizard.cnWizard) throw HostError(errors::ObjectNotSet);
  CarregaCampos(wizard, table, wizard.List(list));
}

void ListaTabelas(Wizard& wizard, StringView combo) {
  host::DialogCombo& tables = wizard.Combo(combo);
  const String chosen = tables.Text();
  tables.Clear();
  for (const auto& row : RowsOf(wizard.List(kTableWidgets.lstSel))) {
    tables.AddItem(row.Text);
    if (row.Text == chosen) tables.ListIndex(tables.ListCount() - 1);
  }
}

}  // namespace tessaria::wizard
