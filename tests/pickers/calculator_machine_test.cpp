// The calculator without its window, compared with a second implementation of its rules.
#include "pickers/calculator_machine.h"

#include <gtest/gtest.h>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/text.h"
#include "tests/support/printers.h"

namespace tessaria::test {
namespace {

/// The keys of the tests: "E" is CE, "r" is the reset.
constexpr StringView operatorKeys = u"CE+-X/=%";

/// The rules step by step, with the state that they refer to.
class Model {
 public:
  String Display = u"0";
  int Boxes = 0;

  void OpenOn(double number) {
    Display = CStr(number);
    last_ = u"NUMS";
    accumulator_ = number;
  }
  /// True when the key closes the calculator.
  bool Press(char16_t key) {
    if (key >= u'0' && key <= u'9') return PressDigit(key), false;
    if (key == u',') return PressComma(), false;
    if (key == u'r') return Reset(), false;
    return PressOperator(key);
  }

 private:
  void PressDigit(char16_t digit) {
    if (last_ != u"NUMS") {
      Display = u"";
      hasComma_ = false;
    }
    if (Display.size() < 16) Display += digit;
    last_ = u"NUMS";
  }
  void PressComma() {
    if (last_ != u"NUMS") {
      Display = u"0,0";
    } else if (Display.find(u',') == String::npos && !hasComma_) {
      Display += u',';
    }
    hasComma_ = true;
    last_ = u"NUMS";
  }
  void Reset() {
    Display = u"0";
    hasComma_ = false;
    count_ = 0;
    pending_ = u' ';
  }
  bool PressOperator(char16_t key) {
    if (last_ == u"NUMS") count_ += 1;
    if (count_ == 1) accumulator_ = CDbl(Display);
    if (count_ == 2) operand_ = CDbl(Display);
    if (key == u'C' || key == u'E') {
      count_ = 1;
      if (key == u'C') accumulator_ = 0;
      Display = CStr(accumulator_);
      operand_ = 0;
      last_ = u"OPS";
      pending_ = u' ';
      return false;
    }
    if (key == u'%') pending_ = u'%';
    Apply();
    Display = CStr(accumulator_);
    count_ = 1;
    last_ = u"OPS";
    pending_ = key == u'%' ? u' ' : key;
    return pending_ == u'=';
  }
  void Apply() {
    switch (pending_) {
      case u'+':
        accumulator_ = operand_ + accumulator_;
        break;
      case u'-':
        accumulator_ = accumulator_ - operand_;
        break;
      case u'X':
        accumulator_ = operand_ * accumulator_;
        break;
      case u'%':
        accumulator_ = operand_ * accumulator_ / 100;
        break;
      case u'=':
        accumulator_ = operand_;
        break;
      case u'/':
        if (operand_ == 0) {
          Boxes += 1;
        } else {
          accumulator_ = accumulator_ / operand_;
        }
        break;
      default:
        break;
    }
  }

  double accumulator_ = 0;
  double operand_ = 0;
  bool hasComma_ = false;
  int count_ = 0;
  String last_;
  char16_t pending_ = u' ';
};

/// The machine, with a count of its boxes.
class Machine {
 public:
  explicit Machine(int& boxes) : boxes_(boxes) { machine_.Display(u"0"); }
  Machine(const Machine&) = default;
  Machine& operator=(const Machine&) = delete;

  void OpenOn(double number) {
    machine_.StartWith(number);
    machine_.Display(CStr(number));
  }
  bool Press(char16_t key) {
    machine_.OnDivisionByZero = [this] { ++boxes_; };
    if (key >= u'0' && key <= u'9') return machine_.Digit(key - u'0'), false;
    if (key == u',') return machine_.Comma(), false;
    if (key == u'r') return machine_.Display(u"0"), machine_.Load(), false;
    return machine_.Press(static_cast<CalculatorMachine::Operator>(operatorKeys.find(key)));
  }
  /// Presses all keys and returns the display.
  String Type(StringView keys) {
    for (const char16_t key : keys) Press(key);
    return Display();
  }
  const String& Display() const { return machine_.Display(); }

