#include "apps/demo/documents.h"

#include <algorithm>

namespace tessaria::demo {
namespace {

constexpr int kCpfLength = 11;
constexpr int kCnpjLength = 14;
constexpr int kCheckDigits = 2;

/// Weights run from 2 up to `greatest`, from the right, repeated.
int checkDigit(const QString& digits, int greatest) {
  int sum = 0;
  for (int i = 0; i < digits.size(); ++i)
    sum += digits[digits.size() - 1 - i].digitValue() * (2 + i % (greatest - 1));
  return sum % 11 < 2 ? 0 : 11 - sum % 11;
}

bool isOneDigitRepeated(const QString& digits) {
  return digits.count(digits.front()) == digits.size();
}

}  // namespace

Person personOf(const QString& digits) {
  return digits.size() > kCpfLength ? Person::Legal : Person::Natural;
}

bool isValidDocument(Person person, const QString& digits) {
  const bool natural = person == Person::Natural;
  if (digits.size() != (natural ? kCpfLength : kCnpjLength)) return false;
  if (!std::all_of(digits.begin(), digits.end(), [](QChar c) { return c.isDigit(); })) return false;
  if (isOneDigitRepeated(digits)) return false;
  QString expected = digits.chopped(kCheckDigits);
  for (int i = 0; i < kCheckDigits; ++i)
    expected += QString::number(checkDigit(expected, natural ? 11 : 9));
  return expected == digits;
}

}  // namespace tessaria::demo
