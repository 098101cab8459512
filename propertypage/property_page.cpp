#include "propertypage/property_page.h"

#include <utility>

#include "propertypage/page_widgets.h"
#include "services/trap.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"
#include "tessaria/tstext.h"

namespace tessaria {

using propertypage::kNone;
using propertypage::Tab;

namespace {

/// A combo box that offers the controls of the form.
struct NameRow {
  StringView box;
  StringView property;
};

constexpr StringView kSibling = u"txtTxtIrmao";
constexpr NameRow kSource{u"txtDataSource", u"DataSource"};
constexpr NameRow kNames[] = {{kSibling, u"TxtIrmao"},
                              {u"txtLabel", u"LabelAssociado"},
                              {u"txtObjetoCancelar", u"ObjetoCancelar"}};
constexpr StringView kType = u"txtTipoControle";
constexpr StringView kTabs = u"tabPropriedade";

void AddOnce(host::DialogCombo& list, const String& name) {
  for (Long row = 0; row < list.ListCount(); ++row)
    if (list.List(row) == name) return;
  list.AddItem(name);
}

/// An assignment may change other properties too, which nobody wants who has changed nothing.
void PutIfOther(host::TsTextWidget& control, const String& property, const Variant& value) {
  if (CStr(control.Get(property)) != CStr(value)) control.Let(property, value);
}

String NameOrNone(const String& name) { return name.empty() ? String(kNone) : name; }

String NameIn(const host::DialogCombo& list) {
  const String text = list.Text();
  return text == kNone ? String() : text;
}

}  // namespace

const host::DialogDescription& tsTextProperty::Description() { return propertypage::Description(); }

tsTextProperty::tsTextProperty(host::SurfacePtr surface, host::PropertyPageSite& site)
    : surface_(std::move(surface)),
      page_(*surface_, site),
      browseTab_(page_),
      searchesTab_(page_),
      wizardHandOver_(page_) {
  Connect();
}

void tsTextProperty::Connect() {
  const auto change = [this] {
    if (!page_.IsLoading()) page_.site.Changed(true);
  };
  page_.Combo(kType).OnClick = [this] { TypeClicked(); };
  for (const StringView box : {u"txtMascara", u"txtDataField"}) page_.Box(box).OnChange = change;
  for (const StringView box : {u"chkPodeSerBranco", u"chkeSocial"})
    page_.Check(box).OnClick = change;
  for (const StringView list : {u"txtDataSource", u"txtLabel", u"txtObjetoCancelar"})
    page_.Combo(list).OnClick = change;
  page_.Combo(kSibling).OnClick = page_.Combo(kSibling).OnLostFocus = [this] { CopiaIrmao(); };
  surface_->Find<host::DialogTabs>(kTabs).OnClick = [this](Long former) { TabClicked(former); };
}

std::shared_ptr<host::TsTextWidget> tsTextProperty::Control() const {
  return page_.site.Selected(page_.site.SelectedCount() - 1);
}

// --- Taking over what the control holds ----------------------------------------------------------

void tsTextProperty::PropertyPage_SelectionChanged() {
  const auto control = Control();
  page_.loading = true;
  const auto end = std::shared_ptr<void>(nullptr, [this](void*) { page_.loading = false; });
  surface_->Find<host::DialogDisplay>(u"txtNome").Text(control->Name());
  surface_->Find<host::DialogLabel>(u"lblEstado")
      .Caption(dynamic_cast<const tsText&>(control->Control()).DesignTimeError());
  const Long type = CLng(control->Get(u"TipoControle"));
  const bool isRow = type >= 0 && type < page_.Combo(kType).ListCount();
  page_.Combo(kType).ListIndex(isRow ? type : 0);
  TypeClicked();
  page_.Box(u"txtMascara").Text(CStr(control->Get(u"Mascara")));
  page_.Check(u"chkPodeSerBranco").Value(CBool(control->Get(u"PodeSerBranco")) ? 1 : 0);
  page_.Check(u"chkeSocial").Value(CBool(control->Get(u"eSocial")) ? 1 : 0);
  page_.pesquisa = control->Get(u"Pesquisa").As<Pesquisa>();
  if (!std::exchange(bCarregado, true)) TakeFirst();
  TakeNames();
  browseTab_.Take(*control);
  page_.site.Changed(false);
}

// What is done once an instance.
void tsTextProperty::TakeFirst() {
  objForm = dynamic_cast<const tsText&>(Control()->Control()).FormDoControle();
  page_.Combo(kSource.box).AddItem(String(kNone));
  for (const NameRow& row : kNames) page_.Combo(row.box).AddItem(String(kNone));
  CarregaListas(Mode::Todos);
  searchesTab_.ShowFirst();
}

// The name of a control that is gone is no row, and leaves "<Nenhum>".
void tsTextProperty::TakeNames() {
  const auto control = Control();
  const auto take = [&](const NameRow& row) {
    host::DialogCombo& list = page_.Combo(row.box);
    list.ListIndex(0);
    const String name = NameOrNone(CStr(control->Get(String(row.property))));
    Catch([&] { list.Text(name); }, [] {});
  };
  take(kSource);
  page_.Box(u"txtDataField").Text(CStr(control->Get(u"DataField")));
  for (const NameRow& row : kNames) take(row);
}

void tsTextProperty::CarregaListas(Mode mode) {
  objIrmao = nullptr;
  const String sibling = page_.Combo(kSibling).Text();
  for (const host::WidgetPtr& control : objForm->Controls()) {
    if (mode == Mode::Todos) AddToLists(*control);
    if (!sibling.empty() && control->Name() == sibling)
      objIrmao = std::dynamic_pointer_cast<host::TsTextWidget>(control);
  }
}

void tsTextProperty::AddToLists(const host::Widget& control) {
  const String type = control.TypeName();
  const String name = control.Name();
  const auto add = [&](StringView list) { AddOnce(page_.Combo(list), name); };
  if (Right(type, 5) == u"Adodc") add(kSource.box);
  if (type == u"tsText" && name != surface_->Find<host::DialogDisplay>(u"txtNome").Text()) {
    add(kSibling);
  }
  if (type == u"Label") add(u"txtLabel");
  if (type == u"CommandButton") add(u"txtObjetoCancelar");
}

// --- What the developer does ---------------------------------------------------------------------

Long tsTextProperty::ChosenType() const {
  return static_cast<Long>(Val(Left(page_.Combo(kType).Text(), 1)));
}

// Only a field with a lookup has the tabs of the lookup.
void tsTextProperty::TypeClicked() {
  const Long type = ChosenType();
  const bool looksUp = type == static_cast<Long>(TipoControle::Browse) ||
                       type == static_cast<Long>(TipoControle::Descricao);
  auto& tabs = surface_->Find<host::DialogTabs>(kTabs);
  for (const Tab tab : {Tab::Browse, Tab::Pesquisa})
    tabs.TabEnabled(static_cast<Long>(tab), looksUp);
  if (!looksUp) tabs.Tab(static_cast<Long>(Tab::Principal));
  if (!page_.IsLoading()) page_.site.Changed(true);
}

void tsTextProperty::TabClicked(Long previous) {
  const Long now = surface_->Find<host::DialogTabs>(kTabs).Tab();
  if (now != previous && now == static_cast<Long>(Tab::Browse)) browseTab_.Entered();
}

void tsTextProperty::CopiaIrmao() {
  CarregaListas(Mode::TxtIrmao);
  if (objIrmao && ChosenType() == static_cast<Long>(TipoControle::Descricao)) {
    if (const auto its = propertypage::ObjectIn<Browse>(objIrmao->Get(u"Browse")))
      browseTab_.CopiaIrmao(*its);
  }
  page_.site.Changed(true);
}

// --- Writing -------------------------------------------------------------------------------------

void tsTextProperty::PropertyPage_ApplyChanges() {
  const auto control = Control();
  const auto put = [&](StringView property, const Variant& value) {
    PutIfOther(*control, String(property), value);
  };
  put(u"TipoControle", ChosenType());
  for (const NameRow& row : kNames) put(row.property, NameIn(page_.Combo(row.box)));
  put(u"Mascara", page_.Box(u"txtMascara").Text());
  put(u"PodeSerBranco", page_.Check(u"chkPodeSerBranco").Value() == 1);
  put(u"eSocial", page_.Check(u"chkeSocial").Value() == 1);
  put(kSource.property, NameIn(page_.Combo(kSource.box)));
  put(u"DataField", page_.Box(u"txtDataField").Text());
  browseTab_.Apply(*control);
}

}  // namespace tessaria
