#include "apps/check/checks.h"

#include <algorithm>

#include <tessaria/field_settings.h>
#include <tessaria/masks.h>
#include <tessaria/text.h>
#include <tessaria/utf8.h>

namespace tessaria::formcheck {
namespace {

constexpr StringView kSlots = u"0#dmyAaC$XN";

bool IsLetterOrDigit(char16_t c) {
  return (c >= u'0' && c <= u'9') || (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}

String Quoted(const String& text) { return u"\"" + text + u"\""; }

/// The fields of a pair are compared without the table in front of them.
bool SameField(const String& a, const String& b) {
  const auto bare = [](const String& field) {
    const std::size_t dot = field.rfind(u'.');
    return Trim(dot == String::npos ? field : field.substr(dot + 1));
  };
  return EqualNoCase(bare(a), bare(b));
}

bool HoldsNumber(const Field& field) {
  const Long type = field.NumberOf(u"TipoDado", 1);
  const bool isNumber = type == 2 || type == 4 || type == 5;
  return isNumber ||
         field.NumberOf(u"TipoControle", 0) == static_cast<Long>(TipoControle::Calculadora) ||
         mdlObjTxt::IsNumericMask(field.TextOf(u"Mascara"));
}

/// Whether the position is between the apostrophes of a condition.
bool IsInText(StringView condition, std::size_t position) {
  const auto before = condition.substr(0, position);
  return std::count(before.begin(), before.end(), u'\'') % 2 != 0 ||
         std::count(before.begin(), before.end(), u'"') % 2 != 0;
}

}  // namespace

const Field* Form::Find(const String& name) const {
  for (const Field& field : fields)
    if (EqualNoCase(field.Name(), name)) return &field;
  return nullptr;
}

void Check::Report(const Field& field, StringView key, const char* kind, Severity severity,
                   const String& message) {
  findings_.push_back(
      {{}, field.LineOf(key), ToUtf8(field.Name()), kind, severity, ToUtf8(message)});
}

void Check::Masks() {
  for (const Field& field : form_.fields)
    if (!field.TextOf(u"Mascara").empty()) Mask(field);
}

void Check::Mask(const Field& field) {
  const String mask = field.TextOf(u"Mascara");
  String unknown;
  for (const char16_t c : mask)
    if (IsLetterOrDigit(c) && kSlots.find(c) == StringView::npos && unknown.find(c) == String::npos)
      unknown += c;
  if (!unknown.empty())
    Report(field, u"Mascara", "mask", Severity::Doubt,
           Quoted(unknown) + u" in the mask " + Quoted(mask) +
               u" is no slot; the box shows it as it is");
  const String prompt = field.Has(u"PromptChar") ? field.TextOf(u"PromptChar") : String(u"_");
  const String wanted = mdlObjTxt::MontaItensMascara(mask, prompt);
  const String items = field.TextOf(u"ItensMascara");
  const bool isWhole = std::all_of(wanted.begin(), wanted.end(),
                                   [&](char16_t c) { return items.find(c) != String::npos; });
  if (!isWhole)
    Report(field, u"Mascara", "mask-items", Severity::Mistake,
           u"the literals of the mask stay in the value: the line \"ItensMascara=String:" + wanted +
               u"\" is missing");
}

void Check::Names() {
  for (const Field& field : form_.fields) {
    Name(field, u"TxtIrmao", "sibling", Severity::Mistake);
    Name(field, u"LabelAssociado", "label", Severity::Mistake);
    Name(field, u"ObjetoCancelar", "cancel button", Severity::Mistake);
    Name(field, u"DataSource", "data control", Severity::Doubt);
  }
}

void Check::Name(const Field& field, StringView key, const char* what, Severity severity) {
  const String name = field.TextOf(key);
  if (name.empty()) return;
  const Widget* const widget = form_.file.Find(name);
  const String words = FromUtf8(what);
  if (widget == nullptr)
    return Report(field, key, "name", severity,
                  u"the " + words + u" " + Quoted(name) + u" is not on the form");
  if (key == u"DataSource" && widget->className != kDataControlClass)
    Report(field, key, "name", Severity::Mistake, Quoted(name) + u" is no data control");
}

void Check::Lookups() {
  for (const Field& field : form_.fields) {
    Lookup(field);
    Pair(field);
  }
}

void Check::Lookup(const Field& field) {
  for (const auto* key : {u"BrowseTable", u"BrwCampo", u"BrwCampoIrmao", u"BrwCampoOutros",
                          u"BrwLeftJoin", u"BrwWhere"}) {
    if (field.TextOf(key).empty() || field.Lookup() != nullptr) continue;
    return Report(field, key, "flat-lookup", Severity::Mistake,
                  u"the lookup is given in single settings only; the field needs the lines of "
                  u"\"Browse=Object:Browse\", which the property page writes");
  }
  if (!field.TextOf(u"PesqCampo").empty() && field.Searches() == nullptr)
    Report(field, u"PesqCampo", "flat-lookup", Severity::Mistake,
           u"the searches are given in single settings only; the field needs the lines of "
           u"\"Pesquisa=Object:Pesquisa\", which the property page writes");
  if (field.Lookup() == nullptr) return;
  const bool hasTable = !field.Lookup()->From().empty();
  const bool hasKey = !field.Lookup()->BrwCampo().empty();
  if (hasTable != hasKey)
    Report(
        field, u"Browse", "lookup", Severity::Mistake,
        hasTable ? u"the lookup has no key (BrwCampo)" : u"the lookup has no table (BrowseTable)");
}

void Check::Pair(const Field& field) {
  const Field* const sibling = form_.Find(field.TextOf(u"TxtIrmao"));
  const auto kind = static_cast<TipoControle>(field.NumberOf(u"TipoControle", 0));
  if (kind == TipoControle::Descricao && field.TextOf(u"TxtIrmao").empty())
    return Report(field, u"TipoControle", "pair", Severity::Mistake,
                  u"a description needs its key as sibling (TxtIrmao)");
  if (sibling == nullptr || kind != TipoControle::Browse) return;
  const String back = sibling->TextOf(u"TxtIrmao");
  const bool isDescription =
      sibling->NumberOf(u"TipoControle", 0) == static_cast<Long>(TipoControle::Descricao);
  if (isDescription && !back.empty() && !EqualNoCase(back, field.Name()))
    return Report(
        *sibling, u"TxtIrmao", "pair", Severity::Mistake,
        u"the sibling should be " + Quoted(field.Name()) + u", whose sibling this field is");
  if (!isDescription || field.Lookup() == nullptr || sibling->Lookup() == nullptr) return;
  const Browse& code = *field.Lookup();
  const Browse& description = *sibling->Lookup();
  if (!SameField(code.BrwCampo(), description.BrwCampoIrmao()) ||
      !SameField(code.BrwCampoIrmao(), description.BrwCampo()))
    Report(*sibling, u"Browse", "pair", Severity::Mistake,
           u"the columns are not those of " + Quoted(field.Name()) +
               u" swapped: BrwCampo should be " + Quoted(code.BrwCampoIrmao()) +
               u" and BrwCampoIrmao " + Quoted(code.BrwCampo()));
}

void Check::Parameters() {
  for (const Field& field : form_.fields) {
    if (field.Lookup() == nullptr) continue;
    const String condition = field.Lookup()->BrwWhere();
    for (std::size_t open = condition.find(u'@'); open != String::npos;) {
      const std::size_t close = condition.find(u'@', open + 1);
      if (close == String::npos) {
        Report(field, u"Browse.BrwWhere", "parameter", Severity::Mistake,
               u"the \"@\" of a parameter in the condition is not closed");
        break;
      }
      Parameter(field, condition.substr(open + 1, close - open - 1), IsInText(condition, open));
      open = condition.find(u'@', close + 1);
    }
  }
}

void Check::Parameter(const Field& field, const String& name, bool isQuoted) {
  if (form_.file.Find(name) == nullptr)
    return Report(field, u"Browse.BrwWhere", "parameter", Severity::Mistake,
                  u"the condition names " + Quoted(name) + u", which is not on the form");
  const Field* const source = form_.Find(name);
  if (isQuoted || source == nullptr || HoldsNumber(*source)) return;
  const bool isBound = !source->TextOf(u"DataField").empty();
  Report(field, u"Browse.BrwWhere", "parameter", isBound ? Severity::Doubt : Severity::Mistake,
         u"@" + name + u"@ stands without apostrophes, and " +
             (isBound ? String(u"works only when its column is a number")
                      : Quoted(name) + u" holds a text"));
}

}  // namespace tessaria::formcheck
