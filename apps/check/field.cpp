#include "apps/check/field.h"

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria::formcheck {
namespace {

/// A value as another kind; one that cannot be converted was found where the settings were read.
template <class T>
T Converted(const Setting* setting, T byDefault, T (*convert)(const Variant&)) {
  if (!setting) return byDefault;
  try {
    return convert(setting->value);
  } catch (const HostError&) {
    return byDefault;
  }
}

String TextOfDefinition(const Browse& browse, StringView key) {
  if (key == u"BrwTitulo") return browse.BrwTitulo();
  if (key == u"BrowseTable") return browse.BrowseTable();
  if (key == u"BrwCampo") return browse.BrwCampo();
  if (key == u"BrwCampoIrmao") return browse.BrwCampoIrmao();
  if (key == u"BrwCampoOutros") return browse.BrwCampoOutros();
  if (key == u"BrwGroupBy") return browse.BrwGroupBy();
  if (key == u"BrwLeftJoin") return browse.BrwLeftJoin();
  return browse.BrwWhere();
}

}  // namespace

const Setting* Field::Find(StringView key) const {
  for (const Setting& setting : settings)
    if (EqualNoCase(setting.key, key)) return &setting;
  return nullptr;
}

int Field::LineOf(StringView key) const {
  const Setting* const setting = Find(key);
  return setting ? setting->line : widget->line;
}

String Field::Text(StringView key) const {
  return Converted<String>(Find(key), String(), [](const Variant& v) { return CStr(v); });
}

Long Field::Number(StringView key, Long byDefault) const {
  return Converted<Long>(Find(key), byDefault, [](const Variant& v) { return CLng(v); });
}

bool Field::Flag(StringView key, bool byDefault) const {
  return Converted<bool>(Find(key), byDefault, [](const Variant& v) { return CBool(v); });
}

TipoControle Field::Kind() const { return static_cast<TipoControle>(Number(u"TipoControle", 0)); }

bool Field::LooksUp() const {
  return Kind() == TipoControle::Browse || Kind() == TipoControle::Descricao;
}

String Field::PromptChar() const { return Find(u"PromptChar") ? Text(u"PromptChar") : u"_"; }

String Field::Lookup(StringView key) const {
  const String own = Text(key);
  return own.empty() && browse ? TextOfDefinition(*browse, key) : own;
}

int Field::LookupLine(StringView key) const {
  return Text(key).empty() ? LineOf(u"Browse." + String(key)) : LineOf(key);
}

String Field::From() const {
  const String from = Lookup(u"BrwLeftJoin");
  return from.empty() ? Lookup(u"BrowseTable") : from;
}

}  // namespace tessaria::formcheck
