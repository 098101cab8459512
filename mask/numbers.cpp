#include "mask/numbers.h"

#include <charconv>
#include <cmath>
#include <iterator>

#include "mask/masks.h"
#include "runtime/conversion.h"
#include "runtime/format.h"
#include "runtime/text.h"

namespace tessaria::mdlObjTxt {
namespace {

constexpr Long kWholeText = 1;

/// Texts that count as 0.
bool IsBlankNumber(const Variant& value) {
  const String* const text = value.TryGet<String>();
  return text && (text->empty() || Trim(*text) == u".");
}

/// All digits of a whole number that is not negative, never with an exponent.
String Digits(double number) {
  char digits[400];
  const auto end =
      std::to_chars(std::begin(digits), std::end(digits), number, std::chars_format::fixed, 0).ptr;
  return String(std::begin(digits), end);
}

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
  if (place == u'0' && !Trim(typed).empty()) return StrZero(typed, CInt(length), 0);
  return promptChar.empty() ? typed : Replace(typed, u" ", promptChar);
}

String FillRuns(const String& boxText, const String& mask, const String& promptChar) {
  const String text = Replace(boxText, promptChar, u" ");
  String result;
  for (Long position = 1; position <= Len(mask);) {
    const Run run = RunAt(mask, position);
    const char16_t place = mask[static_cast<std::size_t>(run.start - 1)];
    const String filled = FillRun(Mid(text, run.start, run.length), place, run.length, promptChar);
    if (Trim(result).empty()) result = StrZero(u"0", CInt(Len(result)), 0);
    result += filled;
    position += run.length;
  }
  return Trim(result);
}

}  // namespace

String StrZero(const Variant& value, Integer length, Integer decimals) {
  const double number = IsBlankNumber(value) ? 0 : CDbl(value);
  const double whole = Round(number * std::pow(10.0, decimals));
  const String sign = whole < 0 ? u"-" : u"";
  const String digits = Digits(std::fabs(whole));
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
