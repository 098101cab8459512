// Printers of the library's types for GoogleTest, and a check for the errors that it raises.
#pragma once

#include <gtest/gtest.h>

#include <exception>
#include <functional>
#include <ostream>
#include <string>

#include "runtime/digits.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"
#include "tessaria/variant.h"

// Texts as UTF-8 in quotes; the framework's own printer escapes everything but ASCII.
template <>
class testing::internal::UniversalPrinter<tessaria::String> {
 public:
  static void Print(const tessaria::String& text, std::ostream* out) {
    *out << '"' << tessaria::ToUtf8(text) << '"';
  }
};

template <>
class testing::internal::UniversalPrinter<tessaria::StringView> {
 public:
  static void Print(const tessaria::StringView& text, std::ostream* out) {
    *out << '"' << tessaria::ToUtf8(text) << '"';
  }
};

template <std::size_t N>
class testing::internal::UniversalTersePrinter<char16_t[N]> {
 public:
  static void Print(const char16_t (&text)[N], std::ostream* out) {
    *out << '"' << tessaria::ToUtf8(tessaria::StringView(text)) << '"';
  }
};

namespace tessaria {

inline void PrintTo(const Date& date, std::ostream* out) {
  *out << "Date(" << ToUtf8(GeneralText(DigitsOf(date.Days), u'.', kDoubleDigits)) << ")";
}

inline void PrintTo(const Currency& value, std::ostream* out) {
  *out << "Currency(" << ToUtf8(PlainText(DigitsOf(value.TenThousandths, 4), u'.')) << ")";
}

inline void PrintTo(const Decimal& value, std::ostream* out) {
  *out << "Decimal(" << ToUtf8(DecimalText(value)) << ")";
}

inline void PrintTo(const HostError& error, std::ostream* out) {
  *out << "HostError(" << error.Number() << ", \"" << error.what() << "\")";
}

inline const char* KindName(Variant::Kind kind) {
  switch (kind) {
    case Variant::Kind::Empty:
      return "Empty";
    case Variant::Kind::Null:
      return "Null";
    case Variant::Kind::Missing:
      return "Missing";
    case Variant::Kind::Integer:
      return "Integer";
    case Variant::Kind::Long:
      return "Long";
    case Variant::Kind::Single:
      return "Single";
    case Variant::Kind::Double:
      return "Double";
    case Variant::Kind::Currency:
      return "Currency";
    case Variant::Kind::Decimal:
      return "Decimal";
    case Variant::Kind::Date:
      return "Date";
    case Variant::Kind::Boolean:
      return "Boolean";
    case Variant::Kind::String:
      return "String";
    case Variant::Kind::Object:
      return "Object";
  }
  return "?";
}

inline void PrintTo(Variant::Kind kind, std::ostream* out) { *out << KindName(kind); }

inline void PrintTo(const Variant& value, std::ostream* out) {
  *out << KindName(value.Type());
  if (value.IsEmpty() || value.IsNull() || value.IsMissing()) return;
  try {
    *out << ("(" + ToUtf8(SqlText(value)) + ")");
  } catch (const HostError&) {
    *out << "(no text)";
  }
}

}  // namespace tessaria

namespace tessaria::test {

/// Passes when the action raises the run-time error of that number.
inline ::testing::AssertionResult RaisesHostError(const std::function<void()>& action,
                                                  Long number) {
  try {
    action();
  } catch (const HostError& error) {
    if (error.Number() == number) return ::testing::AssertionSuccess();
    return ::testing::AssertionFailure() << "raises error " << error.Number() << " ("
                                         << error.what() << ") instead of " << number;
  } catch (const std::exception& error) {
    return ::testing::AssertionFailure() << "throws " << error.what();
  }
  return ::testing::AssertionFailure() << "raises no error instead of " << number;
}

template <class... T>
bool HoldSame(const Variant& a, const Variant& b) {
  return ((a.TryGet<T>() && b.TryGet<T>() && *a.TryGet<T>() == *b.TryGet<T>()) || ...);
}

/// The same kind and the same value, so stricter than `Equal`. Null matches Null.
inline bool Same(const Variant& a, const Variant& b) {
  if (a.Type() != b.Type()) return false;
  if (a.IsEmpty() || a.IsNull() || a.IsMissing()) return true;
  return HoldSame<Integer, Long, float, double, Currency, Decimal, Date, bool, String, ObjectPtr>(
      a, b);
}

}  // namespace tessaria::test

/// Checks that evaluating the expression raises the run-time error of that number.
#define EXPECT_HOST_ERROR(expression, number)                                                    \
  EXPECT_TRUE(::tessaria::test::RaisesHostError([&] { static_cast<void>(expression); }, number)) \
      << #expression
/// Checks kind and value of a variant.
#define EXPECT_SAME(actual, expected)                                 \
  EXPECT_PRED2(::tessaria::test::Same, (::tessaria::Variant(actual)), \
               (::tessaria::Variant(expected)))
