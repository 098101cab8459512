// The events of the box, and the keys of the surface.
#pragma once

#include <functional>

#include "control/field_box.h"
#include "control/looks.h"
#include "control/pair.h"
#include "mask/masked_field.h"

namespace tessaria {

/// Takes the events of a field's box for as long as it lives.
class BoxEvents final : private MaskedField {
 public:
  /// All outlive it. The calculator is the one that a key of the filter opens.
  BoxEvents(FieldBox& box, Members& members, Pair& pair, Looks& looks, tsTextEvents& events,
            std::function<void()> openCalculator);
  ~BoxEvents() override;

  /// While one lives, the box's text is loaded: that is no change of the field.
  class Silence {
   public:
    explicit Silence(BoxEvents& events) : events_(events) { events_.isSilent_ = true; }
    ~Silence() { events_.isSilent_ = false; }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

   private:
    BoxEvents& events_;
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
  void GuardaTexto(const String& text) override { members_.Texto = text; }
  void AbreCalculadora() override { openCalculator_(); }

  void OnChange();
  void OnKeyUp(Integer KeyCode);
  void SplitPath();

  FieldBox& box_;
  Members& members_;
  Pair& pair_;
  tsTextEvents& events_;
  std::function<void()> openCalculator_;
  bool isSilent_ = false;
};

}  // namespace tessaria
