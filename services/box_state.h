// The text and selection of a text box, for a procedure that may have to restore them.
#pragma once

#include "tessaria/host/widgets.h"
#include "tessaria/string.h"

namespace tessaria {

/// The state of a box at construction. The box must outlive this object.
class BoxState {
 public:
  explicit BoxState(host::TextBox& box)
      : box_(box), text_(box.Text()), start_(box.SelStart()), length_(box.SelLength()) {}

  const String& Text() const { return text_; }
  void PutBack() const {
    if (box_.Text() != text_) box_.Text(text_);
    box_.SelStart(start_);
    box_.SelLength(length_);
  }

 private:
  host::TextBox& box_;
  String text_;
  Long start_;
  Long length_;
};

}  // namespace tessaria
