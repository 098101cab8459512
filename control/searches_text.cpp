#include "control/searches_text.h"

#include "services/trap.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria {

namespace {

constexpr char16_t kFieldEnd = 3;

/// The type code of a letter; `before` for an unknown letter.
Long TypeOf(const String& letter, Long before) {
  if (letter == u"N") return 2;
  if (letter == u"S") return 8;
  if (letter == u"D") return 7;
  return before;
}

/// The comparison of a letter, which says where the wildcard goes: nowhere, at the end, at the
/// start, or at both.
Long LikeOf(const String& letter, Long before) {
  if (letter == u"N") return 0;
  if (letter == u"F") return 1;
  if (letter == u"C") return 2;
  if (letter == u"A") return 3;
  return before;
}

Integer NumberOf(const String& text) { return CInt(Val(text)); }
bool FlagOf(const String& text) { return Val(text) != 0; }

/// Returns false if one of them could not be added. All nine texts are cut where the captions end.
bool AddAll(const SearchTexts& texts, Pesquisa& searches) {
  bool allAdded = true;
  Long start = 1;
  Long type = 0;
  Long like = 0;
  for (Long p = 1; p <= Len(texts.PesqCaption); ++p) {
    if (texts.PesqCaption[p - 1] != kFieldEnd) continue;
    const auto slice = [&](const String& text) { return Trim(Mid(text, start, p - start)); };
    type = TypeOf(slice(texts.PesqTipo), type);
    like = LikeOf(slice(texts.PesqLike), like);
    const bool added =
        searches.Add(p, slice(texts.PesqCaption), slice(texts.PesqCampo), type, like,
                     slice(texts.PesqMascara), NumberOf(slice(texts.PesqWidth)),
                     NumberOf(slice(texts.PesqMaxLength)), FlagOf(slice(texts.PesqCompletaDescr)),
                     FlagOf(slice(texts.PesqPromptInclude)), 0, 0, String());
    allAdded = added && allAdded;
    start = p + 1;
  }
  return allAdded;
}

}  // namespace

void AddSearchTexts(SearchTexts& texts, Pesquisa& searches) {
  Trap(u"tsText", u"AtualizaPesquisa", [&] {
    if (!AddAll(texts, searches)) return;
    for (String* text : {&texts.PesqCaption, &texts.PesqCampo, &texts.PesqMascara, &texts.PesqWidth,
                         &texts.PesqMaxLength, &texts.PesqCompletaDescr, &texts.PesqPromptInclude})
      text->clear();
  });
}

}  // namespace tessaria
