#include "tessaria/pesquisa_definition.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "lookup/bag_reader.h"
#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria {
namespace {

constexpr StringView kSearch = u"Pesquisa";

/// The number of entries before the new one; nothing when it cannot be placed.
std::optional<Long> Place(Long before, Long after, Long count) {
  if (before == 0 && after == 0) return count;
  if (before != 0 && after != 0) return std::nullopt;
  const Long reference = before != 0 ? before : after;
  if (reference < 1 || reference > count) return std::nullopt;
  return before != 0 ? before - 1 : after;
}

}  // namespace

std::shared_ptr<ItemPesquisa> Pesquisa::Find(const String& key) const {
  if (key.empty()) return nullptr;
  for (const auto& item : itens_) {
    if (EqualNoCase(item->chave_, key)) return item;
  }
  return nullptr;
}

std::shared_ptr<ItemPesquisa> Pesquisa::Item(Long index) const {
  if (index < 1 || index > Count()) throw HostError(errors::SubscriptOutOfRange);
  return itens_[static_cast<std::size_t>(index - 1)];
}

std::shared_ptr<ItemPesquisa> Pesquisa::Item(const String& key) const {
  auto item = Find(key);
  if (!item) throw HostError(errors::InvalidArgument);
  return item;
}

bool Pesquisa::Contains(const String& key) const { return Find(key) != nullptr; }

bool Pesquisa::Add(Long Indice, const String& Caption, const String& Campo, Long Tipo, Long Like,
                   const String& Mascara, Integer Width, Integer MaxLength, bool CompletaDescr,
                   bool PromptInclude, Long Antes, Long Depois, const String& Chave) {
  const auto place = Place(Antes, Depois, Count());
  if (!place || Contains(Chave)) return false;
  auto item = std::make_shared<ItemPesquisa>();
  item->chave_ = Chave;
  item->Indice(Indice);
  item->Caption(Caption);
  item->Campo(Campo);
  item->Tipo(Tipo);
  item->Like(Like);
  item->Mascara(Mascara);
  item->Width(Width);
  item->MaxLength(MaxLength);
  item->CompletaDescr(CompletaDescr);
  item->PromptInclude(PromptInclude);
  itens_.insert(itens_.begin() + *place, std::move(item));
  Renumber();
  return true;
}

void Pesquisa::Remove(Long index) {
  if (index < 1 || index > Count()) throw HostError(errors::SubscriptOutOfRange);
  itens_.erase(itens_.begin() + (index - 1));
  Renumber();
}

void Pesquisa::Renumber() {
  Long position = 0;
  for (const auto& item : itens_) item->posicao_ = ++position;
}

void Pesquisa::ReadProperties(const host::PropertyBag& bag) {
  Clear();
  BagReader reader(bag);
  for (Long i = 1;; ++i) {
    reader.Prefix(EntryPrefix(kSearch, i));
    if (!reader.HoldsAny({u"Chave", u"Indice", u"Caption", u"Campo", u"PromptInclude",
                          u"CampoPronto", u"CompletaDescr", u"MaxLength", u"Width", u"Mascara",
                          u"Like", u"Tipo", u"OrderBy"})) {
      break;
    }
    auto item = std::make_shared<ItemPesquisa>();
    item->chave_ = reader.Text(u"Chave");
    if (Contains(item->chave_)) {
      item->chave_.clear();
      reader.MarkBroken();
    }
    item->Indice(reader.Whole(u"Indice"));
    item->Caption(reader.Text(u"Caption"));
    item->Campo(reader.Text(u"Campo"));
    item->PromptInclude(reader.Flag(u"PromptInclude", false));
    item->CampoPronto(reader.Flag(u"CampoPronto", false));
    item->CompletaDescr(reader.Flag(u"CompletaDescr", false));
    item->MaxLength(reader.Short(u"MaxLength"));
    item->Width(reader.Short(u"Width"));
    item->Mascara(reader.Text(u"Mascara"));
    item->Like(reader.Whole(u"Like"));
    item->Tipo(reader.Whole(u"Tipo"));
    item->OrderBy(reader.Text(u"OrderBy"));
    itens_.push_back(std::move(item));
  }
  Renumber();
  reader.RaiseIfBroken();
}

void Pesquisa::WriteProperties(host::PropertyBag& bag) const {
  for (const auto& item : itens_) {
    const String prefix = EntryPrefix(kSearch, item->posicao_);
    bag.WriteProperty(prefix + u"Chave", item->chave_, u"");
    bag.WriteProperty(prefix + u"Indice", item->indice_, Long{0});
    bag.WriteProperty(prefix + u"Caption", item->Caption(), u"");
    bag.WriteProperty(prefix + u"Campo", item->Campo(), AlwaysStored());
    bag.WriteProperty(prefix + u"PromptInclude", item->PromptInclude(), false);
    bag.WriteProperty(prefix + u"CampoPronto", item->CampoPronto(), false);
    bag.WriteProperty(prefix + u"CompletaDescr", item->CompletaDescr(), false);
    bag.WriteProperty(prefix + u"MaxLength", item->MaxLength(), Integer{0});
    bag.WriteProperty(prefix + u"Width", item->Width(), Integer{0});
    bag.WriteProperty(prefix + u"Mascara", item->Mascara(), u"");
    bag.WriteProperty(prefix + u"Like", item->Like(), Long{0});
    bag.WriteProperty(prefix + u"Tipo", item->Tipo(), Long{0});
    bag.WriteProperty(prefix + u"OrderBy", item->OrderBy(), u"");
  }
}

}  // namespace tessaria
