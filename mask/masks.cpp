#include "tessaria/masks.h"

#include <algorithm>
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
bool Holds(StringView set, char16_t character) { return set.find(character) != StringView::npos; }

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

String LayOutNumber(const String& text, const String& mask) {
  const String format = FormatoNumero(mask, InStr(mask, kPoint) > 0);
  return Format(text, format) + NumberSuffix(mask);
}

String LayOutLeftToRight(const String& text, const String& mask, const String& fill,
                         const String& items) {
  const bool fills = !StartsWith(mask, u"X");
  std::size_t next = 0;
  String result;
  for (const char16_t place : mask) {
    if (Holds(items, place)) {
      result += place;
    } else if (next < text.size()) {
      result += text[next++];
    } else if (fills) {
      result += fill;
    }
  }
  return result;
}

/// The start of the left-aligned part of a two-sided mask; 0 when it has none. Only an "A" makes a
/// split: "a" and "C" can move it towards the start, but do not make one by themselves.
Long SplitOf(const String& mask) {
  Long split = InStr(mask, u"A");
  for (const StringView earlier : {u"a", u"C"}) {
    const Long position = InStr(mask, earlier);
    if (position > 0 && position < split) split = position;
  }
  return split;
}

/// Fills the slots from the right end to the left.
String LayOutRightToLeft(const String& text, const String& mask, const String& fill,
                         const String& items) {
  std::size_t left = text.size();
  String reversed;
  for (auto place = mask.rbegin(); place != mask.rend(); ++place) {
    if (Holds(items, *place)) {
      reversed += *place;
    } else if (left == 0) {
      reversed += fill;
    } else {
      reversed += text[--left];
    }
  }
  return {reversed.rbegin(), reversed.rend()};
}

String LayOutRemainder(const String& text, const String& mask, const String& fill,
                       const String& items) {
  const std::size_t end = RTrim(text).size();  // only blanks follow
  std::size_t next = 0;
  String result;
  for (const char16_t place : mask) {
    if (Holds(items, place)) {
      result += place;
    } else if (next >= end) {
      result += fill;
    } else {
      result += text[next++];
    }
  }
  return result;
}

String LayOutTwoSided(const String& text, const String& mask, const String& fill,
                      const String& items) {
  const Long split = SplitOf(mask);
  if (split == 0) return LayOutRightToLeft(text, mask, fill, items);
  const String left = LimpaMascara(Left(text, split - 1), mask, items);
  const Long remaining = Len(text) - split + 1;
  const String right = remaining < 1 ? Space(Len(mask) - split + 1)
                                     : LimpaMascara(Right(text, remaining), mask, items);
  return LayOutRightToLeft(left, Left(mask, split - 1), fill, items) +
         LayOutRemainder(right, Mid(mask, split), fill, items);
}

String LayOut(const String& text, const String& mask, const String& fill, const String& items) {
  if (mask.empty()) return text;
  if (IsNumericMask(mask)) return LayOutNumber(text, mask);
  if (StartsWith(mask, u"N")) return LayOutTwoSided(text, mask, fill, items);
  return LayOutLeftToRight(LimpaMascara(text, mask, items), mask, fill, items);
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
  if (mask.empty()) return text;
  String result = text;
  std::erase_if(result, [&](char16_t character) { return Holds(items, character); });
  return result;
}

String AplicaMascara(const Variant& value, const String& mask, const String& fill,
                     const String& items, const String& password) {
  const String text = value.IsNull() ? String() : CStr(value);
  const String result = LayOut(text, mask, fill, items);
  return password.empty() ? result : StringOf(Len(result), password);
}

Integer ContaDecimais(const String& text, const String& separator, const String& marker) {
  const Long found = InStr(text, separator);
  if (found == 0) return 0;
  const String tail = Mid(text, found + Len(separator));
  if (tail.empty()) return 1;  // the count starts at 1 and is only corrected by a character
  Long count = 0;
  while (Mid(tail, count + 1, 1) == marker) ++count;
  return CInt(count);
}

String FormatoNumero(const String& mask, bool) {
  const Integer decimals = ContaDecimais(mask, kPoint, kNumber);
  if (decimals == 0) return u"#,##0";
  return u"#,##0." + StringOf(decimals, u"0");
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

bool IsNumericMask(const String& mask) { return StartsWith(mask, kNumber); }

DateForm DateFormOf(const String& mask) {
  const auto found = std::find_if(std::begin(kDateMasks), std::end(kDateMasks),
                                  [&](const DateMask& row) { return row.mask == mask; });
  return found == std::end(kDateMasks) ? DateForm::None : found->form;
}

bool IsDateMask(const String& mask) { return DateFormOf(LCase(mask)) != DateForm::None; }

}  // namespace tessaria::mdlObjTxt
