#include "wizard/links_tab.h"

#include "wizard/catalogue.h"
#include "wizard/foreign_key.h"
#include "wizard/list_rows.h"
#include "wizard/waiting.h"

namespace tessaria::wizard {
namespace {

constexpr StringView kParent = u"cmb2TabPai";
constexpr StringView kParentFields = u"lst2CmpPai";
constexpr StringView kChild = u"cmb2TabFilho";
constexpr StringView kChildFields = u"lst2CmpFilho";
constexpr StringView kLinks = u"lst2Links";

void SelectText(host::DialogListView& list, const String& text) {
  if (host::ListRow* row = list.FindItem(text)) {
    row->Selected(true);
    row->EnsureVisible();
  }
}

}  // namespace

LinksTab::LinksTab(Wizard& wizard) : wizard_(wizard) {
  const auto load = [this](StringView combo, StringView list) {
    CarregaCamposDe(wizard_, combo, list);
    SelectForeignKey();
  };
  wizard_.Combo(kParent).OnClick = [load] { load(kParent, kParentFields); };
  wizard_.Combo(kChild).OnClick = [load] { load(kChild, kChildFields); };
  wizard_.Button(u"btn2LnkAdiciona").OnClick = [this] { AddLink(); };
  wizard_.Button(u"btn2LnkRemove").OnClick = [this] { RemoveSelected(wizard_.List(kLinks)); };
  wizard_.OnEnter(Tab::Links) = [this] {
    for (const StringView combo : {kChild, kParent}) ListaTabelas(wizard_, combo);
  };
}

void LinksTab::SelectForeignKey() {
  const String parent = wizard_.Combo(kParent).Text();
  const String child = wizard_.Combo(kChild).Text();
  if (!wizard_.AcceptsAliases() || parent.empty() || child.empty() || parent == child) return;
  const NamedTexts& tables = wizard_.colTabelas;
  Waiting waiting(wizard_, u"Lendo as chaves estrangeiras...",
                  u"Não foi possível ler as chaves estrangeiras.");
  const auto key = ForeignKey(*wizard_.cnWizard, tables.Item(parent), tables.Item(child));
  waiting.Done();
  if (!key) return;
  SelectText(wizard_.List(kParentFields), wizard_.names.Name(key->parent));
  SelectText(wizard_.List(kChildFields), wizard_.names.Name(key->child));
}

bool LinksTab::IsLinkOfOneTable() const {
  const String parent = wizard_.Combo(kParent).Text();
  const String child = wizard_.Combo(kChild).Text();
  if (wizard_.AcceptsAliases()) return parent == child;
  return wizard_.colTabelas.Item(child) == wizard_.colTabelas.Item(parent);
}

void LinksTab::AddLink() {
  const String parent = wizard_.Combo(kParent).Text();
  const String child = wizard_.Combo(kChild).Text();
  if (child.empty() || parent.empty())
    return wizard_.Alert(u"As Duas Tabelas Devem Ser Informadas");
  if (IsLinkOfOneTable()) return wizard_.Alert(u"Não é Possivel Fazer Link Entre a Mesma Tabela");
  const String link = child + u"." + SelectedRow(wizard_.List(kChildFields)).Text() + u"=" +
                      parent + u"." + SelectedRow(wizard_.List(kParentFields)).Text();
  auto& links = wizard_.List(kLinks);
  if (links.FindTag(child) != nullptr) return wizard_.Alert(u"Link Já Criado");
  links.Add(link).Tag = child;
}

}  // namespace tessaria::wizard
