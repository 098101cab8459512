#include "tessaria/masks.h"

#include <algorithm>
#include <functional>
#include <iterator>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/format.h"
#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {
namespace {

constexpr StringView kSlots = u"0#dmyAaC$XN";
const String kPoint = u".", kNumber = u"$";

struct DateMask {
  StringView mask;
  DateForm form;
};
constexpr DateMask kDateMasks[] = {
    {u"dd/mm/yyyy", DateForm::DayMonthYear}, {u"dd/mm/yy", DateForm::DayMonthYear},
    {u"mm/yyyy", DateForm::MonthYear},       {u"mm/yy", DateForm::MonthYear},
    {u"00/00/0000", DateForm::EmptyOnly},
};

bool IsSlot(char16_t character) { return kSlots.find(character) != StringView::npos; }
/// For sets of a few characters.
bool Holds(StringView set, char16_t character) {
  for (const char16_t member : set)
    if (member == character) return true;
  return false;
}

/// The suffix of a numeric mask that does not end in "$": for each literal, also one before a "$",
/// the rest of the mask from that literal on, one after another. So "%" gives "%", " kg" gives
/// " kgkgg", and the mask "$$-$$%" gives "-$$%%". It grows with the square of the mask: error 7 for
/// a suffix that no box could show.
String NumberSuffix(const String& mask) {
  constexpr std::size_t kLongest = 1'000'000;
  String suffix;
  if (EndsWith(mask, kNumber)) return suffix;
  for (std::size_t at = 0; at < mask.size(); ++at) {
    const StringView character = StringView(mask).substr(at, 1);
    if (character == kNumber || character == kPoint) continue;
    if (suffix.size() + mask.size() - at > kLongest) throw HostError(errors::OutOfMemory);
    suffix.append(mask, at);
  }
  return suffix;
}

struct NumberMask {
  String Mask, Format, Suffix;
};

// A field lays out with the same mask again and again: what follows from the last one is kept.
const NumberMask& Known(const String& mask) {
  static thread_local NumberMask last;
  if (last.Mask != mask)
    last = {mask, FormatoNumero(mask, mask.find(u'.') != String::npos), NumberSuffix(mask)};
  return last;
}

String LayOutNumber(const Variant& text, const String& mask) {
  const NumberMask& known = Known(mask);
  String shown = Format(text, known.Format);
  shown += known.Suffix;
  return shown;
}

String WithoutItems(StringView text, StringView items) {
  String result(text);
  std::erase_if(result, [items](char16_t character) { return Holds(items, character); });
  return result;
}

/// Leaves out the items of the text.
String LayOutLeftToRight(StringView text, StringView mask, StringView fill, StringView items) {
  const bool fills = !mask.starts_with(u'X');
  const auto isItem = [items](char16_t character) { return Holds(items, character); };
  auto next = text.begin();
  String result;
  result.reserve(mask.size());
  for (const char16_t place : mask) {
    if (isItem(place)) {
      result += place;
      continue;
    }
    next = std::find_if_not(next, text.end(), isItem);
    if (next != text.end()) {
      result += *next++;
    } else if (fills) {
      result += fill;
    }
  }
  return result;
}

/// The start of the left-aligned part of a two-sided mask; 0 when it has none. Only an "A" makes a
/// split: "a" and "C" can move it towards the start, but do not make one by themselves.
std::size_t SplitOf(StringView mask) {
  std::size_t split = 0;
  for (std::size_t at = 0; at < mask.size(); ++at) {
    const char16_t place = mask[at];
    if (split == 0 && (place == u'A' || place == u'a' || place == u'C')) split = at + 1;
    if (place == u'A') return split;
  }
  return 0;
}

/// The last characters take the last slots. The fill stands mirrored in the slots before.
void AppendRightAligned(String& result, StringView text, StringView mask, StringView fill,
                        StringView items) {
  const auto isItem = [items](char16_t place) { return Holds(items, place); };
  const auto places = std::count_if(mask.begin(), mask.end(), std::not_fn(isItem));
  const auto slots = static_cast<std::size_t>(places);
  std::size_t empty = slots - std::min(slots, text.size());
  std::size_t next = text.size() - std::min(slots, text.size());
  for (const char16_t place : mask) {
    if (isItem(place)) {
      result += place;
    } else if (empty > 0) {
      result.append(fill.rbegin(), fill.rend());
      --empty;
    } else {
      result += text[next++];
    }
  }
}

void AppendRemainder(String& result, StringView text, StringView mask, StringView fill,
                     StringView items) {
  const std::size_t end = text.find_last_not_of(u' ') + 1;  // only blanks follow
  std::size_t next = 0;
  for (const char16_t place : mask) {
    if (Holds(items, place)) {
      result += place;
    } else if (next >= end) {
      result += fill;
    } else {
      result += text[next++];
    }
  }
}

String LayOutTwoSided(StringView text, StringView mask, StringView fill, StringView items) {
  String result;
  result.reserve(mask.size());
  const std::size_t split = SplitOf(mask);
  if (split == 0) {
    AppendRightAligned(result, text, mask, fill, items);
    return result;
  }
  const String left = WithoutItems(text.substr(0, split - 1), items);
  const String right = WithoutItems(text.substr(std::min(split - 1, text.size())), items);
  AppendRightAligned(result, left, mask.substr(0, split - 1), fill, items);
  AppendRemainder(result, right, mask.substr(split - 1), fill, items);
  return result;
}

/// `text` holds a string.
String LayOut(const Variant& text, const String& mask, const String& fill, const String& items) {
  if (IsNumericMask(mask)) return LayOutNumber(text, mask);
  const String& characters = *text.TryGet<String>();
  if (mask.empty()) return characters;
  if (mask.front() == u'N') return LayOutTwoSided(characters, mask, fill, items);
  return LayOutLeftToRight(characters, mask, fill, items);
}

}  // namespace

