// The interface through which the key handlers use a field.
#pragma once

#include "tessaria/host/widgets.h"
#include "tessaria/tstext_interface.h"

namespace tessaria {

/// A field with a mask, as the key handlers see it. Implemented by the control.
class MaskedField {
 public:
  MaskedField() = default;
  MaskedField(const MaskedField&) = delete;
  MaskedField& operator=(const MaskedField&) = delete;
  virtual ~MaskedField() = default;

  virtual host::TextBox& Box() = 0;
  virtual String Mascara() const = 0;
  /// The fill character and the literals of the mask, each once.
  virtual String ItensMascara() const = 0;
  /// At most one character.
  virtual String PromptChar() const = 0;
  /// Whether a numeric mask accepts a minus sign.
  virtual bool ValorNegativo() const = 0;
  virtual tessaria::TipoControle TipoControle() const = 0;
  /// The typed text. Assigning it also writes the box: the text itself, or as many password
  /// characters when the box hides it.
  virtual String Texto() const = 0;
  virtual void Texto(const String& text) = 0;
  /// Assigns the typed text and leaves the box alone.
  virtual void StoreText(const String& text) = 0;
  /// Opens the calculator on the box's number and assigns its answer.
  virtual void RunCalculator() = 0;
};

}  // namespace tessaria
