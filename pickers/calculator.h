// The calculator's window.
#pragma once

#include "pickers/calculator_machine.h"
#include "tessaria/host/dialog.h"
#include "tessaria/host/widgets.h"
#include "tessaria/variant.h"

namespace tessaria {

/// The calculator of a number field. Created on first use, one per thread; its caller keeps it
/// alive until it returns.
class frmCalculadora {
 public:
  /// What the window is made of.
  static const host::DialogDescription& Description();

  frmCalculadora();
  frmCalculadora(const frmCalculadora&) = delete;
  frmCalculadora& operator=(const frmCalculadora&) = delete;
  ~frmCalculadora();

  /// Opens with the number in the box and returns the display's text when the window closes,
  /// however it closes. `nLi` and `nCi` are the wanted top and left, in twips; `cTexto` is the
  /// box's text without its mask. The mask and its literals are the same arguments as in the other
  /// pickers, and are not used. `changed`, unless null, receives whether the display shows another
  /// number than the one that it opened with: that of the box, or 0. Error 13 for a box that
  /// contains only fill characters.
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
