#include "control/type_codes.h"

#include <algorithm>
#include <iterator>

namespace tessaria {

namespace {

constexpr Long unboundNumbers[] = {2, 4, 5};

constexpr Long textFamily[] = {129, 130, 200, 202};
constexpr Long numberFamily[] = {2, 3, 4, 5, 6, 14, 16, 131};
constexpr Long dateFamily[] = {7, 133, 135};

template <std::size_t N>
bool Holds(const Long (&codes)[N], Long code) {
  return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

}  // namespace

bool EhTipoDadoNumerico(Long TipoDado) { return Holds(unboundNumbers, TipoDado); }

FieldFamily FamilyOf(Long fieldType) {
  if (Holds(textFamily, fieldType)) return FieldFamily::Text;
  if (Holds(numberFamily, fieldType)) return FieldFamily::Number;
  if (Holds(dateFamily, fieldType)) return FieldFamily::Date;
  return FieldFamily::Other;
}

}  // namespace tessaria
