#include "lookup/query_text.h"

#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {
namespace {

/// What closes the quotes that a character opens; 0 for any other character.
char16_t FechaDe(char16_t c) {
  if (c == u'[') return u']';
  return c == u'"' || c == u'`' ? c : u'\0';
}

/// The last part of a qualified name, between its quotes.
String UltimaParte(StringView nome) {
  String parte;
  char16_t fecha = 0;
  for (std::size_t i = 0; i < nome.size(); ++i) {
    const char16_t c = nome[i];
    if (fecha != 0 && c == fecha) {
      const bool dobrada = i + 1 < nome.size() && nome[i + 1] == fecha;
      if (dobrada) parte += nome[++i];
      if (!dobrada) fecha = 0;
    } else if (fecha == 0 && FechaDe(c) != 0) {
      fecha = FechaDe(c);
    } else if (fecha == 0 && c == u'.') {
      parte.clear();
    } else {
      parte += c;
    }
  }
  return parte;
}

}  // namespace

String TiraAlias(const String& strCampo) {
  const Long posicao = InStr(strCampo, u" as ");
  return posicao == 0 ? strCampo : Left(strCampo, posicao);
}

String NomeDeColuna(const String& strCampo) {
  constexpr StringView kAlias = u" as ";
  const Long alias = InStrRev(LCase(strCampo), kAlias);
  return UltimaParte(Trim(alias == 0 ? strCampo : Mid(strCampo, alias + Len(kAlias))));
}

}  // namespace tessaria::mdlObjTxt
