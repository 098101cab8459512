#include "tessaria/compare.h"

#include <cfloat>
#include <cmath>
#include <compare>

#include "runtime/digits.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"

namespace tessaria {

namespace {

using Kind = Variant::Kind;

bool IsExact(const Variant& value) {
  return value.Type() == Kind::Currency || value.Type() == Kind::Decimal;
}

bool AreSingleAndDouble(const Variant& a, const Variant& b) {
  return (a.Type() == Kind::Single && b.Type() == Kind::Double) ||
         (a.Type() == Kind::Double && b.Type() == Kind::Single);
}

std::partial_ordering OrderNumbers(const Variant& a, const Variant& b) {
  const double x = CDbl(a), y = CDbl(b);
  const bool finite = std::isfinite(x) && std::isfinite(y);
  // A double is compared with an exact kind by the digits that its text shows.
  if (finite && (IsExact(a) || IsExact(b))) return Order(DigitsOf(a), DigitsOf(b));
  // A double is reduced to a single's precision, so that 0.1 equals 0.1 in both.
  if (AreSingleAndDouble(a, b) && std::abs(x) <= FLT_MAX && std::abs(y) <= FLT_MAX) {
    return static_cast<float>(x) <=> static_cast<float>(y);
  }
  return x <=> y;
}

void RequireComparable(const Variant& value) {
  if (value.IsObject() || value.IsMissing()) throw HostError(errors::TypeMismatch);
}

// Unordered when either is Null.
std::partial_ordering Order(const Variant& a, const Variant& b) {
  if (a.IsNull() || b.IsNull()) return std::partial_ordering::unordered;
  RequireComparable(a);
  RequireComparable(b);
  const auto isText = [](const Variant& value, const Variant& other) {
    return value.IsString() || (value.IsEmpty() && other.IsString());
  };
  const bool textA = isText(a, b), textB = isText(b, a);
  if (textA && textB) return CStr(a).compare(CStr(b)) <=> 0;
  if (textA != textB) return textA <=> textB;
  return OrderNumbers(a, b);
}

}  // namespace

bool Equal(const Variant& a, const Variant& b) { return Order(a, b) == 0; }

bool Less(const Variant& a, const Variant& b) { return Order(a, b) < 0; }

bool EqualsEmpty(const Variant& value) { return Equal(value, Variant()); }

}  // namespace tessaria
