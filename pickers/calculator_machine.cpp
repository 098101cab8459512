#include "pickers/calculator_machine.h"

#include <cmath>

#include "runtime/conversion.h"
#include "runtime/text.h"
#include "tessaria/error.h"

namespace tessaria {

namespace {

constexpr Long kDisplayLimit = 16;
constexpr StringView kNone = u" ";

constexpr StringView kCaptions[CalculatorMachine::OperatorCount] = {u"C", u"CE", u"+", u"-",
                                                                    u"X", u"/",  u"=", u"%"};

double InRange(double value) {
  if (!std::isfinite(value)) throw HostError(errors::Overflow);
  return value;
}

}  // namespace

StringView CalculatorMachine::Caption(Operator key) { return kCaptions[static_cast<int>(key)]; }

void CalculatorMachine::Load() {
  hasComma_ = false;
  operands_ = 0;
  pending_ = kNone;
}

void CalculatorMachine::StartWith(double value) {
  last_ = Entry::Number;
  accumulator_ = value;
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
  if (operands_ == 1) accumulator_ = CDbl(display_);
  if (operands_ == 2) operand_ = CDbl(display_);
  if (key == Operator::C || key == Operator::CE) {
    Clear(key);
    return false;
  }
  const bool isPercent = key == Operator::Percent;
  if (isPercent) pending_ = Caption(key);  // the percent key overrides what was pending
  accumulator_ = Pending();
  ShowAccumulator();
  pending_ = isPercent ? kNone : Caption(key);
  return key == Operator::Equals;
}

/// CE goes back to the first operand; it does not clear to 0.
void CalculatorMachine::Clear(Operator key) {
  if (key == Operator::C) accumulator_ = 0;
  operand_ = 0;
  ShowAccumulator();
  pending_ = kNone;
}

double CalculatorMachine::Pending() const {
  if (pending_ == u"+") return InRange(operand_ + accumulator_);
  if (pending_ == u"-") return InRange(accumulator_ - operand_);
  if (pending_ == u"X") return InRange(operand_ * accumulator_);
  if (pending_ == u"%") return InRange(InRange(operand_ * accumulator_) / 100);
  if (pending_ == u"=") return operand_;
  if (pending_ != u"/") return accumulator_;
  if (operand_ != 0) return InRange(accumulator_ / operand_);
  if (OnDivisionByZero) OnDivisionByZero();
  return accumulator_;
}

void CalculatorMachine::ShowAccumulator() {
  display_ = CStr(accumulator_);
  operands_ = 1;
  last_ = Entry::Operator;
}

}  // namespace tessaria
