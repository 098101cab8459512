// The text box port over a MultiLineEdit.
#pragma once

#include "hosts/qt/keys/edit_port.h"
#include "hosts/qt/keys/multi_line_edit.h"

namespace tessaria::qt {

/// Lines are separated by "\r\n", and positions count both characters; one between the two counts
/// as the end of the line. Any other line end that is assigned becomes "\r\n". A password character
/// is kept without effect.
class MultiLineBox final : public EditPort {
 public:
  /// The edit is not owned.
  explicit MultiLineBox(MultiLineEdit& edit);
  ~MultiLineBox() override;

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
  host::Alignment Alignment() const override;
  void Alignment(host::Alignment alignment) override;

 private:
  MultiLineEdit& edit() const { return static_cast<MultiLineEdit&>(face()); }
  void select(Long start, Long length);
};

}  // namespace tessaria::qt
