#include "control/same_value.h"

#include <cmath>

#include "tessaria/compare.h"
#include "tessaria/conversion.h"

namespace tessaria {

namespace {

/// The number that a Double or a Single holds; 0 for all other values.
double FloatIn(const Variant& v) {
  const bool isFloat = v.Type() == Variant::Kind::Double || v.Type() == Variant::Kind::Single;
  return isFloat ? CDbl(v) : 0;
}

}  // namespace

bool IsSame(const Variant& a, const Variant& b) {
  if (a.IsNull() || b.IsNull()) return a.IsNull() == b.IsNull();
  return Equal(a, b) || (std::isnan(FloatIn(a)) && std::isnan(FloatIn(b)));
}

bool ReadsAlike(const Variant& a, const Variant& b) {
  if (a.IsNull() || b.IsNull()) return a.IsNull() && b.IsNull();
  return Equal(a, b) || TextOf(a) == TextOf(b);
}

String TextOf(const Variant& v) {
  if (v.IsNull()) return {};
  const double number = FloatIn(v);
  if (std::isfinite(number)) return CStr(v);
  return std::isnan(number) ? u"NaN" : number > 0 ? u"Infinity" : u"-Infinity";
}

bool IsBlank(const Variant& v) { return v.IsNull() || EqualsEmpty(v); }

}  // namespace tessaria
