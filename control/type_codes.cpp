#include "control/type_codes.h"

#include <algorithm>
#include <iterator>

namespace tessaria {

namespace {

constexpr Long kUnboundNumbers[] = {2, 4, 5};

constexpr Long kTextFamily[] = {129, 130, 200, 202};
constexpr Long kNumberFamily[] = {2, 3, 4, 5, 6, 14, 16, 131};
constexpr Long kDateFamily[] = {7, 133, 135};

template <std::size_t N>
bool Holds(const Long (&codes)[N], Long code) {
  return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

}  // namespace

bool IsUnboundNumber(Long TipoDado) { return Holds(kUnboundNumbers, TipoDado); }

FieldFamily FamilyOf(Long fieldType) {
  if (Holds(kTextFamily, fieldType)) return FieldFamily::Text;
  if (Holds(kNumberFamily, fieldType)) return FieldFamily::Number;
  if (Holds(kDateFamily, fieldType)) return FieldFamily::Date;
  return FieldFamily::Other;
}

}  // namespace tessaria
