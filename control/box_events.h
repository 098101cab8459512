// The events of the box, and the keys of the surface.
#pragma once

#include "control/dialogs.h"
#include "control/field_box.h"
#include "control/looks.h"
#include "control/pair.h"
#include "control/scoped_flag.h"
#include "mask/masked_field.h"

namespace tessaria {

/// Handles the events of a field's box during its lifetime, and the keys of its surface, which the
/// host passes on.
class BoxEvents final : private MaskedField {
 public:
  /// All of them must outlive this object.
  BoxEvents(FieldBox& box, Members& members, Pair& pair, Looks& looks, Dialogs& dialogs,
            tsTextEvents& events);
  ~BoxEvents() override;

  /// The key-up of PageDown opens the dialog, if its key-down came to this field too.
  void KeyDown(Integer& KeyCode, Integer& Shift);
  void KeyUp(Integer& KeyCode, Integer& Shift);
  /// The field loses the focus: the key-up of a held key goes elsewhere.
  void ForgetHeldKey() { pageDownIsHeld_ = false; }

  /// While one exists, changes of the box's text come from loading and do not change the field.
  class Silence {
   public:
    explicit Silence(BoxEvents& events) : flag_(events.isSilent_) {}

   private:
    ScopedFlag flag_;
  };

 private:
  // MaskedField
  host::TextBox& Box() override { return box_.Widget(); }
  String Mascara() const override { return members_.Mascara; }
  String ItensMascara() const override { return members_.ItensMascara; }
  String PromptChar() const override { return members_.PromptChar; }
  bool ValorNegativo() const override { return members_.ValorNegativo; }
  tessaria::TipoControle TipoControle() const override { return members_.TipoControle; }
  String Texto() const override { return members_.Texto; }
  void Texto(const String& text) override;
  void StoreText(const String& text) override { members_.Texto = text; }
  void RunCalculator() override { dialogs_.OpenCalculator(); }

  void OnChange();
  void OnKeyUp(Integer KeyCode);
  void SplitPath();

  FieldBox& box_;
  Members& members_;
  Pair& pair_;
  Dialogs& dialogs_;
  tsTextEvents& events_;
  bool pageDownIsHeld_ = false;
  bool isSilent_ = false;
};

}  // namespace tessaria
