// The pair of a key and its description.

#include <algorithm>

#include "control/tstext.h"
#include "lookup/description_lookup.h"
#include "lookup/field_types.h"
#include "lookup/literals.h"
#include "lookup/query_text.h"
#include "services/message_box.h"
#include "services/trap.h"
#include "tessaria/comforts.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/host/application.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

/// Values that may be handed on one inside the other. Handlers that never stop assigning new ones
/// end in an error, and not in the program's end.
constexpr std::size_t kDeepestChain = 32;
constexpr Long kOutOfStackSpace = 28;

/// A value stands last in a list for the length of a scope.
class HandingOn {
 public:
  HandingOn(std::vector<Variant>& values, const Variant& value) : values_(values) {
    values_.push_back(value);
  }
  ~HandingOn() { values_.pop_back(); }
  HandingOn(const HandingOn&) = delete;
  HandingOn& operator=(const HandingOn&) = delete;

 private:
  std::vector<Variant>& values_;
};

}  // namespace

std::shared_ptr<host::TsTextWidget> tsText::Sibling() const {
  auto sibling = std::dynamic_pointer_cast<host::TsTextWidget>(Named(u"TxtIrmao", m_.TxtIrmao));
  if (!sibling) throw HostError(errors::NoSuchMember);
  return sibling;
}

bool tsText::HandsOnToSibling() const { return !m_.TxtIrmao.empty() && m_.bIrmaoConectado; }

bool tsText::LookupIsComplete() const {
  const auto definition = Browse();
  return !definition->BrwCampo().empty() && !definition->BrowseTable().empty() &&
         !(definition->BrwCampoIrmao().empty() && definition->BrwCampoOutros().empty());
}

void tsText::EmptyReturnFields() {
  auto& fields = Browse()->Outros();
  for (Long i = 1; i <= fields.Count(); ++i) fields.Item(i)->Valor(Variant());
}

void tsText::SiblingStep(Road road) {
  if (!m_.bCarregandoCampo || !LookupIsComplete()) return;
  // A ring of siblings ends at the value that comes round; any other value is a new one.
  const bool comesRound = std::any_of(handedOn_.begin(), handedOn_.end(),
                                      [&](const Variant& v) { return IsSame(v, m_.Value); });
  if (comesRound) return;
  if (handedOn_.size() == kDeepestChain) throw HostError(kOutOfStackSpace);
  const HandingOn running(handedOn_, m_.Value);

  if (m_.Value.IsNull()) {
    HandOn(Variant::Null(), road);
    EmptyReturnFields();
    return;
  }
  const auto definition = Browse();
  const auto found =
      mdlObjTxt::ProcuraDescr(*definition, m_.Value, site_.DisplayName(), SiblingCondition());
  if (found.Falhou || !HandsOnToSibling()) return;
  HandOn(found.Valor, road);
  if (m_.TipoControle != tessaria::TipoControle::Descricao) return;
  auto& sibling = Sibling()->Control();
  if (road == Road::Write)
    sibling.AtualizaIrmao(true);
  else
    sibling.ShowSibling(true);
  Sibling()->Control().DisparaEventos(u"BrowseReturn");
}

/// The definition's condition, narrowed to the key of a description.
String tsText::SiblingCondition() const {
  const auto definition = Browse();
  String filter;
  if (m_.TipoControle == tessaria::TipoControle::Descricao &&
      !definition->BrwCampoIrmao().empty()) {
    const String literal = SiblingLiteral();
    if (!literal.empty())
      filter = mdlObjTxt::TiraAlias(definition->BrwCampoIrmao()) + u" = " + literal;
  }
  String condition = Condition();
  if (!condition.empty() && !filter.empty()) condition += u" And ";
  return condition + filter;
}

void tsText::HandOn(const Variant& value, Road road) {
  if (!HandsOnToSibling()) return;
  if (road == Road::Write)
    Sibling()->Control().Value(value);
  else
    Sibling()->Control().ShowValue(value);
}

Variant tsText::AtualizaIrmao(bool ApenasTsBrowse, bool DisparaBrowseReturn) {
  RefreshSibling(ApenasTsBrowse, DisparaBrowseReturn, Road::Write);
  return {};
}

void tsText::ShowSibling(bool ApenasTsBrowse) { RefreshSibling(ApenasTsBrowse, false, Road::Show); }

void tsText::RefreshSibling(bool ApenasTsBrowse, bool DisparaBrowseReturn, Road road) {
  // The module and the procedure of this report are one run-on text.
  Trap(u"tsText",
       u"Erro ao efetuar a ataulização do campo IrmãoMódulo tsText - Procedimento AtualizaIrmao",
       [&] {
         if (!LookupIsComplete()) return;
         const bool handsOn = !ApenasTsBrowse || m_.TipoControle != tessaria::TipoControle::Browse;
         if (m_.Value.IsNull()) {
           if (handsOn) HandOn(Variant::Null(), road);
           EmptyReturnFields();
           return;
         }
         const auto definition = Browse();
         const auto found =
             mdlObjTxt::ProcuraDescr(*definition, m_.Value, site_.DisplayName(), Condition());
         if (!found.Falhou && handsOn) HandOn(found.Valor, road);
         if (DisparaBrowseReturn) DisparaEventos(u"BrowseReturn");
       });
}

Variant tsText::DisparaEventos(const String& strEvento) {
  if (strEvento == u"BrowseReturn") {
    bool changed = true;
    events_.BrowseReturn(changed, m_.LastValue);
  }
  return {};
}

String tsText::SiblingLiteral() const {
  if (comforts().SearchWithoutFormerKey && shown_.IsTyped()) return {};
  const Variant& literal = State().vntValorIrmao;
  if (literal.IsNull()) return {};
  const String text = SqlText(literal);
  if (Trim(Replace(text, u"'", u"")).empty()) return {};
  return LiteralPronto(literal, m_.TxtIrmao);
}

void tsText::FetchSiblingLiteral() {
  auto& literal = State().vntValorIrmao;
  literal = Variant();
  if (Trim(m_.TxtIrmao).empty() || !m_.bIrmaoConectado) return;
  const auto sibling = Sibling();
  const Variant value = sibling->Control().Value();
  if (EhTipoDeCampoNumerico(sibling->Control().TipoDado()))
    literal = value;
  else
    literal = TextoSql(SqlText(value));
}

void tsText::TxtIrmao(const String& v) {
  if (UCase(v) == UCase(site_.DisplayName())) {
    App().ShowMessageBox(0, u"Como é Que o Componente Consegue ser Irmão Dele Mesmo???",
                         host::box::Ok, u"Alerta!");
    return;
  }
  Store(m_.TxtIrmao, v, u"TxtIrmao");
}

void tsText::LabelAssociado(const String& v) {
  if (site_.UserMode()) {
    mdlMsgBox::ExibeMensagem(
        hWnd(), u"Não é possível alterar a propriedade LabelAssociado em Tempo de Execucao", 0);
    return;
  }
  if (UCase(v) == UCase(site_.DisplayName())) {
    mdlMsgBox::ExibeMensagem(hWnd(), u"Tá Querendo me Enganar é ??", 0);
    return;
  }
  Store(m_.LabelAssociado, v, u"TxtLabelAssociado");  // the name told is no property's
}

}  // namespace tessaria
