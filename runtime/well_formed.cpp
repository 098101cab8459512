#include "runtime/well_formed.h"

#include "tessaria/error.h"

namespace tessaria {
namespace {

bool IsHighHalf(char16_t c) { return c >= 0xD800 && c <= 0xDBFF; }
bool IsLowHalf(char16_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

}  // namespace

bool IsWellFormed(StringView text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != 0 && text[i] < 0xD800) continue;
    if (text[i] == 0 || IsLowHalf(text[i])) return false;
    if (!IsHighHalf(text[i])) continue;
    if (++i == text.size() || !IsLowHalf(text[i])) return false;
  }
  return true;
}

void RequireWellFormed(StringView text) {
  if (IsWellFormed(text)) return;
  throw HostError(errors::InvalidArgument,
                  u"O texto contém um caractere nulo ou incompleto, que o banco de dados não "
                  u"aceita. Digite o texto de novo.");
}

}  // namespace tessaria
