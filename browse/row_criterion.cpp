#include "browse/row_criterion.h"

#include "lookup/literals.h"
#include "runtime/digits.h"
#include "runtime/field_names.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {
namespace {

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
  return FieldNameText(nome) + u" like '" + DobraAspas(texto) + u"%'";
}

void AchaInicio(host::Recordset& linhas, StringView texto) {
  const auto campo = [&] { return linhas.Fields().Item(0); };
  const String criterio = CriterioDeInicio(campo()->Name(), texto);
  linhas.Find(criterio);
  if (texto.find_first_of(u"*%") != 0) return;
  const String inicio = LCase(texto);
  while (!linhas.Eof() && !StartsWith(LCase(CStr(campo()->Value())), inicio)) {
    linhas.MoveNext();
    if (!linhas.Eof()) linhas.Find(criterio);
  }
}

String CriterioDeIgualdade(const String& nome, const Variant& valor) {
  return FieldNameText(nome) + u" = " + TextoExato(valor);
}

}  // namespace tessaria::mdlObjTxt
