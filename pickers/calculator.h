// The calculator's window.
#pragma once

#include "pickers/calculator_machine.h"
#include "tessaria/host/dialog.h"
#include "tessaria/host/widgets.h"
#include "tessaria/variant.h"

namespace tessaria {

/// The calculator of a number field. Made on first need, one per thread; whoever
/// runs it holds it until it has answered.
class frmCalculadora {
 public:
  /// What the window is made of.
  static const host::DialogDescription& Description();

  frmCalculadora();
  frmCalculadora(const frmCalculadora&) = delete;
  frmCalculadora& operator=(const frmCalculadora&) = delete;
  ~frmCalculadora();

  /// Opens on the number in the box and gives the display's text when the window closes, however
  /// it closes. `nLi` and `nCi` are the wanted top and left, twips; `cTexto` is the box's text
  /// without its mask. The mask and its literals are taken as by the other pickers, and not read.
  /// `changed`, unless null, tells whether the display shows another number than it opened on: that
  /// of the box, or 0. Error 13 for a box of nothing but fill characters.
  Variant ExecutaCalculadora(const Variant& nLi, const Variant& nCi, host::TextBox& txtNumero,
                             const String& cTexto, const String& cMascara,
                             const String& cItensMascara, bool* changed = nullptr);
  /// Closes the window, also while it is open.
  void Unload();

 private:
  void Load();
  void FormKeyPress(Integer& KeyAscii);
  void ButtonKeyPress(Integer KeyAscii, bool onDigit);
  void PressDigit(int digit);
  void PressComma();
  void PressOperator(CalculatorMachine::Operator key);
  void Reset();
  void ShowDisplay();
  host::DialogButton& Digit(int digit);
  host::DialogButton& OperatorButton(CalculatorMachine::Operator key);

  host::DialogPtr dialog_;
  CalculatorMachine machine_;
};

}  // namespace tessaria
