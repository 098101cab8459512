#include "pickers/calculator.h"

#include "services/coloured_button.h"
#include "services/dialog_placement.h"
#include "services/key_codes.h"
#include "tessaria/compare.h"
#include "tessaria/conversion.h"
#include "tessaria/host/application.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria {

namespace {

using Operator = CalculatorMachine::Operator;
using host::WidgetKind;

constexpr Colour kBlue = 0xFF0000;
constexpr Colour kRed = 255;
constexpr int kDigitCount = 10;
constexpr Integer kKeyComma = 44;

constexpr host::WidgetDescription kCalculatorWidgets[] = {
    {u"txtVisor", WidgetKind::Display, u"Visor"},
    {u"btnNumero", WidgetKind::CommandButton, u"0", {}, 0},
    {u"btnNumero", WidgetKind::CommandButton, u"1", {}, 1},
    {u"btnNumero", WidgetKind::CommandButton, u"2", {}, 2},
    {u"btnNumero", WidgetKind::CommandButton, u"3", {}, 3},
    {u"btnNumero", WidgetKind::CommandButton, u"4", {}, 4},
    {u"btnNumero", WidgetKind::CommandButton, u"5", {}, 5},
    {u"btnNumero", WidgetKind::CommandButton, u"6", {}, 6},
    {u"btnNumero", WidgetKind::CommandButton, u"7", {}, 7},
    {u"btnNumero", WidgetKind::CommandButton, u"8", {}, 8},
    {u"btnNumero", WidgetKind::CommandButton, u"9", {}, 9},
    {u"btnOperador", WidgetKind::CommandButton, u"C", {}, 0},
    {u"btnOperador", WidgetKind::CommandButton, u"CE", {}, 1},
    {u"btnOperador", WidgetKind::CommandButton, u"+", {}, 2},
    {u"btnOperador", WidgetKind::CommandButton, u"-", {}, 3},
    {u"btnOperador", WidgetKind::CommandButton, u"X", {}, 4},
    {u"btnOperador", WidgetKind::CommandButton, u"/", {}, 5},
    {u"btnOperador", WidgetKind::CommandButton, u"=", {}, 6},
    {u"btnOperador", WidgetKind::CommandButton, u"%", {}, 7},
    {u"btnDecimal", WidgetKind::CommandButton, u"."},
};

/// What a key does on an operator button and on a digit button. The layouts differ, and the
/// difference is kept on purpose.
struct OperatorKey {
  char16_t Key;
  Operator OnOperator;
  Operator OnDigit;
};
constexpr OperatorKey kOperatorKeys[] = {
    {u'=', Operator::Equals, Operator::Equals}, {u'%', Operator::Percent, Operator::Percent},
    {u'X', Operator::Times, Operator::Plus},    {u'x', Operator::Times, Operator::Plus},
    {u'*', Operator::Times, Operator::Plus},    {u'+', Operator::Plus, Operator::CE},
    {u'-', Operator::Minus, Operator::Minus},   {u'/', Operator::Divide, Operator::C},
};
/// The keys that reset the calculator, on each kind of button.
constexpr StringView kResetOnOperator = u"\bc";
constexpr StringView kResetOnDigit = u"CD";

}  // namespace

const host::DialogDescription& frmCalculadora::Description() {
  static const host::DialogDescription description{u"frmCalculadora", u"Calculadora",
                                                   kCalculatorWidgets};
  return description;
}

frmCalculadora::frmCalculadora() : dialog_(TheDesktop().MakeDialog(Description())) {
  machine_.OnDivisionByZero = [] {
    App().ShowMessageBox(0, u"Erro, Divisão por zero impossível", host::box::Exclamation,
                         u"Tessaria Sistemas");
  };
  dialog_->OnKeyPress = [this](Integer& key) { FormKeyPress(key); };
  for (int i = 0; i < kDigitCount; ++i) {
    Digit(i).OnClick = [this, i] { PressDigit(i); };
    Digit(i).OnKeyPress = [this](Integer& key) { ButtonKeyPress(key, true); };
  }
  for (int i = 0; i < CalculatorMachine::OperatorCount; ++i) {
    const auto key = static_cast<Operator>(i);
    OperatorButton(key).OnClick = [this, key] { PressOperator(key); };
    OperatorButton(key).OnKeyPress = [this](Integer& pressed) { ButtonKeyPress(pressed, false); };
  }
  dialog_->Find<host::DialogButton>(u"btnDecimal").OnClick = [this] { PressComma(); };
  Load();
}

