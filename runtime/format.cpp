#include "tessaria/format.h"

#include <optional>

#include "runtime/date_text.h"
#include "runtime/format_pattern.h"
#include "runtime/number_text.h"
#include "tessaria/conversion.h"

namespace tessaria {

namespace {

// All digits of a text count, provided that the number is in the range of a double.
std::optional<Digits> DigitsOfText(const String& text) {
  const auto number = ReadNumber(text);
  if (!number || !TryToDouble(number->Value)) return std::nullopt;
  return number->Value;
}

String AsNumber(const Variant& value, const Pattern& pattern) {
  if (const auto* text = value.TryGet<String>()) {
    const auto digits = DigitsOfText(*text);
    return digits ? FormatNumber(*digits, pattern) : *text;
  }
  return FormatNumber(DigitsOf(value), pattern);
}

String AsDate(const Variant& value, const Pattern& pattern) {
  if (const auto* text = value.TryGet<String>()) {
    const auto date = ReadDate(*text);
    return date ? FormatDate(*date, pattern) : *text;
  }
  return FormatDate(CDate(value), pattern);
}

}  // namespace

String Format(const Variant& value, StringView pattern) {
  if (value.IsNull() || value.IsEmpty() || value.IsMissing()) return {};
  const StringView expanded = ExpandName(pattern);
  if (expanded.empty()) return CStr(value);
  const Pattern items = ReadPattern(expanded);
  switch (KindOf(items)) {
    case PatternKind::Date:
      return AsDate(value, items);
    case PatternKind::Text:
      return FormatText(CStr(value), items);
    case PatternKind::Number:
      break;
  }
  return AsNumber(value, items);
}

}  // namespace tessaria