String MontaItensMascara(const String& mask, const String& fill) {
  String items = fill;
  for (const char16_t character : mask) {
    if (!IsSlot(character) && !Holds(items, character)) items += character;
  }
  return items;
}

bool EhItemMascara(const String& text, Integer position, const String& items) {
  const String character = Mid(text, position, 1);
  return !character.empty() && Holds(items, character.front());
}

String LimpaMascara(const String& text, const String& mask, const String& items) {
  return mask.empty() ? text : WithoutItems(text, items);
}

String AplicaMascara(const Variant& value, const String& mask, const String& fill,
                     const String& items, const String& password) {
  const auto layOut = [&](const Variant& text) { return LayOut(text, mask, fill, items); };
  String result = value.IsString() ? layOut(value)
                  : value.IsNull() ? layOut(String())
                                   : layOut(CStr(value));
  return password.empty() ? result : StringOf(Len(result), password);
}

Integer ContaDecimais(const String& text, const String& separator, const String& marker) {
  const Long found = InStr(text, separator);
  if (found == 0) return 0;
  const StringView tail =
      StringView(text).substr(static_cast<std::size_t>(found) - 1 + separator.size());
  if (tail.empty()) return 1;  // the count starts at 1 and is only corrected by a character
  std::size_t count = 0;
  while (count < tail.size() && tail.substr(count, 1) == marker) ++count;
  return CInt(static_cast<Long>(count));
}

String FormatoNumero(const String& mask, bool) {
  const auto decimals = static_cast<std::size_t>(ContaDecimais(mask, kPoint, kNumber));
  String format = u"#,##0";
  if (decimals > 0) format.append(1, u'.').append(decimals, u'0');
  return format;
}

bool CommaRemovalOverflows(const String& text, const String& mask, Long MaxLength) {
  return Len(Replace(text, u",", u"")) > CapacidadeInteira(mask, MaxLength);
}

Integer CapacidadeInteira(const String& mask, Long MaxLength) {
  const Long decimals = ContaDecimais(mask, kPoint, kNumber);
  const Long comma = decimals == 0 ? 0 : 1;
  const Long suffix = EndsWith(mask, kNumber) ? 0 : 1;
  const Integer places = CInt(CInt(MaxLength) - decimals - comma - suffix);
  const Integer points = std::max<Integer>(0, static_cast<Integer>(places / 4));
  return static_cast<Integer>(places - points);
}

bool IsNumericMask(const String& mask) { return mask.starts_with(u'$'); }

DateForm DateFormOf(const String& mask) {
  const auto found = std::find_if(std::begin(kDateMasks), std::end(kDateMasks),
                                  [&](const DateMask& row) { return row.mask == mask; });
  return found == std::end(kDateMasks) ? DateForm::None : found->form;
}

bool IsDateMask(const String& mask) { return DateFormOf(LCase(mask)) != DateForm::None; }

}  // namespace tessaria::mdlObjTxt
