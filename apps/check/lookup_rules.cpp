// Lookups by themselves, and the two of a pair.
#include "apps/check/near_name.h"
#include "apps/check/rules.h"
#include "tessaria/text.h"

namespace tessaria::formcheck {
namespace {

/// The first line of the field's own texts whose name begins so; null without one.
const Setting* OwnText(const Field& field, StringView start) {
  for (const Setting& setting : field.settings) {
    const bool isOwn = setting.key.find(u'.') == String::npos;
    if (isOwn && EqualNoCase(StringView(setting.key).substr(0, start.size()), start))
      return &setting;
  }
  return nullptr;
}

void CheckOwnTexts(const Field& field, Findings& findings) {
  for (const StringView key : kLookupTexts) {
    const String own = field.Text(key);
    if (own.empty()) continue;
    const String inDefinition = field.Text(u"Browse." + String(key));
    const std::string line = "Browse." + ToUtf8(key) + "=String:" + ToUtf8(own);
    if (inDefinition.empty()) {
      findings.Error(field.LineOf(key), field.Name(), "flat-text",
                     ToUtf8(key) +
                         " is given in the flat text only, and the lookup reads its "
                         "definition; add '" +
                         line + "'");
    } else if (own != inDefinition) {
      findings.Error(
          field.LineOf(key), field.Name(), "flat-text",
          ToUtf8(key) + " differs from Browse." + ToUtf8(key) + " " + Quoted(inDefinition));
    }
  }
  const Setting* const search = OwnText(field, u"Pesq");
  if (search && !EqualNoCase(search->key, u"Pesquisa"))
    findings.Warning(search->line, field.Name(), "flat-text",
                     ToUtf8(search->key) +
                         " is the older form of a search; use 'Pesquisa=Object:"
                         "Pesquisa' and its entries");
}

/// Whether the file says anything about the lookup. A program may give one to the field itself.
bool HasLookup(const Field& field) {
  return !field.Lookup(u"BrwCampo").empty() || !field.From().empty();
}

void CheckWhole(const Field& field, Findings& findings) {
  if (!field.LooksUp() || !HasLookup(field)) return;
  const int line = field.browse ? field.LineOf(u"Browse.BrwCampo") : field.widget->line;
  const auto lacks = [&](const std::string& what) {
    findings.Error(line, field.Name(), "lookup", "the lookup has no " + what);
  };
  if (field.Lookup(u"BrwCampo").empty()) lacks("BrwCampo");
  if (field.Lookup(u"BrowseTable").empty()) lacks("BrowseTable");
  if (field.Lookup(u"BrwCampoIrmao").empty() && field.Lookup(u"BrwCampoOutros").empty())
    lacks("BrwCampoIrmao and no BrwCampoOutros, so that it never finds a description");
}

/// The fields that a found row has.
String Selected(const Field& field) {
  return field.Lookup(u"BrwCampoIrmao") + u", " + field.Lookup(u"BrwCampoOutros");
}

void CheckReturnFields(const Field& field, Findings& findings) {
  for (Long i = 1; field.browse && i <= field.browse->Outros().Count(); ++i) {
    const String name = field.browse->Outros().Item(i)->Nome();
    if (InStr(Selected(field), name) != 0) continue;
    findings.Error(field.LineOf(u"Browse.Outros" + FromUtf8(std::to_string(i)) + u"Nome"),
                   field.Name(), "return-field",
                   "return field " + Quoted(name) +
                       " is neither in BrwCampoIrmao nor in BrwCampoOutros: it stays empty");
  }
}

struct Code {
  const char16_t* key;
  Long (ItemPesquisa::*value)() const;
  bool (*isKnown)(Long);
  const char* known;
};
const Code kSearchCodes[] = {
    {u"Tipo", &ItemPesquisa::Tipo, [](Long v) { return v == 2 || v == 7 || v == 8; },
     "2 (a number), 7 (a date) or 8 (a text)"},
    {u"Like", &ItemPesquisa::Like, [](Long v) { return v >= 0 && v <= 7; }, "one of 0 to 7"}};

/// A menu entry runs the searches whose number is its position.
bool IsNumbered(const Pesquisa& searches, Long number) {
  for (Long i = 1; i <= searches.Count(); ++i)
    if (searches.Item(i)->Indice() == number) return true;
  return false;
}

void CheckSearches(const Field& field, Findings& findings) {
  Long highest = 0;
  for (Long i = 1; field.pesquisa && i <= field.pesquisa->Count(); ++i) {
    const auto search = field.pesquisa->Item(i);
    const String entry = u"Pesquisa.Pesquisa" + FromUtf8(std::to_string(i));
    highest = std::max(highest, search->Indice());
    for (const Code& code : kSearchCodes) {
      const Long value = (*search.*code.value)();
      if (!code.isKnown(value))
        findings.Error(
            field.LineOf(entry + code.key), field.Name(), "search",
            ToUtf8(entry + code.key) + " is " + code.known + ", not " + std::to_string(value));
    }
    if (search->Campo().empty())
      findings.Error(field.LineOf(entry + u"Campo"), field.Name(), "search",
                     "search " + std::to_string(i) + " has no column");
  }
  for (Long number = 1; number < highest; ++number)
    if (!IsNumbered(*field.pesquisa, number))
      findings.Error(field.LineOf(u"Pesquisa.Pesquisa1Indice"), field.Name(), "search",
                     "no search has the number " + std::to_string(number));
}

bool IsSameColumn(const String& a, const String& b) { return EqualNoCase(Trim(a), Trim(b)); }

void CheckSwapped(const Field& field, const Field& sibling, Findings& findings) {
  const String key = field.Lookup(u"BrwCampo"), text = field.Lookup(u"BrwCampoIrmao");
  const String otherKey = sibling.Lookup(u"BrwCampo");
  const String otherText = sibling.Lookup(u"BrwCampoIrmao");
  if (!IsSameColumn(key, otherText) || !IsSameColumn(text, otherKey))
    findings.Error(field.LookupLine(u"BrwCampo"), field.Name(), "pair",
                   "the columns of the pair are not swapped: " + Quoted(key) + ", " + Quoted(text) +
                       " here and " + Quoted(otherKey) + ", " + Quoted(otherText) + " in " +
                       Quoted(sibling.Name()));
  if (!IsSameColumn(field.From(), sibling.From()))
    findings.Error(field.LookupLine(u"BrowseTable"), field.Name(), "pair",
                   "the pair looks at two tables: " + Quoted(field.From()) + " here and " +
                       Quoted(sibling.From()) + " in " + Quoted(sibling.Name()));
}

}  // namespace

void CheckLookup(const Field& field, Findings& findings) {
  CheckOwnTexts(field, findings);
  CheckWhole(field, findings);
  CheckReturnFields(field, findings);
  CheckSearches(field, findings);
}

void CheckPair(const CheckedForm& form, const Field& field, Findings& findings) {
  const Field* const sibling = form.FieldNamed(Trim(field.Text(u"TxtIrmao")));
  if (!sibling || sibling == &field) return;
  if (!EqualNoCase(Trim(sibling->Text(u"TxtIrmao")), field.Name())) {
    const std::string message = "the sibling " + Quoted(sibling->Name()) + " does not point back";
    const bool needsBoth =
        field.Kind() == TipoControle::Descricao || sibling->Kind() == TipoControle::Descricao;
    const int line = field.LineOf(u"TxtIrmao");
    if (needsBoth) {
      findings.Error(line, field.Name(), "pair", message);
    } else {
      findings.Warning(line, field.Name(), "pair", message);
    }
    return;
  }
  const bool isTold = sibling->Kind() == TipoControle::Browse ||
                      (field.Kind() != TipoControle::Browse && sibling->Name() < field.Name());
  const bool isPair = field.LooksUp() || sibling->LooksUp();
  // Told once, at the code.
  if (!isTold && isPair && HasLookup(field) && HasLookup(*sibling))
    CheckSwapped(field, *sibling, findings);
}

}  // namespace tessaria::formcheck
