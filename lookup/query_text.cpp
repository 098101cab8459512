#include "lookup/query_text.h"

#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {
namespace {

/// The closing quote for an opening one; 0 for any other character.
char16_t ClosingQuote(char16_t c) {
  if (c == u'[') return u']';
  return c == u'"' || c == u'`' ? c : u'\0';
}

/// The last part of a qualified name, without its quotes.
String LastPart(StringView name) {
  String part;
  char16_t closing = 0;
  for (std::size_t i = 0; i < name.size(); ++i) {
    const char16_t c = name[i];
    if (closing != 0 && c == closing) {
      const bool doubled = i + 1 < name.size() && name[i + 1] == closing;
      if (doubled) part += name[++i];
      if (!doubled) closing = 0;
    } else if (closing == 0 && ClosingQuote(c) != 0) {
      closing = ClosingQuote(c);
    } else if (closing == 0 && c == u'.') {
      part.clear();
    } else {
      part += c;
    }
  }
  return part;
}

}  // namespace

String TiraAlias(const String& strCampo) {
  const Long position = InStr(strCampo, u" as ");
  return position == 0 ? strCampo : Left(strCampo, position);
}

String ColumnName(const String& strCampo) {
  constexpr StringView kAlias = u" as ";
  const Long alias = InStrRev(LCase(strCampo), kAlias);
  return LastPart(Trim(alias == 0 ? strCampo : Mid(strCampo, alias + Len(kAlias))));
}

}  // namespace tessaria::mdlObjTxt
