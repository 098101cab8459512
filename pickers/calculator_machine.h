// The calculator without its window: takes keys and computes the display.
#pragma once

#include <functional>

#include "tessaria/string.h"

namespace tessaria {

/// A four-function calculator with one pending operator and a percent key. "=" applies the pending
/// operator and ends the calculation. The comma is the decimal mark.
class CalculatorMachine {
 public:
  /// The keys that are not digits, by their position on the keyboard.
  enum class Operator { C, CE, Plus, Minus, Times, Divide, Equals, Percent };
  static constexpr int OperatorCount = 8;
  /// The caption of a key.
  static StringView Caption(Operator key);
  /// A number as the display shows it: with the 15 digits of a Double, or with all that are written
  /// when there are more. Error 13 for a text that is not a number, 6 for one out of range.
  static String NumberText(const String& written);

  /// Back to the initial state; the operands and the kind of the last entry stay.
  void Load();
  /// The first operand, as if it had been typed.
  void StartWith(double value);

  const String& Display() const { return display_; }
  void Display(String text) { display_ = std::move(text); }

  /// A digit from 0 to 9; a display of 16 characters takes no more.
  void Digit(int digit);
  void Comma();
  /// True when the key ends the calculation. Errors: 13 when the display is not a number, 6 when
  /// the result is out of range.
  bool Press(Operator key);

  /// Called on a division by zero, whose result is the first operand.
  std::function<void()> OnDivisionByZero;

 private:
  enum class Entry { None, Number, Operator };

  /// A number and its text, which has all digits of a number that was only entered.
  struct Operand {
    double Value = 0;
    String Text = u"0";
  };
  static Operand Computed(double value);

  Operand Entered() const;
  void Clear(Operator key);
  Operand Pending() const;
  void ShowAccumulator();

  String display_;
  Operand accumulator_;
  Operand operand_;
  bool hasComma_ = false;
  int operands_ = 0;
  Entry last_ = Entry::None;
  StringView pending_ = u" ";  ///< a key's caption, a blank for none
};

}  // namespace tessaria
