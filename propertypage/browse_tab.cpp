#include "propertypage/browse_tab.h"

#include <iterator>
#include <utility>

#include "services/message_box.h"
#include "tessaria/conversion.h"
#include "tessaria/host/application.h"

namespace tessaria::propertypage {
namespace {

using Definition = tessaria::Browse;

/// A text of the definition. The flat property of the control has the same name.
struct Field {
  StringView name;
  StringView box;
  String (Definition::*read)() const;
  void (Definition::*write)(const String& text);
};

constexpr Field kFields[] = {
    {u"BrwTitulo", u"txtBrwTitulo", &Definition::BrwTitulo, &Definition::BrwTitulo},
    {u"BrowseTable", u"txtBrowseTable", &Definition::BrowseTable, &Definition::BrowseTable},
    {u"BrwCampo", u"txtBrwCampo", &Definition::BrwCampo, &Definition::BrwCampo},
    {u"BrwCampoIrmao", u"txtBrwCampoIrmao", &Definition::BrwCampoIrmao, &Definition::BrwCampoIrmao},
    {u"BrwCampoOutros", u"txtBrwCampoOutros", &Definition::BrwCampoOutros,
     &Definition::BrwCampoOutros},
    {u"BrwGroupBy", u"txtBrwGroupBy", &Definition::BrwGroupBy, &Definition::BrwGroupBy},
    {u"BrwLeftJoin", u"txtBrwLeftJoin", &Definition::BrwLeftJoin, &Definition::BrwLeftJoin},
    {u"BrwWhere", u"txtBrwWhere", &Definition::BrwWhere, &Definition::BrwWhere},
};

constexpr StringView kTable = u"txtBrowseTable";
constexpr StringView kKey = u"txtBrwCampo";
constexpr StringView kSibling = u"txtBrwCampoIrmao";
constexpr Long kYes = host::answer::Yes;

void CopyColumn(const ListaColunas& from, Long position, ListaColunas& to) {
  const auto column = from.Item(position);
  to.Add(column->Campo(), column->Caption(), column->Mascara(), column->Width(), column->Visible());
}

}  // namespace

BrowseTab::BrowseTab(Page& page) : page_(page), flat_(std::size(kFields)) { Connect(); }

void BrowseTab::Connect() {
  for (std::size_t i = 0; i < std::size(kFields); ++i)
    page_.Box(kFields[i].box).OnChange = [this, i] { Typed(i); };
  page_.Button(u"btnLimpar").OnClick = [this] { Clear(); };
}

void BrowseTab::Take(const host::TsTextWidget& control) {
  for (std::size_t i = 0; i < std::size(kFields); ++i)
    flat_[i] = CStr(control.Get(String(kFields[i].name)));
  page_.browse = ObjectIn<Definition>(control.Get(u"Browse"));
  MigraBrowse();
  for (const Field& field : kFields) page_.Box(field.box).Text((page_.Definition().*field.read)());
}

// What the definition has wins.
void BrowseTab::MigraBrowse() {
  for (std::size_t i = 0; i < std::size(kFields); ++i) {
    const Field& field = kFields[i];
    const String former = std::exchange(flat_[i], String());
    Definition& definition = page_.Definition();
    if ((definition.*field.read)().empty()) (definition.*field.write)(former);
  }
}

void BrowseTab::Typed(std::size_t field) {
  if (page_.IsLoading()) return;
  const Field& row = kFields[field];
  (page_.Definition().*row.write)(page_.Box(row.box).Text());
  if (row.box == kTable || row.box == kKey) {
    page_.Button(u"btnSql").Enabled(page_.Box(kTable).Text().empty() &&
                                    page_.Box(kKey).Text().empty());
  }
  page_.site.Changed(true);
}

void BrowseTab::Apply(host::TsTextWidget& control) {
  for (std::size_t i = 0; i < std::size(kFields); ++i)
    control.Let(String(kFields[i].name), flat_[i]);
  control.Let(u"Pesquisa", Variant(page_.pesquisa));
  for (const Field& field : kFields) (page_.Definition().*field.write)(page_.Box(field.box).Text());
  control.Let(u"Browse", Variant(page_.browse));
}

void BrowseTab::Entered() {
  page_.Button(u"btnGrid").Enabled(page_.Definition().cgrColGrid().Count() > 0);
  page_.Button(u"btnSql").Enabled(page_.Box(kTable).Text().empty());
}

void BrowseTab::Clear() {
  const Long answer = mdlMsgBox::ExibeMensagem(
      page_.surface.hWnd(), u"Confirma a Limpeza das Propriedades: 'Grid' e 'Pesquisa'",
      mdlMsgBox::flag::YesNo, u"Alerta!");
  if (answer != kYes) return;
  page_.pesquisa->Clear();
  page_.Definition().cgrColGrid().Clear();
  page_.Definition().Outros().Clear();
  page_.site.Changed(true);
}

void BrowseTab::CopiaIrmao(const Definition& sibling) {
  for (const Field& field : kFields) {
    auto read = field.read;
    if (field.box == kKey) read = &Definition::BrwCampoIrmao;
    if (field.box == kSibling) read = &Definition::BrwCampo;
    page_.Box(field.box).Text((sibling.*read)());
  }
  ListaColunas& columns = page_.Definition().cgrColGrid();
  const ListaColunas& its = sibling.cgrColGrid();
  if (columns.Count() > 0 || its.Count() < 2) return;
  CopyColumn(its, 2, columns);
  CopyColumn(its, 1, columns);
  for (Long i = 3; i <= its.Count(); ++i) CopyColumn(its, i, columns);
}

}  // namespace tessaria::propertypage
