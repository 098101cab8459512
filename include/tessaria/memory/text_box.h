// A text box without a screen that edits as a real one does.
#pragma once

#include <memory>
#include <set>

#include "tessaria/export.h"
#include "tessaria/host/widgets.h"
#include "tessaria/memory/keys.h"

namespace tessaria::memory {

/// The text box of a control, driven by keys. On its own it takes every key; on a form the form
/// routes the keys and the focus.
class TESSARIA_MEMORY_API TextBox final : public host::TextBox {
 public:
  TextBox();
  ~TextBox() override;

  String Text() const override { return text_; }
  void Text(const String& text) override;
  Long SelStart() const override;
  void SelStart(Long position) override;
  Long SelLength() const override;
  void SelLength(Long length) override;
  String SelText() const override;
  void SelText(const String& text) override;
  Long MaxLength() const override { return maxLength_; }
  void MaxLength(Long characters) override;
  String PasswordChar() const override { return passwordChar_; }
  void PasswordChar(const String& text) override { passwordChar_ = text.substr(0, 1); }
  host::Alignment Alignment() const override { return alignment_; }
  void Alignment(host::Alignment alignment) override { alignment_ = alignment; }

  bool Enabled() const override { return enabled_; }
  void Enabled(bool enabled) override { enabled_ = enabled; }
  bool Visible() const override { return visible_; }
  void Visible(bool visible) { visible_ = visible; }
  /// A box of several lines, which "\r\n" separates: Enter begins a new one.
  void MultiLine(bool multiLine) { multiLine_ = multiLine; }
  Colour ForeColor() const override { return foreColor_; }
  void ForeColor(Colour colour) override { foreColor_ = colour; }
  Colour BackColor() const override { return backColor_; }
  void BackColor(Colour colour) override { backColor_ = colour; }
  host::Font Font() const override { return font_; }
  void Font(const host::Font& font) override { font_ = font; }
  Long Width() const override { return width_; }
  void Width(Long twips) override { width_ = twips; }
  Long Height() const override { return height_; }
  void Height(Long twips) override { height_ = twips; }
  /// Does nothing for a box that is disabled or hidden.
  void SetFocus() override;

  /// What the operator sees: the text, or one password character for each of its characters.
  String DisplayedText() const;
  bool HasFocus() const { return hasFocus_; }

  // --- Operator input -----------------------------------------------------------------------
  // A disabled or hidden box takes no key. A key whose code or character a handler sets to 0 does
  // not reach the box; its release is still reported.

  /// Types each character with its key, or keys.
  void Type(StringView text);
  /// Presses a key and releases it.
  void Press(Key key, Integer shift = modifier::None);
  /// Key-down, key-press and the edit.
  void Hold(const Stroke& stroke);
  /// Key-up: the box raises its own only for a key that went down in it; the surface gets every
  /// one.
  void Release(const Stroke& stroke);
  /// Text that comes without a key (menu, drop): replaces the selection and raises one key-up of
  /// code 0.
  void Insert(const String& text);

  // --- What a surface around the box connects --------------------------------------------------
  /// Handlers of the surface, called before the box's own.
  struct Preview {
    /// A key went down. Code 0 swallows it.
    std::function<void(Integer& KeyCode, Integer& Shift)> OnKeyDown;
    /// A key gives a character. Code 0 swallows it.
    std::function<void(Integer& KeyAscii)> OnKeyPress;
    /// A key was released.
    std::function<void(Integer& KeyCode, Integer& Shift)> OnKeyUp;
  };
  Preview Surface;
  /// Moves the focus here on a form. Without it the box takes the focus by itself.
  std::function<void()> OnSetFocus;
  /// Enter in a box of one line, which has no use for it.
  std::function<void()> OnEnterKey;
  /// The box refused text for lack of room: all of it, or the rest.
  std::function<void()> OnNoRoom;
  void GainFocus();
  void LoseFocus();

 private:
  bool TakesKeys() const { return enabled_ && visible_; }
  bool PassesKeyDown(const Stroke& stroke);
  void RaiseKeyUp(const Stroke& stroke, bool pressedHere);
  void PressCharacter(char16_t character);
  void EditCommand(const Stroke& stroke);
  /// Positions from 0. The end of a line and a character of two units are passed in one step.
  Long WholePosition(Long position) const;
  Long Previous(Long position) const;
  Long Next(Long position) const;
  Long LineStart() const;
  Long LineEnd() const;
  void MoveCaret(Long position, bool extend);
  void Backspace();
  void Delete();
  /// Replaces the selection by the operator's text, or as much of it as there is room for. Does
  /// nothing when there is no room.
  void Enter(const String& text);
  /// An edit of the operator, which raises its event.
  void PutIn(Long start, Long length, const String& text);
  /// Returns whether that changes the text.
  bool Replace(Long start, Long length, const String& text);
  Long Clamp(Long position) const;

  String text_;
  Long anchor_ = 0;  ///< the end of the selection that stays
  Long caret_ = 0;   ///< the end of the selection that moves
  Long maxLength_ = 0;
  char16_t half_ = u'\0';  ///< the first half of a character whose second is to come
  String passwordChar_;
  host::Alignment alignment_ = host::Alignment::Left;
  bool enabled_ = true;
  bool visible_ = true;
  bool multiLine_ = false;
  bool hasFocus_ = false;
  std::set<Integer> held_;  ///< keys whose release is awaited
  Colour foreColor_ = host::colour::WindowText;
  Colour backColor_ = host::colour::WindowBackground;
  host::Font font_;
  Long width_ = 1215;
  Long height_ = 315;
  /// Destroyed with the box, so that the work on a key stops when a handler closes the form.
  std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
};

}  // namespace tessaria::memory
