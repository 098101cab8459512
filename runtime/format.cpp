#include "tessaria/format.h"

#include <memory>
#include <optional>
#include <utility>

#include "runtime/date_text.h"
#include "runtime/number_layout.h"
#include "runtime/number_text.h"
#include "tessaria/conversion.h"

namespace tessaria {

namespace {

// A pattern as it is applied.
struct KnownPattern {
  String Text;
  bool IsGeneral = true;  // shows values as their texts
  PatternKind Kind = PatternKind::Number;
  Pattern Items;
  NumberLayout Numbers;  // of the kind Number
};

KnownPattern Read(StringView text) {
  KnownPattern known;
  known.Text = text;
  const StringView expanded = ExpandName(text);
  known.IsGeneral = expanded.empty();
  known.Items = ReadPattern(expanded);
  known.Kind = KindOf(known.Items);
  if (known.Kind == PatternKind::Number) known.Numbers = ReadNumberLayout(known.Items);
  return known;
}

// Fields format with the same pattern again and again: the last one is kept as it was read. A
// pattern of dates may use others while it is applied.
std::shared_ptr<const KnownPattern> Known(StringView text) {
  static thread_local auto last = std::make_shared<const KnownPattern>();
  if (last->Text != text) last = std::make_shared<const KnownPattern>(Read(text));
  return last;
}

// All digits of a text count, provided that the number is in the range of a double.
std::optional<Digits> DigitsOfText(const String& text) {
  auto number = ReadNumber(text);
  if (!number || !IsInRangeOfDouble(number->Value)) return std::nullopt;
  return std::move(number->Value);
}

String AsNumber(const Variant& value, const NumberLayout& layout) {
  if (const auto* text = value.TryGet<String>()) {
    const auto digits = DigitsOfText(*text);
    return digits ? FormatNumber(*digits, layout) : *text;
  }
  return FormatNumber(DigitsOf(value), layout);
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
  const auto known = Known(pattern);
  if (known->IsGeneral) return CStr(value);
  switch (known->Kind) {
    case PatternKind::Date:
      return AsDate(value, known->Items);
    case PatternKind::Text:
      return FormatText(CStr(value), known->Items);
    case PatternKind::Number:
      break;
  }
  return AsNumber(value, known->Numbers);
}

}  // namespace tessaria