 private:
  int& boxes_;
  CalculatorMachine machine_;
};

class CalculatorMachineTest : public testing::Test {
 protected:
  static constexpr StringView keys_ = u"05,CE+-X/=%r";
  static constexpr std::size_t depth_ = 5;

  /// Tries every further sequence, until a key closes the calculator or too many have failed.
  void Walk(const Machine& machine, const Model& model, const String& path) {
    if (path.size() == depth_ || HasFailure()) return;
    for (const char16_t key : keys_) {
      Machine nextMachine = machine;
      Model nextModel = model;
      const String nextPath = path + key;
      boxes = model.Boxes;
      const bool ended = nextMachine.Press(key);
      const bool expected = nextModel.Press(key);
      ++sequences;
      ASSERT_EQ(ended, expected) << ToUtf8(nextPath);
      ASSERT_EQ(nextMachine.Display(), nextModel.Display) << ToUtf8(nextPath);
      ASSERT_EQ(boxes, nextModel.Boxes) << ToUtf8(nextPath);
      if (!ended) Walk(nextMachine, nextModel, nextPath);
    }
  }

  int boxes = 0;
  long sequences = 0;
};

TEST_F(CalculatorMachineTest, AgreesWithTheRulesOverEverySequenceOfFiveKeys) {
  Walk(Machine(boxes), Model(), u"");
  for (const double opened : {12.5, 0.0, -3.0}) {
    Machine machine(boxes);
    machine.OpenOn(opened);
    Model model;
    model.OpenOn(opened);
    Walk(machine, model, u"");
  }
  EXPECT_GT(sequences, 4 * 11 * 11 * 11 * 11 * 11);
}

struct Example {
  const char16_t* Keys;
  const char16_t* Display;
};

constexpr Example examples[] = {
    {u"2+3=", u"5"},
    {u"50X20%", u"10"},
    {u"10+5C", u"0"},
    {u"10+5E", u"10"},  // CE shows the first operand and does not clear to 0
    {u"10+5E3=", u"10"},
    {u"10-4=", u"6"},
    {u"10X4=", u"40"},
    {u"10/4=", u"2,5"},
    {u"1,5+2,25=", u"3,75"},
    {u"2+3+4=", u"9"},
    {u"2+3X4=", u"20"},
    {u"2+-", u"2"},  // nothing has been added yet
    {u"2+-3=", u"-1"},
    {u"50%", u"0"},      // there is no second number yet
    {u"50%3=", u"0"},    // the percent key leaves nothing pending
    {u"50+20%", u"10"},  // whatever is pending
    {u"007", u"007"},
    {u"007+", u"7"},
    {u",5", u"0,05"},  // a leading comma starts with a decimal of its own
    {u"1,2,3", u"1,23"},
    {u"1+,5", u"0,05"},
    {u"1,+", u"1"},
    {u"5r", u"0"},
    {u"5r7", u"07"},  // a reset keeps the state that a number is being typed
    {u"5+2r3=", u"3"},
    {u"1/3=", u"0,333333333333333"},
    {u"1/3X3=", u"1"},                    // a result keeps its full precision
    {u"1/3-EX3=", u"0,999999999999999"},  // CE takes the first operand back from the display
    {u"2+3+-", u"8"},                     // an operator on a result applies the pending one again
};

TEST_F(CalculatorMachineTest, WorkedExamples) {
  for (const Example& example : examples) {
    EXPECT_EQ(Machine(boxes).Type(example.Keys), example.Display) << ToUtf8(example.Keys);
  }
}

TEST_F(CalculatorMachineTest, TheDisplayTakesSixteenCharacters) {
  EXPECT_EQ(Machine(boxes).Type(u"12345678901234567"), u"1234567890123456");
  EXPECT_EQ(Machine(boxes).Type(u"1234567,890123456789"), u"1234567,89012345");
  Machine machine(boxes);
  machine.OpenOn(-123456789);
  EXPECT_EQ(machine.Type(u"01234567"), u"-123456789012345");
}

// A number that was only entered is not yet a Double.
TEST_F(CalculatorMachineTest, AnEntryWithMoreDigitsThanADoubleKeepsThemUntilItIsUsed) {
  for (const StringView keys : {u"=", u"+", u"+-", u"E"}) {
    EXPECT_EQ(Machine(boxes).Type(u"9999999999999999" + String(keys)), u"9999999999999999")
        << ToUtf8(keys);
  }
  EXPECT_EQ(Machine(boxes).Type(u"1234567,89012345+"), u"1234567,89012345");
  EXPECT_EQ(Machine(boxes).Type(u"9999999999999999+1="), u"1E+16");
  EXPECT_EQ(Machine(boxes).Type(u"0000000000000012+"), u"12");
}

TEST_F(CalculatorMachineTest, ANumberIsShownWithTheDigitsOfADoubleOrWithAllThatAreWritten) {
  const struct {
    const char16_t* Written;
    const char16_t* Shown;
  } rows[] = {{u"1.234,50", u"1234,5"},
              {u"-0,000012", u"-1,2E-05"},
              {u"12345678901234567,89", u"12345678901234567,89"},
              {u"(12.345.678.901.234.567,80)", u"-12345678901234567,8"},
              {u"1000000000000000000", u"1E+18"},
              {u"1234567890123456E+20", u"1,234567890123456E+35"},
              {u"&H1F", u"31"}};
  for (const auto& row : rows)
    EXPECT_EQ(CalculatorMachine::NumberText(row.Written), row.Shown) << ToUtf8(row.Written);
  EXPECT_HOST_ERROR(CalculatorMachine::NumberText(u"12a"), errors::TypeMismatch);
}

TEST_F(CalculatorMachineTest, AFullDisplayAcceptsOnlyTheComma) {
  EXPECT_EQ(Machine(boxes).Type(u"1234567890123456,7"), u"1234567890123456,");
}

TEST_F(CalculatorMachineTest, DividingByZeroIsReportedAndKeepsTheFirstOperand) {
  Machine machine(boxes);
  EXPECT_EQ(machine.Type(u"8/0+"), u"8");
  EXPECT_EQ(boxes, 1);
  EXPECT_EQ(machine.Type(u"2="), u"10");
  EXPECT_EQ(boxes, 1);
  EXPECT_EQ(Machine(boxes).Type(u"8/+"), u"8");  // a missing second number is also zero
  EXPECT_EQ(boxes, 2);
}

TEST_F(CalculatorMachineTest, AResultOutOfRangeIsAnOverflowThatChangesNothing) {
  const struct {
    double First;
    const char16_t* Keys;
    char16_t Last;
  } rows[] = {{1E300, u"X9999999999999999", u'='},
              {1E300, u"X9999999999999999", u'+'},
              {1E300, u"+9999999999999999", u'%'},
              {1E308, u"/0,00000001", u'='}};
  for (const auto& row : rows) {
    Machine machine(boxes);
    machine.OpenOn(row.First);
    const String display = machine.Type(row.Keys);
    EXPECT_HOST_ERROR(machine.Press(row.Last), errors::Overflow) << ToUtf8(row.Keys);
    EXPECT_EQ(machine.Display(), display);
  }
}

TEST_F(CalculatorMachineTest, ADisplayThatIsNotANumberIsATypeMismatch) {
  for (const char16_t key : operatorKeys) {
    Machine machine(boxes);
    machine.OpenOn(1E20);
    EXPECT_EQ(machine.Type(u","), u"1E+20,");
    EXPECT_HOST_ERROR(machine.Press(key), errors::TypeMismatch);
    EXPECT_EQ(machine.Display(), u"1E+20,");
  }
}

TEST_F(CalculatorMachineTest, EveryOperatorHasItsCaption) {
  const char16_t* const captions[] = {u"C", u"CE", u"+", u"-", u"X", u"/", u"=", u"%"};
  for (int key = 0; key < CalculatorMachine::OperatorCount; ++key) {
    EXPECT_EQ(CalculatorMachine::Caption(static_cast<CalculatorMachine::Operator>(key)),
              captions[key]);
  }
}

}  // namespace
}  // namespace tessaria::test
