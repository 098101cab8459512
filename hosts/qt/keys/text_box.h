// The text box port over a LineEdit.
#pragma once

#include <QPointer>
#include <optional>

#include "hosts/qt/keys/line_edit.h"
#include "tessaria/host/widgets.h"

namespace tessaria::qt {

/// May outlive its edit; every member then raises `ControlGone`.
class TextBox final : public host::TextBox, public EditEvents {
 public:
  /// The edit is not owned.
  explicit TextBox(LineEdit& edit);
  ~TextBox() override;

  String Text() const override;
  void Text(const String& text) override;
  Long SelStart() const override;
  void SelStart(Long position) override;
  Long SelLength() const override;
  void SelLength(Long length) override;
  String SelText() const override;
  void SelText(const String& text) override;
  Long MaxLength() const override;
  void MaxLength(Long characters) override;
  String PasswordChar() const override;
  void PasswordChar(const String& text) override;
  host::Alignment Alignment() const override;
  void Alignment(host::Alignment alignment) override;

  bool Enabled() const override;
  void Enabled(bool enabled) override;
  bool Visible() const override;
  Colour ForeColor() const override { return foreColor_; }
  void ForeColor(Colour colour) override;
  Colour BackColor() const override { return backColor_; }
  void BackColor(Colour colour) override;
  host::Font Font() const override;
  void Font(const host::Font& font) override;
  Long Width() const override;
  void Width(Long twips) override;
  Long Height() const override;
  void Height(Long twips) override;
  /// Brings the pages that the box is on to the front. Does nothing for a disabled box.
  void SetFocus() override;

  /// The handlers of the surface, called before those of the box.
  struct Preview {
    std::function<void(Integer& KeyCode, Integer& Shift)> OnKeyDown;
    std::function<void(Integer& KeyAscii)> OnKeyPress;
    std::function<void(Integer& KeyCode, Integer& Shift)> OnKeyUp;
  };
  Preview Surface;
  /// The typed text behind the box; restoring it may also write the box.
  std::function<Typing()> Typed;
  std::function<void(const Typing&)> RestoreTyped;
  /// The mask that pasted text goes through.
  std::function<MaskInUse()> Mask;

  /// Applies the colours again after the theme has changed.
  void applyColours();

 private:
  // EditEvents
  void changed() override;
  void sameText() override;
  KeyFate keyDown(Integer code, Integer shift, KeyReach reach) override;
  KeyFate keyPress(Integer& code) override;
  void keyUp(Integer code, Integer shift, PressedIn where) override;
  void gotFocus() override;
  void lostFocus() override;
  MaskInUse maskInUse() const override;
  Typing typing() const override;
  void restoreTyping(const Typing& typing) override;

  LineEdit& edit() const;
  QColor textColour(const QColor& wanted, const QColor& back) const;

  QPointer<LineEdit> edit_;
  String passwordChar_;
  Colour foreColor_ = host::colour::WindowText;
  Colour backColor_ = host::colour::WindowBackground;
  std::optional<host::Font> font_;
};

}  // namespace tessaria::qt