frmCalculadora::~frmCalculadora() = default;

void frmCalculadora::Unload() { dialog_->Hide(); }

void frmCalculadora::Load() {
  machine_.Load();
  for (int i = 0; i < kDigitCount; ++i) {
    mdlCorBtn::CorBotao(Digit(i), kBlue);
    Digit(i).BackColor(dialog_->BackColor());
  }
  for (int i = 0; i < CalculatorMachine::OperatorCount; ++i)
    mdlCorBtn::CorBotao(OperatorButton(static_cast<Operator>(i)), kRed);
}

Variant frmCalculadora::ExecutaCalculadora(const Variant& nLi, const Variant& nCi,
                                           host::TextBox& txtNumero, const String& cTexto,
                                           const String& /*cMascara*/,
                                           const String& /*cItensMascara*/, bool* changed) {
  const String text = txtNumero.Text();
  const bool hasNumber = !text.empty() && (IsNumeric(text) || cTexto.empty());
  if (hasNumber) machine_.StartWith(CDbl(text));
  const String given = hasNumber ? CalculatorMachine::NumberText(text) : u"0";
  machine_.Display(given);
  ShowDisplay();
  PlaceOnScreen(*dialog_, static_cast<float>(CDbl(nLi)), static_cast<float>(CDbl(nCi)));
  OperatorButton(Operator::Equals).SetFocus();
  dialog_->ShowModal();
  String answer = dialog_->Find<host::DialogDisplay>(u"txtVisor").Text();
  if (changed) *changed = answer != given;
  return answer;
}

void frmCalculadora::FormKeyPress(Integer& KeyAscii) {
  if (KeyAscii == kKeyEscape) dialog_->Hide();
  if (KeyAscii == kKeyComma) PressComma();
}

void frmCalculadora::ButtonKeyPress(Integer KeyAscii, bool onDigit) {
  const auto key = static_cast<char16_t>(KeyAscii);
  if (key >= u'0' && key <= u'9') return PressDigit(key - u'0');
  if (key == u'.') return PressComma();
  if ((onDigit ? kResetOnDigit : kResetOnOperator).find(key) != StringView::npos) return Reset();
  for (const auto& entry : kOperatorKeys)
    if (entry.Key == key) return PressOperator(onDigit ? entry.OnDigit : entry.OnOperator);
}

void frmCalculadora::PressDigit(int digit) {
  machine_.Digit(digit);
  ShowDisplay();
  OperatorButton(Operator::Equals).SetFocus();
}

void frmCalculadora::PressComma() {
  machine_.Comma();
  ShowDisplay();
}

void frmCalculadora::PressOperator(Operator key) {
  OperatorButton(Operator::Equals).SetFocus();
  const bool ends = machine_.Press(key);
  ShowDisplay();
  if (ends) dialog_->Hide();
}

void frmCalculadora::Reset() {
  Digit(0).SetFocus();
  machine_.Display(u"0");
  ShowDisplay();
  Load();
}

void frmCalculadora::ShowDisplay() {
  dialog_->Find<host::DialogDisplay>(u"txtVisor").Text(machine_.Display());
}

host::DialogButton& frmCalculadora::Digit(int digit) {
  return dialog_->Find<host::DialogButton>(u"btnNumero", static_cast<Integer>(digit));
}

host::DialogButton& frmCalculadora::OperatorButton(Operator key) {
  return dialog_->Find<host::DialogButton>(u"btnOperador", static_cast<Integer>(key));
}

}  // namespace tessaria
