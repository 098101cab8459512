#include "control/definitions.h"

namespace tessaria {

void Definitions::Browse(const std::shared_ptr<tessaria::Browse>& v) {
  browse_ = v ? v : std::make_shared<tessaria::Browse>();
}

void Definitions::Pesquisa(const std::shared_ptr<tessaria::Pesquisa>& v) {
  pesquisaIsGiven_ = v != nullptr;
  pesquisa_ = v ? v : std::make_shared<tessaria::Pesquisa>();
}

std::shared_ptr<tessaria::Pesquisa> Definitions::StoredPesquisa() const {
  return pesquisaIsGiven_ || pesquisa_->Count() > 0 ? pesquisa_ : nullptr;
}

void Definitions::Release() {
  Browse(nullptr);
  Pesquisa(nullptr);
}

#define TESSARIA_DEFINE_TEXT(name)                                                                 \
  String Definitions::name() const { return texts_.name.empty() ? browse_->name() : texts_.name; } \
  void Definitions::name(const String& v) {                                                        \
    browse_->name(v);                                                                              \
    texts_.name = v;                                                                               \
  }
TESSARIA_LOOKUP_TEXTS(TESSARIA_DEFINE_TEXT)
#undef TESSARIA_DEFINE_TEXT

bool Definitions::LookupIsComplete() const {
  return !browse_->BrwCampo().empty() && !browse_->BrowseTable().empty() &&
         !(browse_->BrwCampoIrmao().empty() && browse_->BrwCampoOutros().empty());
}

void Definitions::EmptyReturnFields() {
  auto& fields = browse_->Outros();
  for (Long i = 1; i <= fields.Count(); ++i) fields.Item(i)->Valor(Variant());
}

}  // namespace tessaria
