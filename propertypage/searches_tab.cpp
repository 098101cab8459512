#include "propertypage/searches_tab.h"

#include <algorithm>

#include "tessaria/conversion.h"

namespace tessaria::propertypage {
namespace {

struct TextBoxRow {
  StringView box;
  String (*read)(const ItemPesquisa& item);
  void (*write)(ItemPesquisa& item, const String& text);
};

constexpr StringView kNumbers[] = {u"txtPesqWidth", u"txtPesqMaxLength"};

/// The leading digits of a text; 0 without any.
Integer NumberIn(const String& text) {
  const auto end =
      std::find_if_not(text.begin(), text.end(), [](char16_t c) { return c >= u'0' && c <= u'9'; });
  return CInt(Val(String(text.begin(), end)));
}

constexpr TextBoxRow kTexts[] = {
    {u"txtPesqCaption", [](const ItemPesquisa& item) { return item.Caption(); },
     [](ItemPesquisa& item, const String& text) { item.Caption(text); }},
    {u"txtPesqCampo", [](const ItemPesquisa& item) { return item.Campo(); },
     [](ItemPesquisa& item, const String& text) { item.Campo(text); }},
    {u"txtPesqMascara", [](const ItemPesquisa& item) { return item.Mascara(); },
     [](ItemPesquisa& item, const String& text) { item.Mascara(text); }},
    {u"txtPesqWidth", [](const ItemPesquisa& item) { return CStr(item.Width()); },
     [](ItemPesquisa& item, const String& text) { item.Width(NumberIn(text)); }},
    {u"txtPesqMaxLength", [](const ItemPesquisa& item) { return CStr(item.MaxLength()); },
     [](ItemPesquisa& item, const String& text) { item.MaxLength(NumberIn(text)); }},
};

struct CheckBoxRow {
  StringView box;
  bool (*read)(const ItemPesquisa& item);
  void (*write)(ItemPesquisa& item, bool value);
};

constexpr CheckBoxRow kChecks[] = {
    {u"chkPesqCompletaTexto", [](const ItemPesquisa& item) { return item.CompletaDescr(); },
     [](ItemPesquisa& item, bool value) { item.CompletaDescr(value); }},
    {u"chkPesqPromptInclude", [](const ItemPesquisa& item) { return item.PromptInclude(); },
     [](ItemPesquisa& item, bool value) { item.PromptInclude(value); }},
};

struct OptionRow {
  StringView option;
  Long value;
};

// The first option that is set counts.
constexpr OptionRow kTypes[] = {
    {u"optPesqNumerico", 2}, {u"optPesqString", 8}, {u"optPesqData", 7}};
constexpr OptionRow kLikes[] = {{u"optPesqIgualCampo", 0},
                                {u"optPesqFinalCampo", 2},
                                {u"optPesqInicioCampo", 1},
                                {u"optPesqEntreCampo", 3}};
constexpr StringView kFrames[] = {u"fraPesqTipoDado", u"fraPesqTipoBusca"};

host::DialogOption& Option(const Page& page, const OptionRow& row) {
  return page.surface.Find<host::DialogOption>(row.option);
}

void ShowOption(const Page& page, std::span<const OptionRow> rows, Long value) {
  for (const OptionRow& row : rows) Option(page, row).Value(row.value == value);
}

/// `value` where none is set.
Long SetOption(const Page& page, std::span<const OptionRow> rows, Long value) {
  const auto set = std::find_if(rows.begin(), rows.end(),
                                [&](const OptionRow& row) { return Option(page, row).Value(); });
  return set == rows.end() ? value : set->value;
}

}  // namespace

SearchesTab::SearchesTab(Page& page) : page_(page) { Connect(); }

void SearchesTab::Connect() {
  const auto save = [this] { SaveAndTell(); };
  for (const TextBoxRow& row : kTexts)
    page_.surface.Find<host::DialogTextBox>(row.box).OnLostFocus = save;
  for (const CheckBoxRow& row : kChecks) page_.Check(row.box).OnClick = save;
  for (const OptionRow& row : kTypes) Option(page_, row).OnClick = save;
  for (const OptionRow& row : kLikes) Option(page_, row).OnClick = save;
  page_.Button(u"btnAnterior").OnClick = [this] { Previous(); };
  page_.Button(u"btnProximo").OnClick = [this] { Next(); };
  page_.Button(u"btnIncluir").OnClick = [this] { Insert(); };
  page_.Button(u"btnExcluir").OnClick = [this] { Remove(); };
}

void SearchesTab::ShowFirst() {
  PosPesquisa = Count() > 0 ? 1 : 0;
  MostraPesquisa();
}

// The list may have been emptied behind the search that was shown.
void SearchesTab::MostraPesquisa() {
  PosPesquisa = std::min(PosPesquisa, Count());
  const bool isThere = PosPesquisa != 0;
  const auto enable = [&](StringView name) {
    page_.surface.Find<host::DialogWidget>(name).Enabled(isThere);
  };
  for (const TextBoxRow& row : kTexts) enable(row.box);
  for (const CheckBoxRow& row : kChecks) enable(row.box);
  for (const StringView frame : kFrames) enable(frame);
  page_.Button(u"btnAnterior").Enabled(PosPesquisa >= 2);
  page_.Button(u"btnProximo").Enabled(isThere && PosPesquisa != Count());
  page_.Button(u"btnExcluir").Enabled(isThere);
  const auto item = isThere ? page_.pesquisa->Item(PosPesquisa) : nullptr;
  for (const TextBoxRow& row : kTexts) page_.Box(row.box).Text(item ? row.read(*item) : String());
  for (const CheckBoxRow& row : kChecks) page_.Check(row.box).Value(item && row.read(*item));
  if (!item) return;
  ShowOption(page_, kTypes, item->Tipo());
  ShowOption(page_, kLikes, item->Like());
}

void SearchesTab::SalvaPesquisa() {
  if (!HasItem()) return;
  const auto item = page_.pesquisa->Item(PosPesquisa);
  // A number that is too large raises its error before anything is stored.
  for (const StringView box : kNumbers) NumberIn(page_.Box(box).Text());
  for (const TextBoxRow& row : kTexts) row.write(*item, page_.Box(row.box).Text());
  for (const CheckBoxRow& row : kChecks) row.write(*item, page_.Check(row.box).Value() == 1);
  item->Tipo(SetOption(page_, kTypes, item->Tipo()));
  item->Like(SetOption(page_, kLikes, item->Like()));
}

void SearchesTab::SaveAndTell() {
  SalvaPesquisa();
  page_.site.Changed(true);
}

void SearchesTab::Previous() {
  SalvaPesquisa();
  if (PosPesquisa <= 1) return;
  --PosPesquisa;
  MostraPesquisa();
}

void SearchesTab::Next() {
  SalvaPesquisa();
  if (PosPesquisa >= Count()) return;
  ++PosPesquisa;
  MostraPesquisa();
}

// Behind the search that is shown.
void SearchesTab::Insert() {
  SalvaPesquisa();
  PosPesquisa = std::min(PosPesquisa, Count()) + 1;
  const Long before = PosPesquisa <= Count() ? PosPesquisa : 0;
  page_.pesquisa->Add(0, u"", u"", 0, 0, u"", 0, 0, false, false, before, 0, FreeKey(PosPesquisa));
  MostraPesquisa();
  page_.surface.Find<host::DialogTextBox>(u"txtPesqCaption").SetFocus();
}

// Searches that were removed leave gaps in the keys.
String SearchesTab::FreeKey(Long position) const {
  const String plain = u"Pesquisa" + CStr(position);
  String key = plain;
  for (Long counter = 1; page_.pesquisa->Contains(key); ++counter)
    key = plain + u"_" + CStr(counter);
  return key;
}

void SearchesTab::Remove() {
  if (!HasItem()) return;
  page_.pesquisa->Remove(PosPesquisa);
  PosPesquisa = std::min(PosPesquisa, Count());
  MostraPesquisa();
}

}  // namespace tessaria::propertypage
