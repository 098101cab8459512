#include "browse/row_criterion.h"

#include "lookup/dialect.h"
#include "runtime/conversion.h"
#include "runtime/digits.h"
#include "runtime/text.h"

namespace tessaria::mdlObjTxt {
namespace {

String NomeNoCriterio(const String& nome) {
  const bool terminaAntes = nome.find_first_of(u" =<>") != String::npos;
  return terminaAntes || StartsWith(nome, u"[") ? u"[" + nome + u"]" : nome;
}

/// Whether the usual text of a binary number stands for that number and no neighbour of it.
bool EhExato(const Variant& valor, const String& texto) {
  if (const auto* simples = valor.TryGet<float>())
    return static_cast<float>(CDbl(texto)) == *simples;
  const auto* duplo = valor.TryGet<double>();
  return duplo == nullptr || CDbl(texto) == *duplo;
}

String TextoExato(const Variant& valor) {
  String texto = CStr(valor);
  return EhExato(valor, texto) ? texto : PlainText(ShortestDigits(CDbl(valor)), u',');
}

}  // namespace

String CriterioDeInicio(const String& nome, StringView texto) {
  return NomeNoCriterio(nome) + u" like '" + DobraAspas(texto) + u"%'";
}

String CriterioDeIgualdade(const String& nome, const Variant& valor) {
  return NomeNoCriterio(nome) + u" = " + TextoExato(valor);
}

}  // namespace tessaria::mdlObjTxt
