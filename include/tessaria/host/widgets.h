// The two widgets that one control is made of.
#pragma once

#include <functional>
#include <memory>

#include "tessaria/export.h"
#include "tessaria/host/application.h"
#include "tessaria/variant.h"

namespace tessaria::host {

/// A font. Size in points.
struct TESSARIA_CORE_API Font : Object {
  String Name;
  double Size = 8.25;
  bool Bold = false;
  bool Italic = false;
  bool Underline = false;
  bool Strikethrough = false;
  bool operator==(const Font& other) const {
    return Name == other.Name && Size == other.Size && Bold == other.Bold &&
           Italic == other.Italic && Underline == other.Underline &&
           Strikethrough == other.Strikethrough;
  }
};

/// System colours by index.
namespace colour {
inline constexpr Colour WindowBackground = 0x80000005;
inline constexpr Colour MenuText = 0x80000007;
inline constexpr Colour WindowText = 0x80000008;
inline constexpr Colour ButtonFace = 0x8000000F;
inline constexpr Colour GrayText = 0x80000011;
inline constexpr Colour Blue = 0xFF0000;
inline constexpr Colour White = 0xFFFFFF;
inline constexpr Colour Green = 32768;
}  // namespace colour

/// On which side a text stands in its box.
enum class Alignment : Integer { Left = 0, Right = 1 };

/// A single-line text box. Owned by the host; lives as long as the control that uses it.
///
/// Contract: assigning `Text` puts the caret at 0, clears the selection, takes the text whole and
/// raises `OnChange` once, only when the text differs. `SelStart` (from 0) and `SelLength` clamp to
/// the text; setting `SelStart` empties the selection. Gaining the focus selects nothing. A key
/// that the handlers leave alone replaces the selection. The order of a key is key-down, key-press,
/// change, key-up.
///
/// `MaxLength` (in UTF-16 units; 0 is no limit, a negative one is kept as 0) bounds what the
/// operator types or pastes in place of the selection, and nothing else: a text that is assigned or
/// already present may be longer. A typed character without room is refused; a pasted text is cut,
/// but never inside a surrogate pair; when nothing of it fits, text and selection stay unchanged.
class TESSARIA_CORE_API TextBox {
 public:
  TextBox() = default;
  TextBox(const TextBox&) = delete;
  TextBox& operator=(const TextBox&) = delete;
  virtual ~TextBox() = default;

  virtual String Text() const = 0;
  virtual void Text(const String& text) = 0;
  virtual Long SelStart() const = 0;
  virtual void SelStart(Long position) = 0;
  virtual Long SelLength() const = 0;
  virtual void SelLength(Long length) = 0;
  virtual String SelText() const = 0;
  /// Replaces the selection by the whole text and leaves the caret after it.
  virtual void SelText(const String& text) = 0;
  virtual Long MaxLength() const = 0;
  virtual void MaxLength(Long characters) = 0;
  /// Only the first character counts; "" shows the text itself.
  virtual String PasswordChar() const = 0;
  virtual void PasswordChar(const String& text) = 0;
  virtual host::Alignment Alignment() const = 0;
  virtual void Alignment(host::Alignment alignment) = 0;

  virtual bool Enabled() const = 0;
  virtual void Enabled(bool enabled) = 0;
  virtual bool Visible() const = 0;
  virtual Colour ForeColor() const = 0;
  virtual void ForeColor(Colour colour) = 0;
  virtual Colour BackColor() const = 0;
  virtual void BackColor(Colour colour) = 0;
  virtual host::Font Font() const = 0;
  virtual void Font(const host::Font& font) = 0;
  /// Twips.
  virtual Long Width() const = 0;
  virtual void Width(Long twips) = 0;
  virtual Long Height() const = 0;
  virtual void Height(Long twips) = 0;
  virtual void SetFocus() = 0;

  /// Free text for the code that uses the box.
  String Tag;

  /// The text has changed, by the operator or by an assignment.
  std::function<void()> OnChange;
  /// Raised instead of `OnChange` when the operator enters the same text that the box already
  /// holds.
  std::function<void()> OnSameText;
  /// A key went down. Code 0 swallows it.
  std::function<void(Integer& KeyCode, Integer& Shift)> OnKeyDown;
  /// A key gives a character. Code 0 swallows it.
  std::function<void(Integer& KeyAscii)> OnKeyPress;
  /// A key that went down in the box was released.
  std::function<void(Integer& KeyCode, Integer& Shift)> OnKeyUp;
  /// The box has the focus now.
  std::function<void()> OnGotFocus;
  /// The box has lost the focus.
  std::function<void()> OnLostFocus;
};

/// A push button with a picture. Owned by the host.
class TESSARIA_CORE_API CommandButton {
 public:
  CommandButton() = default;
  CommandButton(const CommandButton&) = delete;
  CommandButton& operator=(const CommandButton&) = delete;
  virtual ~CommandButton() = default;

  virtual bool Visible() const = 0;
  virtual void Visible(bool visible) = 0;
  virtual bool Enabled() const = 0;
  virtual void Enabled(bool enabled) = 0;
  /// Twips.
  virtual Long Left() const = 0;
  virtual void Left(Long twips) = 0;
  virtual Long Height() const = 0;
  virtual void Height(Long twips) = 0;
  virtual std::shared_ptr<host::Picture> Picture() const = 0;
  virtual void Picture(std::shared_ptr<host::Picture> picture) = 0;

  /// The operator has pressed it.
  std::function<void()> OnClick;
};

}  // namespace tessaria::host
