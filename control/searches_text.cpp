// The older text form of the searches becomes the definition object.

#include "control/tstext.h"
#include "services/trap.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria {

namespace {

constexpr char16_t kFieldEnd = 3;

/// The type code of a letter; `before` for a letter without a meaning.
Long TypeOf(const String& letter, Long before) {
  if (letter == u"N") return 2;
  if (letter == u"S") return 8;
  if (letter == u"D") return 7;
  return before;
}

/// The comparison of a letter, which tells where the wildcard goes: nowhere, at the end, at the
/// start, at both.
Long LikeOf(const String& letter, Long before) {
  if (letter == u"N") return 0;
  if (letter == u"F") return 1;
  if (letter == u"C") return 2;
  if (letter == u"A") return 3;
  return before;
}

Integer NumberOf(const String& text) { return CInt(Val(text)); }

}  // namespace

void tsText::AtualizaPesquisa() {
  if (m_.TipoControle != tessaria::TipoControle::Browse &&
      m_.TipoControle != tessaria::TipoControle::Descricao)
    return;
  Trap(u"tsText", u"AtualizaPesquisa", [&] {
    bool allAdded = true;
    Long start = 1;
    Long type = 0;
    Long like = 0;
    for (Long p = 1; p <= Len(m_.PesqCaption); ++p) {
      if (m_.PesqCaption[p - 1] != kFieldEnd) continue;
      // All nine texts are cut at the places of the captions.
      const auto slice = [&](const String& text) { return Trim(Mid(text, start, p - start)); };
      type = TypeOf(slice(m_.PesqTipo), type);
      like = LikeOf(slice(m_.PesqLike), like);
      allAdded =
          Pesquisa()->Add(p, slice(m_.PesqCaption), slice(m_.PesqCampo), type, like,
                          slice(m_.PesqMascara), NumberOf(slice(m_.PesqWidth)),
                          NumberOf(slice(m_.PesqMaxLength)), Val(slice(m_.PesqCompletaDescr)) != 0,
                          Val(slice(m_.PesqPromptInclude)) != 0, 0, 0, String()) &&
          allAdded;
      start = p + 1;
    }
    if (!allAdded) return;
    for (String* text : {&m_.PesqCaption, &m_.PesqCampo, &m_.PesqMascara, &m_.PesqWidth,
                         &m_.PesqMaxLength, &m_.PesqCompletaDescr, &m_.PesqPromptInclude})
      text->clear();
  });
}

}  // namespace tessaria
