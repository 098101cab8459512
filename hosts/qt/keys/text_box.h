// The text box port over a LineEdit.
#pragma once

#include "hosts/qt/keys/edit_port.h"
#include "hosts/qt/keys/line_edit.h"

namespace tessaria::qt {

class TextBox final : public EditPort {
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
  using EditPort::PasswordChar;
  void PasswordChar(const String& text) override;
  host::Alignment Alignment() const override;
  void Alignment(host::Alignment alignment) override;

  /// The typed text behind the box; restoring it may also write the box.
  std::function<Typing()> Typed;
  std::function<void(const Typing&)> RestoreTyped;
  /// The mask that pasted text goes through.
  std::function<MaskInUse()> Mask;

 private:
  MaskInUse maskInUse() const override;
  Typing typing() const override;
  void restoreTyping(const Typing& typing) override;

  LineEdit& edit() const { return static_cast<LineEdit&>(face()); }
};

}  // namespace tessaria::qt
