// The events of an edit, for the port over it.
#pragma once

#include "hosts/qt/keys/edit_history.h"
#include "tessaria/string.h"

namespace tessaria::qt {

/// The outcome of a key.
enum class KeyFate { LeftAlone, TakenBySurface, TakenByBox };

/// The mask of the edit; empty for none.
struct MaskInUse {
  String mask;
  String items;
  String prompt;
  bool isEmpty() const { return mask.empty(); }
};

/// Which handlers a key reaches.
enum class KeyReach { Box, SurfaceOnly };

/// Who received the press of a key that is released.
enum class PressedIn { Box, Elsewhere };

/// The events of an edit. Any of them may destroy the edit.
class EditEvents {
 public:
  virtual ~EditEvents() = default;
  virtual void changed() = 0;
  /// The operator has entered the same text that the edit held.
  virtual void sameText() = 0;
  virtual KeyFate keyDown(Integer code, Integer shift, KeyReach reach) = 0;
  /// May change `code`.
  virtual KeyFate keyPress(Integer& code) = 0;
  virtual void keyUp(Integer code, Integer shift, PressedIn where) = 0;
  virtual void gotFocus() = 0;
  virtual void lostFocus() = 0;
  virtual MaskInUse maskInUse() const = 0;
  /// What is behind the box: the typed text, which a password hides, and whether it counts as
  /// typed. Restoring it may also write the box.
  virtual Typing typing() const = 0;
  virtual void restoreTyping(const Typing& typing) = 0;
};

}  // namespace tessaria::qt
