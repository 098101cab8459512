#include "services/stored_value.h"

#include <gtest/gtest.h>

#include <bit>
#include <limits>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/host/widgets.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

/// Same kind, same bits.
template <class T>
void ExpectRoundTrip(const T& value) {
  const String text = ValueToText(Variant(value));
  const auto again = ValueFromText(text);
  ASSERT_TRUE(again.has_value()) << testing::PrintToString(text);
  const T* const read = again->TryGet<T>();
  ASSERT_NE(read, nullptr) << testing::PrintToString(text);
  if constexpr (std::is_same_v<T, double>) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(*read), std::bit_cast<std::uint64_t>(value));
  } else if constexpr (std::is_same_v<T, Date>) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(read->Days), std::bit_cast<std::uint64_t>(value.Days));
  } else if constexpr (std::is_same_v<T, Decimal>) {
    EXPECT_EQ(read->Magnitude, value.Magnitude);
    EXPECT_EQ(read->Scale, value.Scale);
    EXPECT_EQ(read->Negative, value.Negative);
  } else {
    EXPECT_TRUE(*read == value) << testing::PrintToString(text);
  }
}

struct TextCase {
  Variant value;
  String text;
};

TEST(StoredValue, ReadsLikeAText) {
  auto font = std::make_shared<host::Font>();
  font->Name = u"MS Sans Serif";
  font->Bold = font->Underline = true;
  const TextCase kCases[] = {
      {Variant(), u"Empty"},
      {Variant::Null(), u"Null"},
      {Variant::Missing(), u"Missing"},
      {Variant(ObjectPtr()), u"Nothing"},
      {Variant(Integer{-7}), u"Integer:-7"},
      {Variant(Long{100000}), u"Long:100000"},
      {Variant(1.5f), u"Single:1.5"},
      {Variant(0.1), u"Double:0.1"},
      {Variant(Currency{-123400}), u"Currency:-12.3400"},
      {Variant(Currency{5}), u"Currency:0.0005"},
      {Variant(Currency{-5}), u"Currency:-0.0005"},
      {Variant(FromCivil({2017, 12, 25, 0, 0, 0})), u"Date:2017-12-25"},
      {Variant(FromCivil({2017, 1, 2, 13, 5, 9})), u"Date:2017-01-02 13:05:09"},
      {Variant(Date{0.123}), u"Date:#0.123"},
      {Variant(u"Açúcar: 1 kg"), u"String:Açúcar: 1 kg"},
      {Variant(u""), u"String:"},
      {Variant(true), u"Boolean:True"},
      {Variant(false), u"Boolean:False"},
      {Variant(DecimalFromText(u"-1.50")), u"Decimal:-1.50"},
      {Variant(font), u"Font:8.25 bold underline name=MS Sans Serif"},
  };
  for (const TextCase& row : kCases) {
    EXPECT_EQ(ValueToText(row.value), row.text);
    const auto again = ValueFromText(row.text);
    ASSERT_TRUE(again.has_value()) << testing::PrintToString(row.text);
    EXPECT_EQ(again->Type(), row.value.Type()) << testing::PrintToString(row.text);
    EXPECT_EQ(ValueToText(*again), row.text);
  }
}

TEST(StoredValue, NumbersAreReadBackExactly) {
  for (const Integer n :
       {Integer{0}, std::numeric_limits<Integer>::min(), std::numeric_limits<Integer>::max()}) {
    ExpectRoundTrip(n);
  }
  for (const Long n : {0, std::numeric_limits<Long>::min(), std::numeric_limits<Long>::max()}) {
    ExpectRoundTrip(n);
  }
  for (const float n : {0.1f, 1e-45f, 3.4e38f, -16777217.0f}) ExpectRoundTrip(n);
  for (const double n : {0.0, -0.0, 0.1 + 0.2, 5e-324, 1.7976931348623157e308, 1e15, -1 / 3.0}) {
    ExpectRoundTrip(n);
  }
  for (const std::int64_t n :
       {std::int64_t{0}, std::int64_t{9999}, std::int64_t{-10000},
        std::numeric_limits<std::int64_t>::min(), std::numeric_limits<std::int64_t>::max()}) {
    ExpectRoundTrip(Currency{n});
  }
  ExpectRoundTrip(Decimal{{0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF}, 28, true});
  ExpectRoundTrip(Decimal{{100, 0, 0}, 2, false});
}

