// The text box of a field: what it was left showing, and the way of a text through the mask.
#pragma once

#include "control/members.h"
#include "control/shown_text.h"
#include "tessaria/host/control.h"
#include "tessaria/host/widgets.h"

namespace tessaria {

/// The box with its mask and its typed text. It knows whether anybody has touched it.
class FieldBox {
 public:
  using What = ShownText::What;

  /// All four outlive it.
  FieldBox(host::ControlSite& site, host::TextBox& txtEdit, const MaskSettings& mask,
           FieldContents& contents)
      : site_(site), txtEdit_(txtEdit), mask_(mask), contents_(contents) {}
  FieldBox(const FieldBox&) = delete;
  FieldBox& operator=(const FieldBox&) = delete;

  host::TextBox& Widget() const { return txtEdit_; }
  const MaskSettings& Mask() const { return mask_; }
  ShownText& Shown() { return shown_; }
  const ShownText& Shown() const { return shown_; }

  /// The mask makes the field a number.
  bool IsNumeric() const;
  /// The value is stored scrambled.
  bool IsScrambled() const;

  /// A value as the box shows it.
  String LaidOut(const Variant& v) const;
  /// A text without the literals of the mask; without an argument, that of the box.
  String Stripped(const String& text) const;
  String Stripped() const { return Stripped(txtEdit_.Text()); }
  /// An amount as it is edited: without its thousands points.
  String WithoutPoints() const;

  /// Writes the box as the field's own: that touches nothing.
  void Write(const String& text);
  void WriteSelection(const String& text);
  /// Shows a value and remembers it. A stored text that the field's type cannot take is shown
  /// without the mask.
  void Display(const Variant& v, What what);
  /// Assigns the typed text and the box: the text itself, or as many password characters.
  void Texto(const String& v);
  void SelectWhole();
  /// Numbers stand at the right, all else at the left.
  void AlignByMask();

  /// Whether the box shows something else than the field's own value.
  bool IsTouched() const;
  /// Whether the box shows a stored text that nobody has touched.
  bool ShowsStoredText() const;
  /// What the field itself does to its box in `body` does not touch it, also when it breaks off.
  template <class Body>
  void WithoutTouching(Body&& body);

 private:
  bool HidesTexto() const;
  void Remember() { shown_.Remember(txtEdit_.Text(), contents_.Texto); }

  host::ControlSite& site_;
  host::TextBox& txtEdit_;
  const MaskSettings& mask_;
  FieldContents& contents_;
  ShownText shown_;
};

template <class Body>
void FieldBox::WithoutTouching(Body&& body) {
  const bool touched = IsTouched();
  try {
    const ShownText::OwnWrite own(shown_);
    body();
  } catch (...) {
    if (!touched) Remember();
    throw;
  }
  if (!touched) Remember();
}

}  // namespace tessaria
