#include "tessaria/grid_columns.h"

#include <utility>

#include "lookup/bag_reader.h"
#include "tessaria/error.h"

namespace tessaria {
namespace {

constexpr StringView kColumn = u"Coluna";

}  // namespace

std::shared_ptr<ColunaGrid> ListaColunas::Item(Long index) const {
  if (index < 1 || index > Count()) throw HostError(errors::SubscriptOutOfRange);
  return colunas_[static_cast<std::size_t>(index - 1)];
}

void ListaColunas::Add(const String& Campo, const String& Caption, const String& Mascara,
                       float Width, bool Visible) {
  auto column = std::make_shared<ColunaGrid>();
  column->Campo(Campo);
  column->Caption(Caption);
  column->Mascara(Mascara);
  column->Width(Width);
  column->Visible(Visible);
  colunas_.push_back(std::move(column));
}

void ListaColunas::Read(BagReader& reader) {
  Clear();
  for (Long i = 1;; ++i) {
    reader.Prefix(EntryPrefix(kColumn, i));
    if (!reader.HoldsAny({u"Campo", u"Caption", u"Mascara", u"Width", u"Visible"})) return;
    Add(reader.Text(u"Campo"), reader.Text(u"Caption"), reader.Text(u"Mascara"),
        reader.Number(u"Width"), reader.Flag(u"Visible", true));
  }
}

void ListaColunas::Write(host::PropertyBag& bag) const {
  for (Long i = 1; i <= Count(); ++i) {
    const auto column = Item(i);
    const String prefix = EntryPrefix(kColumn, i);
    bag.WriteProperty(prefix + u"Campo", column->Campo(), AlwaysStored());
    bag.WriteProperty(prefix + u"Caption", column->Caption(), u"");
    bag.WriteProperty(prefix + u"Mascara", column->Mascara(), u"");
    bag.WriteProperty(prefix + u"Width", column->Width(), 0.0F);
    bag.WriteProperty(prefix + u"Visible", column->Visible(), true);
  }
}

void mdlObjTxt::CopiaColunas(ListaColunas& source, ListaColunas& target, bool clearSource) {
  target.Clear();
  for (Long i = 1; i <= source.Count(); ++i) {
    const auto column = source.Item(i);
    target.Add(column->Campo(), column->Caption(), column->Mascara(), column->Width(),
               column->Visible());
  }
  if (clearSource) source.Clear();
}

}  // namespace tessaria
