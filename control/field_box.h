// The text box of a field: what it shows, whether it was touched, and its text under the mask.
#pragma once

#include "control/members.h"
#include "control/shown_text.h"
#include "tessaria/host/control.h"
#include "tessaria/host/widgets.h"

namespace tessaria {

/// The box with its mask and its typed text. It knows whether it was touched.
class FieldBox {
 public:
  using What = ShownText::What;

  /// All four must outlive this object.
  FieldBox(host::ControlSite& site, host::TextBox& txtEdit, const MaskSettings& mask,
           FieldContents& contents)
      : site_(site), txtEdit_(txtEdit), mask_(mask), contents_(contents) {}
  FieldBox(const FieldBox&) = delete;
  FieldBox& operator=(const FieldBox&) = delete;

  host::TextBox& Widget() const { return txtEdit_; }
  const MaskSettings& Mask() const { return mask_; }
  ShownText& Shown() { return shown_; }
  const ShownText& Shown() const { return shown_; }

  /// Whether the mask is numeric.
  bool IsNumeric() const;
  /// Whether the value is stored scrambled.
  bool IsScrambled() const;

  /// A value as the box shows it.
  String LaidOut(const Variant& v) const;
  /// A text without the literals of the mask; without an argument, that of the box.
  String Stripped(const String& text) const;
  String Stripped() const { return Stripped(txtEdit_.Text()); }
  /// An amount as it is edited: without thousands points.
  String WithoutPoints() const;

  /// Writes to the box on behalf of the field, which does not count as touching it.
  void Write(const String& text);
  void WriteSelection(const String& text);
  /// Shows a value and remembers it. A stored text that the field's type cannot take is shown
  /// without the mask.
  void Display(const Variant& v, What what);
  /// The text that this shows.
  String TextFor(const Variant& v, What what) const;
  /// Assigns the typed text and the box: the text itself, or as many password characters.
  void Texto(const String& v);
  void SelectWhole();
  /// Aligns numbers right and everything else left.
  void AlignByMask();

  /// Whether the box shows something other than the field's value.
  bool IsTouched() const;
  /// Whether the box shows an untouched stored text.
  bool ShowsStoredText() const;
  /// What the field does to its box in `body` does not count as touching it, even if `body` throws.
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
