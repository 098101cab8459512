#include "mask/numbers.h"

#include <utility>

#include "runtime/digits.h"
#include "runtime/number_text.h"
#include "tessaria/conversion.h"
#include "tessaria/masks.h"
#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {
namespace {

constexpr Long kWholeText = 1;

/// Texts that count as 0.
bool IsBlankNumber(const Variant& value) {
  const String* const text = value.TryGet<String>();
  return text && (text->empty() || Trim(*text) == u".");
}

/// All digits of a text count, and of a double those that its text shows.
Digits NumberOf(const Variant& value) {
  if (IsBlankNumber(value)) return {};
  static_cast<void>(CDbl(value));  // for its errors
  const String* const text = value.TryGet<String>();
  return text ? ReadNumber(*text)->Value : DigitsOf(value);
}

bool IsBlank(StringView text) { return text.find_first_not_of(u' ') == StringView::npos; }

/// One run of equal mask characters.
struct Run {
  Long start, length;
};

Run RunAt(const String& mask, Long start) {
  Long end = start;
  while (end <= Len(mask) && Mid(mask, end, 1) == Mid(mask, start, 1)) ++end;
  return {start, end - start};
}

String FillRun(const String& typed, char16_t place, Long length, const String& promptChar) {
  if (place == u'0' && !IsBlank(typed)) return StrZero(typed, CInt(length), 0);
  return promptChar.empty() ? typed : Replace(typed, u" ", promptChar);
}

String FillRuns(const String& boxText, const String& mask, const String& promptChar) {
  const String text = Replace(boxText, promptChar, u" ");
  String result;
  for (Long position = 1; position <= Len(mask);) {
    const Run run = RunAt(mask, position);
    const char16_t place = mask[static_cast<std::size_t>(run.start - 1)];
    const String filled = FillRun(Mid(text, run.start, run.length), place, run.length, promptChar);
    if (IsBlank(result)) result = StrZero(u"0", CInt(Len(result)), 0);
    result += filled;
    position += run.length;
  }
  return Trim(result);
}

}  // namespace

String StrZero(const Variant& value, Integer length, Integer decimals) {
  Digits number = NumberOf(value);
  number.Point += decimals;
  Digits whole = Rounded(std::move(number), 0, Halves::ToEven);
  whole.DropLeadingZeros();
  if (whole.IsZero()) whole = {};  // one digit, however many decimals it came with
  const String sign = whole.Negative && !whole.IsZero() ? u"-" : u"";
  whole.Negative = false;
  const String digits = PlainText(whole, u',');
  const Long missing = length - Len(digits) - Len(sign);
  if (missing < 0) return StringOf(length, u"*");
  return sign + StringOf(missing, u"0") + digits;
}

void PreencheZeros(host::TextBox& box, const String& mask, const String& items,
                   const String& promptChar, Long TipoStrZero) {
  if (TipoStrZero == kWholeText) {
    const Integer length = CInt(Len(LimpaMascara(mask, mask, items)));
    box.Text(StrZero(LimpaMascara(box.Text(), mask, items), length, 0));
  } else {
    box.Text(FillRuns(box.Text(), mask, promptChar));
  }
}

}  // namespace tessaria::mdlObjTxt
