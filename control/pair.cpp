#include "control/pair.h"

#include <algorithm>

#include "control/same_value.h"
#include "control/surface.h"
#include "lookup/description_lookup.h"
#include "lookup/field_types.h"
#include "lookup/literals.h"
#include "lookup/query_text.h"
#include "services/trap.h"
#include "tessaria/comforts.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

// Virtual-key codes of dead keys.
constexpr Integer kKeyAcute = 219;
constexpr Integer kKeyTilde = 222;

/// How many values may be passed on, one inside the other. Handlers that assign new values without
/// end raise an error instead of exhausting the stack.
constexpr std::size_t kDeepestChain = 32;
constexpr Long kOutOfStackSpace = 28;

/// Appends a value to a list for the duration of a scope.
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

String Joined(const String& condition, const String& filter) {
  return condition + (condition.empty() || filter.empty() ? u"" : u" And ") + filter;
}

}  // namespace

Pair::Pair(host::ControlSite& site, FieldBox& box, const FieldKind& kind, const FormTies& ties,
           FieldContents& contents, Definitions& definitions, const PairForm& form,
           tsTextEvents& events)
    : site_(site),
      box_(box),
      kind_(kind),
      ties_(ties),
      contents_(contents),
      definitions_(definitions),
      form_(form),
      events_(events) {}

bool Pair::HasSibling() const { return !ties_.TxtIrmao.empty() && ties_.bIrmaoConectado; }

void Pair::Follow(AssignMode mode) {
  if (!contents_.bCarregandoCampo || !definitions_.LookupIsComplete() || ComesRound()) return;
  if (handedOn_.size() == kDeepestChain) throw HostError(kOutOfStackSpace);
  const HandingOn running(handedOn_, contents_.Value);
  const Outcome outcome = LookUp({.NarrowsToKey = kind_.IsDescription(), .HandsOn = true}, mode);
  if (outcome == Outcome::HandedOn && kind_.IsDescription()) RefreshBack(mode);
}

/// A ring of siblings ends when a value comes back; any other value is passed on.
bool Pair::ComesRound() const {
  return std::any_of(handedOn_.begin(), handedOn_.end(),
                     [&](const Variant& v) { return IsSame(v, contents_.Value); });
}

void Pair::Refresh(bool ApenasTsBrowse, bool DisparaBrowseReturn, AssignMode mode) {
  // This report has the module and the procedure in one text, without a separator.
  Trap(u"tsText",
       u"Erro ao efetuar a ataulização do campo IrmãoMódulo tsText - Procedimento AtualizaIrmao",
       [&] {
         if (!definitions_.LookupIsComplete()) return;
         const bool handsOn = !ApenasTsBrowse || kind_.TipoControle != TipoControle::Browse;
         const Outcome outcome = LookUp({.NarrowsToKey = false, .HandsOn = handsOn}, mode);
         if (outcome != Outcome::Blank && DisparaBrowseReturn) RaiseBrowseReturn();
       });
}

/// A blank value empties the sibling without searching.
Pair::Outcome Pair::LookUp(Search search, AssignMode mode) {
  if (contents_.Value.IsNull()) {
    if (search.HandsOn) HandOn(Variant::Null(), mode);
    definitions_.EmptyReturnFields();
    return Outcome::Blank;
  }
  const auto definition = definitions_.Browse();
  const auto found = mdlObjTxt::SearchDescription(
      *definition, contents_.Value, site_.DisplayName(),
      search.NarrowsToKey ? SiblingCondition() : form_.Condition(*definition));
  if (found.Failed || !search.HandsOn || !HasSibling()) return Outcome::Searched;
  HandOn(found.Value, mode);
  return Outcome::HandedOn;
}

void Pair::HandOn(const Variant& value, AssignMode mode) {
  if (!HasSibling()) return;
  if (mode == AssignMode::Write)
    form_.Sibling()->Control().Value(value);
  else
    form_.Sibling()->Control().ShowValue(value);
}

/// Makes the key that a description has found look up its own return fields.
void Pair::RefreshBack(AssignMode mode) {
  if (mode == AssignMode::Write)
    form_.Sibling()->Control().AtualizaIrmao(true);
  else
    form_.Sibling()->Control().ShowSibling(true);
  form_.Sibling()->Control().DisparaEventos(u"BrowseReturn");
}

void Pair::RaiseBrowseReturn() {
  bool changed = true;
  events_.BrowseReturn(changed, contents_.LastValue);
}

/// The definition's condition, narrowed to the key of a description.
String Pair::SiblingCondition() const {
  const auto definition = definitions_.Browse();
  const String filter = KeyFilter(definition->BrwCampoIrmao());
  return Joined(form_.Condition(*definition), filter);
}

/// "" if there is no field, or no key to compare it with.
String Pair::KeyFilter(const String& siblingField) const {
  const String literal = siblingField.empty() ? String() : SiblingLiteral();
  if (literal.empty()) return {};
  return mdlObjTxt::TiraAlias(siblingField) + u" = " + literal;
}

String Pair::SiblingLiteral() const {
  if (comforts().SearchWithoutFormerKey && box_.Shown().IsTyped()) return {};
  const Variant& literal = State().vntValorIrmao;
  if (literal.IsNull()) return {};
  const String text = SqlText(literal);
  if (Trim(Replace(text, u"'", u"")).empty()) return {};
  return ReadyLiteral(literal, ties_.TxtIrmao);
}

void Pair::FetchSiblingLiteral() const {
  auto& literal = State().vntValorIrmao;
  literal = Variant();
  if (Trim(ties_.TxtIrmao).empty() || !ties_.bIrmaoConectado) return;
  const auto sibling = form_.Sibling();
  const Variant value = sibling->Control().Value();
  if (IsNumericFieldType(sibling->Control().TipoDado()))
    literal = value;
  else
    literal = QuotedText(SqlText(value));
}

void Pair::Complete(Integer KeyCode) {
  if (definitions_.BrowseTable().empty() || definitions_.BrwCampo().empty()) {
    TellStop(site_,
             u"Propriedades da Browse Não Informadas Corretamente. Contate o Administrador de "
             u"Sistema.");
    return;
  }
  const auto sibling = ties_.bIrmaoConectado ? form_.Sibling() : nullptr;
  if (KeyCode == kKeyTilde || KeyCode == kKeyAcute) return;

  const auto definition = definitions_.Browse();
  // The condition is the definition's own; the key's literal narrows it further.
  const String condition = form_.Condition(*definition);
  const String siblingField = definitions_.BrwCampoIrmao();
  const String narrowed = Joined(condition, KeyFilter(siblingField));

  const bool typed = box_.Shown().IsTyped();
  const String before = box_.Widget().Text();
  mdlObjTxt::CompletaDescr(box_.Widget(), definition->From(), definitions_.BrwCampo(), KeyCode,
                           ties_.bIrmaoConectado, siblingField,
                           sibling ? &sibling->Control() : nullptr, narrowed);
  // A failed search has restored the text of the box.
  if (!typed && box_.Widget().Text() == before) box_.Shown().ForgetTyping();
}

}  // namespace tessaria
