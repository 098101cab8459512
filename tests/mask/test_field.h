// A masked field around a text box of the memory host.
#pragma once

#include "mask/editing_keys.h"
#include "mask/key_filter.h"
#include "mask/masked_field.h"
#include "tessaria/masks.h"
#include "tessaria/memory/text_box.h"

namespace tessaria {

/// Stores a mask as the control does, with the key handlers connected.
class TestField final : public MaskedField {
 public:
  explicit TestField(String mask = u"", String prompt = u"_") : prompt_(std::move(prompt)) {
    Mask(std::move(mask));
    box.OnKeyDown = [this](Integer& code, Integer& shift) {
      txtEdit_KeyDown(*this, code, shift);
      lastKey = code;
    };
    box.OnKeyPress = [this](Integer& code) {
      txtEdit_KeyPress(*this, code);
      lastKey = code;
    };
  }

  void Mask(String mask) {
    mask_ = std::move(mask);
    items_ = mdlObjTxt::MontaItensMascara(mask_, prompt_);
  }
  void Prompt(String prompt) {
    prompt_ = std::move(prompt);
    Mask(mask_);
  }
  /// Lays out a value in the box, as an assignment of the value does.
  void Show(const String& value) {
    typed_ = mdlObjTxt::LimpaMascara(value, mask_, items_);
    box.Text(mdlObjTxt::AplicaMascara(value, mask_, prompt_, items_, box.PasswordChar()));
  }

  host::TextBox& Box() override { return box; }
  String Mascara() const override { return mask_; }
  String ItensMascara() const override { return items_; }
  String PromptChar() const override { return prompt_; }
  bool ValorNegativo() const override { return negative; }
  tessaria::TipoControle TipoControle() const override { return type; }
  String Texto() const override { return typed_; }
  void Texto(const String& text) override {
    typed_ = text;
    const String hidden = box.PasswordChar();
    box.Text(hidden.empty() ? text : String(text.size(), hidden.front()));
  }
  void StoreText(const String& text) override { typed_ = text; }
  void RunCalculator() override { ++calculators; }

  memory::TextBox box;
  bool negative = false;
  tessaria::TipoControle type = tessaria::TipoControle::Normal;
  int calculators = 0;  ///< how often the calculator was requested
  Integer lastKey = 0;  ///< the key as the last handler left it

 private:
  String mask_, items_, prompt_, typed_;
};

}  // namespace tessaria
