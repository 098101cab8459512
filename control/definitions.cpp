// The two definition objects and the texts that stand in front of them.

#include "control/tstext.h"
#include "lookup/where_text.h"
#include "services/trap.h"

namespace tessaria {

std::shared_ptr<tessaria::Browse> tsText::Browse() const {
  if (!m_.Browse) m_.Browse = std::make_shared<tessaria::Browse>();
  return m_.Browse;
}

void tsText::Browse(const std::shared_ptr<tessaria::Browse>& v) { Store(m_.Browse, v, u"Browse"); }

std::shared_ptr<tessaria::Pesquisa> tsText::Pesquisa() const {
  if (!m_.Pesquisa) m_.Pesquisa = std::make_shared<tessaria::Pesquisa>();
  return m_.Pesquisa;
}

void tsText::Pesquisa(const std::shared_ptr<tessaria::Pesquisa>& v) {
  Store(m_.Pesquisa, v, u"Pesquisa");
}

String tsText::Condition() const {
  const auto definition = Browse();
  return definition->WherePronto() ? definition->BrwWhere() : Expanded(definition->BrwWhere());
}

String tsText::Expanded(const String& where) const {
  String condition;
  Catch([&] { condition = mdlObjTxt::ExpandeCondicao(FormDoControle(), where); },
        [&] { RaiseNaming(u"BrwWhere"); });
  return condition;
}

// The eight texts of the lookup: the control's own wins over the definition's.
#define TESSARIA_LOOKUP_TEXT(name)                                                     \
  String tsText::name() const { return m_.name.empty() ? Browse()->name() : m_.name; } \
  void tsText::name(const String& v) {                                                 \
    Browse()->name(v);                                                                 \
    Store(m_.name, v, u"" #name);                                                      \
  }

TESSARIA_LOOKUP_TEXT(BrwTitulo)
TESSARIA_LOOKUP_TEXT(BrowseTable)
TESSARIA_LOOKUP_TEXT(BrwCampo)
TESSARIA_LOOKUP_TEXT(BrwCampoIrmao)
TESSARIA_LOOKUP_TEXT(BrwCampoOutros)
TESSARIA_LOOKUP_TEXT(BrwGroupBy)
TESSARIA_LOOKUP_TEXT(BrwLeftJoin)
TESSARIA_LOOKUP_TEXT(BrwWhere)
#undef TESSARIA_LOOKUP_TEXT

}  // namespace tessaria
