#include "services/stored_value.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <string>
#include <utility>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/host/widgets.h"
#include "tessaria/text.h"

namespace tessaria {
namespace {

using Result = std::optional<Variant>;

// --- Numbers --------------------------------------------------------------------------------

String Widen(std::string_view ascii) { return String(ascii.begin(), ascii.end()); }

/// The shortest digits from which the same number is read.
template <class T>
String NumberToText(T number) {
  char digits[64];
  const auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
  return Widen(std::string_view(digits, static_cast<std::size_t>(end - digits)));
}

template <class T>
std::optional<T> NumberFromText(StringView text) {
  const std::string bytes = ToUtf8(text);
  T number{};
  const char* const end = bytes.data() + bytes.size();
  const auto [stop, error] = std::from_chars(bytes.data(), end, number);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

template <class T>
String WriteNumber(const Variant& value) {
  return NumberToText(*value.TryGet<T>());
}

template <class T>
Result ReadNumber(StringView text) {
  const auto number = NumberFromText<T>(text);
  return number ? Result(Variant(*number)) : std::nullopt;
}

// --- Exact kinds ----------------------------------------------------------------------------

constexpr std::size_t kCurrencyDecimals = 4;

String WriteCurrency(const Variant& value) {
  String digits = NumberToText(value.TryGet<Currency>()->TenThousandths);
  const std::size_t sign = digits.front() == u'-' ? 1 : 0;
  if (digits.size() - sign <= kCurrencyDecimals) {
    digits.insert(sign, kCurrencyDecimals + 1 - (digits.size() - sign), u'0');
  }
  return digits.insert(digits.size() - kCurrencyDecimals, 1, u'.');
}

Result ReadCurrency(StringView text) {
  const std::size_t point = text.find(u'.');
  if (point == StringView::npos || point + kCurrencyDecimals + 1 != text.size()) return {};
  const auto count =
      NumberFromText<std::int64_t>(String(text.substr(0, point)).append(text.substr(point + 1)));
  return count ? Result(Currency{*count}) : std::nullopt;
}

String WriteDecimal(const Variant& value) { return DecimalText(*value.TryGet<Decimal>()); }

Result ReadDecimal(StringView text) {
  try {
    return Variant(DecimalFromText(text));
  } catch (const HostError&) {
    return std::nullopt;
  }
}

String WriteBoolean(const Variant& value) { return *value.TryGet<bool>() ? u"True" : u"False"; }

Result ReadBoolean(StringView text) {
  if (text == u"True") return Variant(true);
  if (text == u"False") return Variant(false);
  return std::nullopt;
}

// --- Dates: year-month-day[ hour:minute:second], or "#" and the days where that is not exact --

String Padded(int number, Long width) {
  const String digits = NumberToText(number);
  return StringOf(std::max<Long>(0, width - Len(digits)), u"0") + digits;
}

String CivilText(const CivilTime& time) {
  String text = Padded(time.Year, 4) + u"-" + Padded(time.Month, 2) + u"-" + Padded(time.Day, 2);
  if (time.Hour == 0 && time.Minute == 0 && time.Second == 0) return text;
  return text + u" " + Padded(time.Hour, 2) + u":" + Padded(time.Minute, 2) + u":" +
         Padded(time.Second, 2);
}

/// Two or four digits of a text at a position; nothing when they are not digits.
std::optional<int> DigitsAt(StringView text, std::size_t position, std::size_t count) {
  const StringView digits = text.substr(position, count);
  if (digits.find_first_not_of(u"0123456789") != StringView::npos) return std::nullopt;
  return NumberFromText<int>(digits);
}

std::optional<CivilTime> CivilFromText(StringView text) {
  constexpr StringView kDay = u"0000-00-00", kDayAndTime = u"0000-00-00 00:00:00";
  const StringView form = text.size() == kDay.size() ? kDay : kDayAndTime;
  if (text.size() != form.size()) return std::nullopt;
  for (std::size_t i = 0; i < form.size(); ++i) {
    if (form[i] != u'0' && form[i] != text[i]) return std::nullopt;
  }
  CivilTime time;
  const std::pair<int*, std::size_t> twoDigits[] = {
      {&time.Month, 5}, {&time.Day, 8}, {&time.Hour, 11}, {&time.Minute, 14}, {&time.Second, 17}};
  const auto year = DigitsAt(text, 0, 4);
  if (!year) return std::nullopt;
  time.Year = *year;
  for (const auto& [part, position] : twoDigits) {
    if (position >= form.size()) break;
    const auto number = DigitsAt(text, position, 2);
    if (!number) return std::nullopt;
    *part = *number;
  }
  return time;
}

Result ReadDate(StringView text) {
  if (text.starts_with(u'#')) {
    const auto days = NumberFromText<double>(text.substr(1));
    return days ? Result(Date{*days}) : std::nullopt;
  }
  const auto time = CivilFromText(text);
  if (!time) return std::nullopt;
  try {
    return Variant(FromCivil(*time));
  } catch (const HostError&) {
    return std::nullopt;
  }
}

/// Whether the date is in the calendar: the years 100 to 9999.
bool HasCivil(Date date) { return date.Days > -657435 && date.Days < 2958466; }

String WriteDate(const Variant& value) {
  const Date date = *value.TryGet<Date>();
  if (HasCivil(date)) {
    const String text = CivilText(ToCivil(date));
    const Result again = ReadDate(text);
    const auto bits = std::bit_cast<std::uint64_t>(date.Days);
    if (again && std::bit_cast<std::uint64_t>(again->TryGet<Date>()->Days) == bits) return text;
  }
  return u"#" + NumberToText(date.Days);
}

// --- Fonts: size, styles, then the name -------------------------------------------------------

struct FontStyle {
  StringView word;
  bool host::Font::*flag;
};
constexpr FontStyle kFontStyles[] = {{u"bold", &host::Font::Bold},
                                     {u"italic", &host::Font::Italic},
                                     {u"underline", &host::Font::Underline},
                                     {u"strikethrough", &host::Font::Strikethrough}};
constexpr StringView kFontName = u" name=";

std::shared_ptr<host::Font> FontOf(const Variant& value) {
  const ObjectPtr* const object = value.TryGet<ObjectPtr>();
  return object ? std::dynamic_pointer_cast<host::Font>(*object) : nullptr;
}

String WriteFont(const Variant& value) {
  const auto font = FontOf(value);
  String text = NumberToText(font->Size);
  for (const FontStyle& style : kFontStyles) {
    if ((*font).*style.flag) text.append(u" ").append(style.word);
  }
  return text.append(kFontName) + EscapeText(font->Name);
}

bool ApplyStyle(StringView word, host::Font& font) {
  for (const FontStyle& style : kFontStyles) {
    if (style.word == word) return font.*style.flag = true;
  }
  return false;
}

Result ReadFont(StringView text) {
  const std::size_t nameAt = text.find(kFontName);
  if (nameAt == StringView::npos) return std::nullopt;
  const auto name = UnescapeText(text.substr(nameAt + kFontName.size()));
  StringView words = text.substr(0, nameAt);
  const auto size = NumberFromText<double>(words.substr(0, words.find(u' ')));
  if (!name || !size) return std::nullopt;
  auto font = std::make_shared<host::Font>();
  font->Name = *name;
  font->Size = *size;
  for (std::size_t blank = words.find(u' '); blank != StringView::npos; blank = words.find(u' ')) {
    words.remove_prefix(blank + 1);
    if (!ApplyStyle(words.substr(0, words.find(u' ')), *font)) return std::nullopt;
  }
  return Variant(std::move(font));
}

// --- All kinds --------------------------------------------------------------------------------

String WriteString(const Variant& value) { return EscapeText(*value.TryGet<String>()); }

Result ReadString(StringView text) {
  auto unescaped = UnescapeText(text);
  return unescaped ? Result(Variant(std::move(*unescaped))) : std::nullopt;
}

struct KindRow {
  Variant::Kind kind;
  StringView name;
  String (*write)(const Variant&);
  Result (*read)(StringView);
};
constexpr KindRow kKinds[] = {
    {Variant::Kind::Integer, u"Integer", WriteNumber<Integer>, ReadNumber<Integer>},
    {Variant::Kind::Long, u"Long", WriteNumber<Long>, ReadNumber<Long>},
    {Variant::Kind::Single, u"Single", WriteNumber<float>, ReadNumber<float>},
    {Variant::Kind::Double, u"Double", WriteNumber<double>, ReadNumber<double>},
    {Variant::Kind::Currency, u"Currency", WriteCurrency, ReadCurrency},
    {Variant::Kind::Date, u"Date", WriteDate, ReadDate},
    {Variant::Kind::String, u"String", WriteString, ReadString},
    {Variant::Kind::Boolean, u"Boolean", WriteBoolean, ReadBoolean},
    {Variant::Kind::Decimal, u"Decimal", WriteDecimal, ReadDecimal},
    {Variant::Kind::Object, u"Font", WriteFont, ReadFont},
};

/// Values that are written as one word.
struct WordRow {
  StringView word;
  Variant (*value)();
};
constexpr WordRow kWords[] = {{u"Empty", [] { return Variant(); }},
                              {u"Null", [] { return Variant::Null(); }},
                              {u"Missing", [] { return Variant::Missing(); }},
                              {u"Nothing", [] { return Variant(ObjectPtr()); }}};

/// The word of such a value; "" for all others.
StringView WordOf(const Variant& value) {
  if (value.IsEmpty()) return u"Empty";
  if (value.IsNull()) return u"Null";
  if (value.IsMissing()) return u"Missing";
  if (value.IsObject() && !*value.TryGet<ObjectPtr>()) return u"Nothing";
  return {};
}

// --- Escapes ----------------------------------------------------------------------------------

struct Escape {
  char16_t letter;
  char16_t character;
};
constexpr Escape kEscapes[] = {{u'\\', u'\\'}, {u'n', u'\n'}, {u'r', u'\r'}, {u't', u'\t'}};

bool IsHigh(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool IsLow(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// Half of a character beyond the first 65536, without its other half.
bool IsLoneHalf(StringView text, std::size_t i) {
  if (IsHigh(text[i])) return i + 1 == text.size() || !IsLow(text[i + 1]);
  return IsLow(text[i]) && (i == 0 || !IsHigh(text[i - 1]));
}

/// Characters that an editor, a line reader or an XML file would not preserve.
bool NeedsCode(StringView text, std::size_t i) {
  const char16_t unit = text[i];
  return unit < 0x20 || (unit >= 0x7F && unit < 0xA0) || unit == 0x2028 || unit == 0x2029 ||
         unit == 0xFEFF || unit >= 0xFFFE || IsLoneHalf(text, i);
}

void AppendCode(char16_t unit, String& escaped) {
  constexpr StringView kDigits = u"0123456789ABCDEF";
  escaped += u"\\u";
  for (int shift = 12; shift >= 0; shift -= 4) {
    escaped += kDigits[static_cast<std::size_t>((unit >> shift) & 15)];
  }
}

void AppendEscaped(StringView text, std::size_t i, String& escaped) {
  for (const Escape& row : kEscapes) {
    if (row.character == text[i]) {
      escaped.append({u'\\', row.letter});
      return;
    }
  }
  const bool atEnd = i == 0 || i + 1 == text.size();
  if (text[i] == u' ' && atEnd) {
    escaped += u"\\s";
  } else if (NeedsCode(text, i)) {
    AppendCode(text[i], escaped);
  } else {
    escaped += text[i];
  }
}

/// The unit of four hexadecimal digits; nothing when they are not valid.
std::optional<char16_t> CodeOf(StringView digits) {
  if (digits.size() != 4) return std::nullopt;
  if (digits.find_first_not_of(u"0123456789ABCDEFabcdef") != StringView::npos) return std::nullopt;
  return static_cast<char16_t>(std::strtoul(ToUtf8(digits).c_str(), nullptr, 16));
}

/// Takes an escape off the start of `text` (after its backslash) and returns its character.
std::optional<char16_t> TakeEscape(StringView& text) {
  if (text.empty()) return std::nullopt;
  const char16_t letter = text.front();
  text.remove_prefix(1);
  if (letter == u's') return u' ';
  if (letter == u'u') {
    const auto code = CodeOf(text.substr(0, 4));
    if (code) text.remove_prefix(4);
    return code;
  }
  for (const Escape& row : kEscapes) {
    if (row.letter == letter) return row.character;
  }
  return std::nullopt;
}

}  // namespace

String ValueToText(const Variant& value) {
  if (const StringView word = WordOf(value); !word.empty()) return String(word);
  if (value.IsObject() && !FontOf(value)) throw HostError(errors::TypeMismatch);
  for (const KindRow& row : kKinds) {
    if (row.kind == value.Type()) return String(row.name) + u":" + row.write(value);
  }
  throw HostError(errors::TypeMismatch);
}

std::optional<Variant> ValueFromText(StringView text) {
  for (const WordRow& row : kWords) {
    if (row.word == text) return row.value();
  }
  const std::size_t colon = text.find(u':');
  if (colon == StringView::npos) return std::nullopt;
  for (const KindRow& row : kKinds) {
    if (row.name == text.substr(0, colon)) return row.read(text.substr(colon + 1));
  }
  return std::nullopt;
}

String EscapeText(StringView text) {
  String escaped;
  escaped.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) AppendEscaped(text, i, escaped);
  return escaped;
}

std::optional<String> UnescapeText(StringView text) {
  String result;
  result.reserve(text.size());
  while (!text.empty()) {
    const char16_t unit = text.front();
    text.remove_prefix(1);
    if (unit != u'\\') {
      result += unit;
      continue;
    }
    const auto character = TakeEscape(text);
    if (!character) return std::nullopt;
    result += *character;
  }
  return result;
}

}  // namespace tessaria
