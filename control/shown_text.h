// The text that a field has left in its box, to tell whether it was changed since.
#pragma once

#include "tessaria/string.h"

namespace tessaria {

/// The last text of one box: an untouched field is not written when it is left.
///
/// The field calls `Remember` whenever it has shown its value. A change of the box that no
/// `OwnWrite` covers is the operator's.
class ShownText {
 public:
  enum class What {
    Value,         ///< the field's value
    Refused,       ///< a value that was not stored, beside the field's value
    RefusedValue,  ///< the same, which is the field's value: the row holds none
    StoredText,    ///< a stored value that the field's type cannot take, as its text
  };

  /// Marks writes of the field or of the program for the duration of a scope.
  class OwnWrite {
   public:
    explicit OwnWrite(ShownText& shown) : shown_(shown) { ++shown_.ownWrites_; }
    ~OwnWrite() { --shown_.ownWrites_; }
    OwnWrite(const OwnWrite&) = delete;
    OwnWrite& operator=(const OwnWrite&) = delete;

   private:
    ShownText& shown_;
  };

  /// The field is entered, or the value is shown again: what was typed before no longer counts.
  void ForgetTyping() { typed_ = false; }
  void RestoreTyping(bool typed) { typed_ = typed; }
  /// The box has changed.
  void NoteChange() { typed_ = typed_ || ownWrites_ == 0; }
  /// The operator puts a text into the box, even if it is the same as before.
  void NoteTyping() { typed_ = true; }

  /// Stores the texts that the field leaves in its box and as its typed text.
  void Remember(const String& box, const String& texto) {
    box_ = box;
    texto_ = texto;
  }
  void Remember(const String& box, const String& texto, What what) {
    Remember(box, texto);
    what_ = what;
  }

  /// Whether the operator has changed the box since the field was entered.
  bool IsTyped() const { return typed_; }
  What Shows() const { return what_; }
  /// Whether the box shows something other than the field's value. A refused value counts until
  /// another one is shown. The typed text is compared only if the box hides it.
  bool IsTouched(const String& box, const String& texto, bool hidesTexto) const {
    const bool refused = what_ == What::Refused || what_ == What::RefusedValue;
    return typed_ || refused || box != box_ || (hidesTexto && texto != texto_);
  }

 private:
  String box_, texto_;
  What what_ = What::Value;
  bool typed_ = false;
  int ownWrites_ = 0;
};

}  // namespace tessaria
