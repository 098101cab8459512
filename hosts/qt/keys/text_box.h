// The text box port over an edit of one line or of several.
#pragma once

#include <QPointer>
#include <QWidget>
#include <functional>
#include <optional>

#include "hosts/qt/keys/text_edit.h"
#include "tessaria/host/widgets.h"

namespace tessaria::qt {

/// May outlive its edit; every member then raises `ControlGone`.
class TextBox final : public host::TextBox, public EditEvents {
 public:
  /// The edit is not owned.
  explicit TextBox(TextEdit& edit);
  ~TextBox() override;
  /// Another edit takes over text, selection and looks, without events.
  void setEdit(TextEdit& edit);

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
  String PasswordChar() const override { return passwordChar_; }
  void PasswordChar(const String& text) override;

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
  host::Alignment Alignment() const override;
  void Alignment(host::Alignment alignment) override;
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

  /// Forgets all handlers, whose owner may be gone.
  void silence();

  /// Applies the colours again after the theme has changed.
  void applyColours();

 private:
  TextEdit& edit() const;
  QWidget& face() const { return edit().widget(); }
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

  QColor textColour(const QColor& wanted, const QColor& back) const;

  TextEdit* edit_;
  QPointer<QWidget> face_;  ///< the edit as a widget, which may be gone
  String passwordChar_;
  Colour foreColor_ = host::colour::WindowText;
  Colour backColor_ = host::colour::WindowBackground;
  std::optional<host::Font> font_;
};

}  // namespace tessaria::qt
