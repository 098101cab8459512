#include "tessaria/grid_columns.h"

#include <utility>

#include "lookup/bag_reader.h"
#include "tessaria/error.h"

namespace tessaria {
namespace {

constexpr StringView kColuna = u"Coluna";

}  // namespace

std::shared_ptr<ColunaGrid> ListaColunas::Item(Long index) const {
  if (index < 1 || index > Count()) throw HostError(errors::SubscriptOutOfRange);
  return colunas_[static_cast<std::size_t>(index - 1)];
}

void ListaColunas::Add(const String& Campo, const String& Caption, const String& Mascara,
                       float Width, bool Visible) {
  auto coluna = std::make_shared<ColunaGrid>();
  coluna->Campo(Campo);
  coluna->Caption(Caption);
  coluna->Mascara(Mascara);
  coluna->Width(Width);
  coluna->Visible(Visible);
  colunas_.push_back(std::move(coluna));
}

void ListaColunas::Read(BagReader& reader) {
  Clear();
  for (Long i = 1;; ++i) {
    reader.Prefix(EntryPrefix(kColuna, i));
    if (!reader.HoldsAny({u"Campo", u"Caption", u"Mascara", u"Width", u"Visible"})) return;
    Add(reader.Text(u"Campo"), reader.Text(u"Caption"), reader.Text(u"Mascara"),
        reader.Number(u"Width"), reader.Flag(u"Visible", true));
  }
}

void ListaColunas::Write(host::PropertyBag& bag) const {
  for (Long i = 1; i <= Count(); ++i) {
    const auto coluna = Item(i);
    const String prefix = EntryPrefix(kColuna, i);
    bag.WriteProperty(prefix + u"Campo", coluna->Campo(), AlwaysStored());
    bag.WriteProperty(prefix + u"Caption", coluna->Caption(), u"");
    bag.WriteProperty(prefix + u"Mascara", coluna->Mascara(), u"");
    bag.WriteProperty(prefix + u"Width", coluna->Width(), 0.0F);
    bag.WriteProperty(prefix + u"Visible", coluna->Visible(), true);
  }
}

void mdlObjTxt::CopiaColunas(ListaColunas& source, ListaColunas& target, bool clearSource) {
  target.Clear();
  for (Long i = 1; i <= source.Count(); ++i) {
    const auto coluna = source.Item(i);
    target.Add(coluna->Campo(), coluna->Caption(), coluna->Mascara(), coluna->Width(),
               coluna->Visible());
  }
  if (clearSource) source.Clear();
}

}  // namespace tessaria
