#include "tessaria/scramble.h"

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria::mdlComum {
namespace {

/// Brings a shifted code back into the code page. Codes far below 0 stay outside it.
Long Wrap(Long code) {
  if (code > 255) return code % 255;
  if (code < 0) return 255 + code;
  return code;
}

}  // namespace

String CodificaTexto(const String& strTexto) {
  String result;
  result.reserve(strTexto.size());
  for (Long position = 1; position <= Len(strTexto); ++position) {
    const Long code = AnsiCode(strTexto[static_cast<std::size_t>(position - 1)]);
    const Long shift = EhPar(position) ? position : -position;
    result += AnsiCharacter(Wrap(code + 50 + shift));
  }
  return result;
}

bool EhPar(Long varNumero) { return varNumero % 2 == 0; }

double NuloParaZero(const Variant& varValor) {
  try {
    return CDbl(varValor);
  } catch (const HostError&) {
    return 0;
  }
}

}  // namespace tessaria::mdlComum
