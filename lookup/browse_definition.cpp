#include "tessaria/browse_definition.h"

#include <array>

#include "lookup/bag_reader.h"
#include "tessaria/error.h"

namespace tessaria {
namespace {

constexpr StringView kOutros = u"Outros";

struct Atributo {
  StringView Chave;
  String (Browse::*Le)() const;
  void (Browse::*Grava)(const String&);
};

// The order of writing.
constexpr std::array<Atributo, 8> kAtributos{{
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
    reader.Prefix(EntryPrefix(kOutros, i));
    if (!reader.HoldsAny({u"Nome"})) return;
    Add(reader.Text(u"Nome"));
  }
}

void ListaOutros::Write(host::PropertyBag& bag) const {
  for (Long i = 1; i <= Count(); ++i) {
    bag.WriteProperty(EntryPrefix(kOutros, i) + u"Nome", Item(i)->Nome(), AlwaysStored());
  }
}

void Browse::ReadProperties(const host::PropertyBag& bag) {
  BagReader reader(bag);
  for (const Atributo& atributo : kAtributos) {
    (this->*atributo.Grava)(reader.Text(atributo.Chave));
  }
  outros_.Read(reader);
  cgrColGrid_.Read(reader);
  reader.RaiseIfBroken();
}

void Browse::WriteProperties(host::PropertyBag& bag) const {
  for (const Atributo& atributo : kAtributos) {
    bag.WriteProperty(String(atributo.Chave), (this->*atributo.Le)(), u"");
  }
  outros_.Write(bag);
  cgrColGrid_.Write(bag);
}

void mdlObjTxt::CopiaColunas(Browse& source, Browse& target, bool clearSource) {
  CopiaColunas(source.cgrColGrid(), target.cgrColGrid(), clearSource);
}

}  // namespace tessaria
