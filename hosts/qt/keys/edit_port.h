// What all text boxes of the ports have: looks and events.
#pragma once

#include <QPointer>
#include <QWidget>
#include <optional>

#include "hosts/qt/keys/edit_events.h"
#include "tessaria/host/widgets.h"

namespace tessaria::qt {

/// May outlive its edit; every member then raises `ControlGone`.
class EditPort : public host::TextBox, public EditEvents {
 public:
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
  /// Brings the pages that the box is on to the front. Does nothing for a disabled box.
  void SetFocus() override;

  /// The handlers of the surface, called before those of the box.
  struct Preview {
    std::function<void(Integer& KeyCode, Integer& Shift)> OnKeyDown;
    std::function<void(Integer& KeyAscii)> OnKeyPress;
    std::function<void(Integer& KeyCode, Integer& Shift)> OnKeyUp;
  };
  Preview Surface;

  /// Forgets all handlers, whose owner may be gone.
  void silence();

  /// Applies the colours again after the theme has changed.
  void applyColours();

 protected:
  /// The edit is not owned.
  explicit EditPort(QWidget& face) : face_(&face) {}

  QWidget& face() const;
  bool isGone() const { return !face_; }

 private:
  // EditEvents
  void changed() override;
  void sameText() override;
  KeyFate keyDown(Integer code, Integer shift, KeyReach reach) override;
  KeyFate keyPress(Integer& code) override;
  void keyUp(Integer code, Integer shift, PressedIn where) override;
  void gotFocus() override;
  void lostFocus() override;
  MaskInUse maskInUse() const override { return {}; }
  Typing typing() const override { return {}; }
  void restoreTyping(const Typing&) override {}

  QColor textColour(const QColor& wanted, const QColor& back) const;

  QPointer<QWidget> face_;
  String passwordChar_;
  Colour foreColor_ = host::colour::WindowText;
  Colour backColor_ = host::colour::WindowBackground;
  std::optional<host::Font> font_;
};

}  // namespace tessaria::qt
