// Rounding, halves to even.

#include <utility>

#include "runtime/digits.h"
#include "tessaria/error.h"
#include "tessaria/format.h"

namespace tessaria {

double Round(double value, Long decimals) {
  if (decimals < 0) throw HostError(errors::InvalidArgument);
  // The digits of the text decide what a half is: 2.675 is one, its binary form is not. Where the
  // text has fewer digits than the last place needs, the value's own digits decide.
  Digits digits = DigitsOf(value);
  if (digits.Point >= kDoubleDigits - decimals) digits = ShortestDigits(value);
  return ToDouble(Rounded(std::move(digits), decimals, Halves::ToEven));
}

}  // namespace tessaria
