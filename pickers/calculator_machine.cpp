#include "pickers/calculator_machine.h"

#include <cmath>

#include "runtime/number_text.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"

namespace tessaria {

namespace {

constexpr Long kDisplayLimit = 16;
constexpr StringView kNone = u" ";

constexpr StringView kCaptions[CalculatorMachine::OperatorCount] = {u"C", u"CE", u"+", u"-",
                                                                    u"X", u"/",  u"=", u"%"};

/// The digits that a Decimal may have; a number with more digits is shown with an exponent.
constexpr int kMostDigits = 29;

}  // namespace

String CalculatorMachine::NumberText(const String& written) {
  const double nearest = CDbl(written);
  auto number = ReadNumber(written);
  if (!number || number->Bits) return CStr(nearest);
  number->Value.DropLeadingZeros();
  number->Value.DropTrailingZeros();
  const auto significant = number->Value.Text.find_last_not_of('0') + 1;
  return significant > kDoubleDigits ? GeneralText(number->Value, u',', kMostDigits)
                                     : CStr(nearest);
}

StringView CalculatorMachine::Caption(Operator key) { return kCaptions[static_cast<int>(key)]; }

void CalculatorMachine::Load() {
  hasComma_ = false;
  operands_ = 0;
  pending_ = kNone;
}

void CalculatorMachine::StartWith(double value) {
  last_ = Entry::Number;
  accumulator_ = Computed(value);
}

CalculatorMachine::Operand CalculatorMachine::Computed(double value) {
  if (!std::isfinite(value)) throw HostError(errors::Overflow);
  return {value, CStr(value)};
}

CalculatorMachine::Operand CalculatorMachine::Entered() const {
  return {CDbl(display_), NumberText(display_)};
}

void CalculatorMachine::Digit(int digit) {
  if (last_ != Entry::Number) {
    display_.clear();
    hasComma_ = false;
  }
  if (Len(display_) < kDisplayLimit) display_ += static_cast<char16_t>(u'0' + digit);
  last_ = Entry::Number;
}

void CalculatorMachine::Comma() {
  if (last_ != Entry::Number)
    display_ = u"0,0";
  else if (InStr(display_, u",") == 0 && !hasComma_)
    display_ += u',';
  hasComma_ = true;
  last_ = Entry::Number;
}

bool CalculatorMachine::Press(Operator key) {
  if (last_ == Entry::Number) ++operands_;
  if (operands_ == 1) accumulator_ = Entered();
  if (operands_ == 2) operand_ = Entered();
  if (key == Operator::C || key == Operator::CE) {
    Clear(key);
    return false;
  }
  const bool isPercent = key == Operator::Percent;
  if (isPercent) pending_ = Caption(key);  // the percent key overrides the pending operator
  accumulator_ = Pending();
  ShowAccumulator();
  pending_ = isPercent ? kNone : Caption(key);
  return key == Operator::Equals;
}

/// CE goes back to the first operand; it does not clear to 0.
void CalculatorMachine::Clear(Operator key) {
  if (key == Operator::C) accumulator_ = Computed(0);
  operand_ = Computed(0);
  ShowAccumulator();
  pending_ = kNone;
}

CalculatorMachine::Operand CalculatorMachine::Pending() const {
  const double first = accumulator_.Value, second = operand_.Value;
  const bool isSum = pending_ == u"+" || pending_ == u"-";
  if (isSum && second == 0) return accumulator_;  // with all its digits
  if (pending_ == u"+") return Computed(second + first);
  if (pending_ == u"-") return Computed(first - second);
  if (pending_ == u"X") return Computed(second * first);
  if (pending_ == u"%") return Computed(Computed(second * first).Value / 100);
  if (pending_ == u"=") return operand_;
  if (pending_ != u"/") return accumulator_;
  if (second != 0) return Computed(first / second);
  if (OnDivisionByZero) OnDivisionByZero();
  return accumulator_;
}

void CalculatorMachine::ShowAccumulator() {
  display_ = accumulator_.Text;
  operands_ = 1;
  last_ = Entry::Operator;
}

}  // namespace tessaria