TEST(StoredValue, DatesAreReadBackExactly) {
  for (const double days : {0.0, -0.0, 0.5, -0.25, -1.75, 43094.123456789, 2958465.0, -657434.0,
                            2958465.99999, 1e9, -1e9, 1e300}) {
    ExpectRoundTrip(Date{days});
  }
}

TEST(StoredValue, TextsAreReadBackExactly) {
  for (const String& text :
       {String(u"a\nb\r\nc\td"), String(u"  blanks  "), String(u" "), String(u"back\\slash \\n"),
        String(u"\0\x01\x7F", 3), String(u"\u2028\uFEFF\uFFFF"), String(1, u'\xD800'),
        String(u"\xDC00x"), String(u"\U0001F600"), String(u"Null"), String(u"Long:1"),
        String(u"não é ASCII"), String(u"a=b")}) {
    ExpectRoundTrip(text);
    const String line = ValueToText(Variant(text));
    EXPECT_EQ(line.find_first_of(u"\n\r\t"), String::npos);
  }
}

TEST(StoredValue, EscapesCharactersThatAFileWouldNotPreserve) {
  EXPECT_EQ(EscapeText(u" a b "), u"\\sa b\\s");
  EXPECT_EQ(EscapeText(u"a\nb"), u"a\\nb");
  EXPECT_EQ(EscapeText(u"\x01"), u"\\u0001");
  EXPECT_EQ(EscapeText(u"\\"), u"\\\\");
  EXPECT_EQ(EscapeText(u"\U0001F600"), u"\U0001F600");
}

TEST(StoredValue, FontsAreReadBackExactly) {
  for (const String& name : {String(u"Arial"), String(u" name= bold "), String(u"")}) {
    auto font = std::make_shared<host::Font>();
    font->Name = name;
    font->Size = 9.75;
    font->Italic = font->Strikethrough = true;
    const auto again = ValueFromText(ValueToText(Variant(font)));
    ASSERT_TRUE(again.has_value());
    EXPECT_EQ(*again->As<host::Font>(), *font);
  }
}

TEST(StoredValue, RefusesInvalidTexts) {
  for (const StringView text : {u"",
                                u"Long",
                                u"Long:",
                                u"Long:1x",
                                u"Long: 1",
                                u"Long:2147483648",
                                u"long:1",
                                u"Integer:40000",
                                u"Single:x",
                                u"Double:1,5",
                                u"Double:",
                                u"Currency:1",
                                u"Currency:1.5",
                                u"Currency:1.50000",
                                u"Currency:.5000x",
                                u"Boolean:true",
                                u"Boolean:",
                                u"Date:",
                                u"Date:2017-13-01",
                                u"Date:2017-02-29",
                                u"Date:2017-1-1",
                                u"Date:2017-01-01 10:00",
                                u"Date:2017-01-01T10:00:00",
                                u"Date:#",
                                u"Date:-017-01-01",
                                u"Decimal:",
                                u"Decimal:x",
                                u"String:\\",
                                u"String:\\q",
                                u"String:\\u12",
                                u"String:\\u12G4",
                                u"Empty:",
                                u"Nada",
                                u"Font:8",
                                u"Font:x name=Arial",
                                u"Font:8 big name=Arial",
                                u"Font:8 name=\\q",
                                u"Object:Outro"}) {
    EXPECT_FALSE(ValueFromText(text).has_value()) << testing::PrintToString(String(text));
  }
}

TEST(StoredValue, OtherObjectsHaveNoText) {
  struct Other : Object {};
  EXPECT_HOST_ERROR(ValueToText(Variant(std::make_shared<Other>())), errors::TypeMismatch);
}

}  // namespace
}  // namespace tessaria
