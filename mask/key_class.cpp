#include "mask/key_class.h"

#include <algorithm>
#include <iterator>

#include "tessaria/text.h"

namespace tessaria {
namespace {

struct KeyRange {
  Integer first, last;
};
constexpr KeyRange kDigits = {u'0', u'9'};
constexpr KeyRange kTextKeys[] = {{u'a', u'z'}, {u'A', u'Z'}, kDigits, {u' ', u' '}};

bool InRange(const KeyRange& range, Integer key) { return key >= range.first && key <= range.last; }

bool ClasseDigito(Integer key) { return InRange(kDigits, key); }
bool ClasseTexto(Integer key) {
  return std::any_of(std::begin(kTextKeys), std::end(kTextKeys),
                     [key](const KeyRange& range) { return InRange(range, key); });
}

String AsTyped(StringView character) { return String(character); }

/// The slots by mask character. The case of "D", "M", "Y", "c" and "x" matters to a mask, where
/// they are literals, but not here.
struct SlotClass {
  StringView slots;
  bool (*takes)(Integer key);
  String (*fold)(StringView character);
};
constexpr SlotClass kClasses[] = {
    {u"N#0dmyDMY", ClasseDigito, AsTyped},
    {u"ACc", ClasseTexto, UCase},
    {u"a", ClasseTexto, LCase},
    {u"Xx", ClasseTexto, AsTyped},
};

const SlotClass* ClassOf(StringView slot) {
  const auto found = std::find_if(std::begin(kClasses), std::end(kClasses), [&](const auto& row) {
    return !slot.empty() && row.slots.find(slot) != StringView::npos;
  });
  return found == std::end(kClasses) ? nullptr : found;
}

}  // namespace

bool SlotTakes(StringView slot, Integer key) {
  const SlotClass* const found = ClassOf(slot);
  return found && found->takes(key);
}

String FoldForSlot(StringView slot, Integer key) {
  const auto character = static_cast<char16_t>(key);
  const SlotClass* const found = ClassOf(slot);
  return found ? found->fold(StringView(&character, 1)) : String(1, character);
}

bool IsNumberKey(Integer key) {
  static constexpr Integer kKeys[] = {key::Plus,      key::Comma, key::Minus, key::Point,
                                      key::Backspace, u'k',       u'm'};
  return ClasseDigito(key) || std::find(std::begin(kKeys), std::end(kKeys), key) != std::end(kKeys);
}

}  // namespace tessaria
