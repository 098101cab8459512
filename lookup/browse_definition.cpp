#include "tessaria/browse_definition.h"

#include <array>

#include "lookup/bag_reader.h"
#include "tessaria/error.h"

namespace tessaria {
namespace {

constexpr StringView kOthers = u"Outros";

struct Attribute {
  StringView Key;
  String (Browse::*Get)() const;
  void (Browse::*Set)(const String&);
};

// The order of writing.
constexpr std::array<Attribute, 8> kAttributes{{
    {u"BrwTitulo", &Browse::BrwTitulo, &Browse::BrwTitulo},
    {u"BrowseTable", &Browse::BrowseTable, &Browse::BrowseTable},
    {u"BrwCampo", &Browse::BrwCampo, &Browse::BrwCampo},
    {u"BrwCampoIrmao", &Browse::BrwCampoIrmao, &Browse::BrwCampoIrmao},
    {u"BrwCampoOutros", &Browse::BrwCampoOutros, &Browse::BrwCampoOutros},
    {u"BrwGroupBy", &Browse::BrwGroupBy, &Browse::BrwGroupBy},
    {u"BrwLeftJoin", &Browse::BrwLeftJoin, &Browse::BrwLeftJoin},
    {u"BrwWhere", &Browse::BrwWhere, &Browse::BrwWhere},
}};

}  // namespace

std::shared_ptr<CampoOutro> ListaOutros::Item(Long index) const {
  if (index < 1 || index > Count()) throw HostError(errors::SubscriptOutOfRange);
  return campos_[static_cast<std::size_t>(index - 1)];
}

void ListaOutros::Add(const String& Nome) { campos_.push_back(std::make_shared<CampoOutro>(Nome)); }

void ListaOutros::Read(BagReader& reader) {
  Clear();
  for (Long i = 1;; ++i) {
    reader.Prefix(EntryPrefix(kOthers, i));
    if (!reader.HoldsAny({u"Nome"})) return;
    Add(reader.Text(u"Nome"));
  }
}

void ListaOutros::Write(host::PropertyBag& bag) const {
  for (Long i = 1; i <= Count(); ++i) {
    bag.WriteProperty(EntryPrefix(kOthers, i) + u"Nome", Item(i)->Nome(), AlwaysStored());
  }
}

void Browse::ReadProperties(const host::PropertyBag& bag) {
  BagReader reader(bag);
  for (const Attribute& attribute : kAttributes) {
    (this->*attribute.Set)(reader.Text(attribute.Key));
  }
  outros_.Read(reader);
  cgrColGrid_.Read(reader);
  reader.RaiseIfBroken();
}

void Browse::WriteProperties(host::PropertyBag& bag) const {
  for (const Attribute& attribute : kAttributes) {
    bag.WriteProperty(String(attribute.Key), (this->*attribute.Get)(), u"");
  }
  outros_.Write(bag);
  cgrColGrid_.Write(bag);
}

void mdlObjTxt::CopiaColunas(Browse& source, Browse& target, bool clearSource) {
  CopiaColunas(source.cgrColGrid(), target.cgrColGrid(), clearSource);
}

}  // namespace tessaria
