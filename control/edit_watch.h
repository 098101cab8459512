// Whether the field that holds the focus has something to settle, for hosts to ask.
#pragma once

#include "control/tstext.h"
#include "mask/masks.h"
#include "runtime/text.h"

namespace tessaria {

/// Follows one field from its Enter to its Exit. An action that runs while the field holds the
/// focus need not disturb one that stands as it was entered.
class EditWatch {
 public:
  /// To be called when the field's Enter has run.
  void Entered(const tsText& field) {
    text_ = field.Text();
    typed_ = field.Texto();
  }
  void Left(ExitVerdict verdict) { verdict_ = verdict; }
  /// A text that has changed, one that was refused, or a field that an action may find blank.
  bool IsPending(const tsText& field) const {
    return verdict_ != ExitVerdict::Left || field.Text() != text_ || field.Texto() != typed_ ||
           (!field.PodeSerBranco() && MayBeBlank(field));
  }

 private:
  /// An amount of zeros counts as blank too.
  static bool MayBeBlank(const tsText& field) {
    const String mask = field.Mascara();
    return mdlObjTxt::EhMascaraNumerica(mask) ||
           Trim(mdlObjTxt::LimpaMascara(field.Text(), mask, field.ItensMascara())).empty();
  }

  String text_;   ///< the box as it was entered
  String typed_;  ///< what stands behind a box of password characters
  ExitVerdict verdict_ = ExitVerdict::Left;
};

}  // namespace tessaria
