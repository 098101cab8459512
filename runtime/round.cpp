#include "runtime/digits.h"
#include "runtime/format.h"
#include "tessaria/error.h"

namespace tessaria {

double Round(double value, Long decimals) {
  if (decimals < 0) throw HostError(errors::InvalidArgument);
  // The digits that a reader sees decide what a half is: 2.675 is one, its binary form is not.
  const Digits digits = DigitsOf(value);
  if (decimals >= digits.Scale()) return value;
  return ToDouble(Rounded(digits, decimals, Halves::ToEven));
}

}  // namespace tessaria
