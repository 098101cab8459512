// What a field looks up: the two definition objects and the texts that override them.
#pragma once

#include <memory>

#include "control/members.h"
#include "tessaria/browse_definition.h"
#include "tessaria/pesquisa_definition.h"

namespace tessaria {

/// The eight texts of a lookup; `X(name)` for each.
#define TESSARIA_LOOKUP_TEXTS(X) \
  X(BrwTitulo)                   \
  X(BrowseTable)                 \
  X(BrwCampo)                    \
  X(BrwCampoIrmao)               \
  X(BrwCampoOutros)              \
  X(BrwGroupBy)                  \
  X(BrwLeftJoin)                 \
  X(BrwWhere)

class Definitions {
 public:
  /// The control's own texts, which must outlive this object.
  explicit Definitions(LookupTexts& texts) : texts_(texts) {}
  Definitions(const Definitions&) = delete;
  Definitions& operator=(const Definitions&) = delete;

  /// Never null. Assigning null creates a new one.
  std::shared_ptr<tessaria::Browse> Browse() const { return browse_; }
  void Browse(const std::shared_ptr<tessaria::Browse>& v);
  std::shared_ptr<tessaria::Pesquisa> Pesquisa() const { return pesquisa_; }
  void Pesquisa(const std::shared_ptr<tessaria::Pesquisa>& v);
  /// The searches to be stored: null for a list that was neither assigned nor filled.
  std::shared_ptr<tessaria::Pesquisa> StoredPesquisa() const;
  /// Releases both objects.
  void Release();

  /// The control's own text unless it is empty, otherwise the definition's. Assigning sets both.
#define TESSARIA_DECLARE_TEXT(name) \
  String name() const;              \
  void name(const String& v);
  TESSARIA_LOOKUP_TEXTS(TESSARIA_DECLARE_TEXT)
#undef TESSARIA_DECLARE_TEXT

  /// Whether there are a key, a table, and something to pass to the sibling or the return fields.
  bool LookupIsComplete() const;
  /// Empties the return fields.
  void EmptyReturnFields();

 private:
  LookupTexts& texts_;
  std::shared_ptr<tessaria::Browse> browse_ = std::make_shared<tessaria::Browse>();
  std::shared_ptr<tessaria::Pesquisa> pesquisa_ = std::make_shared<tessaria::Pesquisa>();
  bool pesquisaIsGiven_ = false;
};

}  // namespace tessaria
