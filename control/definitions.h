// What a field looks up: the two definition objects and the texts that stand in front of them.
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
  /// The control's own texts; outlive it.
  explicit Definitions(LookupTexts& texts) : texts_(texts) {}
  Definitions(const Definitions&) = delete;
  Definitions& operator=(const Definitions&) = delete;

  /// Never nothing. Assigning nothing makes a new one.
  std::shared_ptr<tessaria::Browse> Browse() const { return browse_; }
  void Browse(const std::shared_ptr<tessaria::Browse>& v);
  std::shared_ptr<tessaria::Pesquisa> Pesquisa() const { return pesquisa_; }
  void Pesquisa(const std::shared_ptr<tessaria::Pesquisa>& v);
  /// The searches as they are stored: nothing for a list that nobody gave or filled.
  std::shared_ptr<tessaria::Pesquisa> StoredPesquisa() const;
  /// Lets go of both objects.
  void Release();

  /// The control's own text when not empty, otherwise the definition's. Assigning sets both.
#define TESSARIA_DECLARE_TEXT(name) \
  String name() const;              \
  void name(const String& v);
  TESSARIA_LOOKUP_TEXTS(TESSARIA_DECLARE_TEXT)
#undef TESSARIA_DECLARE_TEXT

  /// A key, a table, and something to give to the sibling or to the return fields.
  bool LookupIsComplete() const;
  /// The return fields hold nothing any more.
  void EmptyReturnFields();

 private:
  LookupTexts& texts_;
  std::shared_ptr<tessaria::Browse> browse_ = std::make_shared<tessaria::Browse>();
  std::shared_ptr<tessaria::Pesquisa> pesquisa_ = std::make_shared<tessaria::Pesquisa>();
  bool pesquisaIsGiven_ = false;
};

}  // namespace tessaria
