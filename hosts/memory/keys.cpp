#include "tessaria/memory/keys.h"

#include <algorithm>
#include <iterator>

namespace tessaria::memory {
namespace {

struct PrintedKey {
  char16_t Character;
  Integer Code;
  Integer Shift;
};

/// Keys of the Brazilian layout that are neither letters nor digits.
constexpr PrintedKey kPrintedKeys[] = {
    {u' ', 32, 0},  {u',', 188, 0},  {u'<', 188, 1}, {u'.', 190, 0}, {u'>', 190, 1}, {u'-', 189, 0},
    {u'_', 189, 1}, {u'=', 187, 0},  {u'+', 187, 1}, {u';', 191, 0}, {u':', 191, 1}, {u'/', 193, 0},
    {u'?', 193, 1}, {u'\\', 226, 0}, {u'|', 226, 1}, {u'[', 221, 0}, {u'{', 221, 1}, {u']', 220, 0},
    {u'}', 220, 1}, {u'\'', 192, 0}, {u'"', 192, 1}, {u'!', 49, 1},  {u'@', 50, 1},  {u'#', 51, 1},
    {u'$', 52, 1},  {u'%', 53, 1},   {u'&', 55, 1},  {u'*', 56, 1},  {u'(', 57, 1},  {u')', 48, 1},
    {u'ç', 186, 0}, {u'Ç', 186, 1},
};

struct Accent {
  Key DeadKey;
  Integer Shift;
  const char16_t* Composed;
  const char16_t* Letters;
};

constexpr Accent kAccents[] = {
    {Key::AcuteOrGrave, modifier::None, u"áéíóúÁÉÍÓÚ", u"aeiouAEIOU"},
    {Key::AcuteOrGrave, modifier::Shift, u"àÀ", u"aA"},
    {Key::TildeOrCircumflex, modifier::None, u"ãõñÃÕÑ", u"aonAON"},
    {Key::TildeOrCircumflex, modifier::Shift, u"âêôÂÊÔ", u"aeoAEO"},
};

bool IsLower(char16_t c) { return c >= u'a' && c <= u'z'; }
bool IsUpper(char16_t c) { return c >= u'A' && c <= u'Z'; }
bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

Stroke PlainStroke(char16_t c) {
  if (IsLower(c)) return {static_cast<Integer>(c - u'a' + u'A'), modifier::None, c};
  if (IsUpper(c)) return {static_cast<Integer>(c), modifier::Shift, c};
  if (IsDigit(c)) return {static_cast<Integer>(c), modifier::None, c};
  const auto* key = std::find_if(std::begin(kPrintedKeys), std::end(kPrintedKeys),
                                 [c](const PrintedKey& k) { return k.Character == c; });
  if (key != std::end(kPrintedKeys)) return {key->Code, key->Shift, c};
  return {0, modifier::None, c};
}

}  // namespace

Stroke StrokeOf(Key key, Integer shift) {
  const auto code = static_cast<Integer>(key);
  const bool printsControl = key == Key::Backspace || key == Key::Enter || key == Key::Escape;
  return {code, shift, printsControl ? static_cast<char16_t>(code) : char16_t{0}};
}

std::vector<Stroke> StrokesOf(char16_t character) {
  for (const Accent& accent : kAccents) {
    const auto at = StringView(accent.Composed).find(character);
    if (at == StringView::npos) continue;
    Stroke letter = PlainStroke(accent.Letters[at]);
    letter.Character = character;
    return {StrokeOf(accent.DeadKey, accent.Shift), letter};
  }
  return {PlainStroke(character)};
}

}  // namespace tessaria::memory
