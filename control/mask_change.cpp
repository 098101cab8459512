#include "control/mask_change.h"

#include "tessaria/masks.h"
#include "tessaria/text.h"

namespace tessaria {

void MaskChange::Mascara(const String& v) {
  const String before = box_.Stripped();
  // A row that nobody edits is shown again and not written.
  const AssignMode mode = box_.IsTouched() ? AssignMode::Write : AssignMode::Show;
  mask_.Mascara = v;
  ItensMascara(mdlObjTxt::MontaItensMascara(v, mask_.PromptChar));
  box_.AlignByMask();
  if (site_.UserMode()) {
    if (v.empty() && before.empty())
      value_.Assign(Variant::Null(), mode);
    else
      box_.WithoutTouching([&] { box_.Write(box_.LaidOut(box_.Stripped())); });
  }
  site_.PropertyChanged(u"Mascara");
}

void MaskChange::PromptChar(const String& v) {
  mask_.PromptChar = Left(v, 1);
  site_.PropertyChanged(u"PromptChar");
  ItensMascara(mdlObjTxt::MontaItensMascara(mask_.Mascara, mask_.PromptChar));
}

void MaskChange::TipoControle(FieldKind& kind, tessaria::TipoControle v) {
  kind.TipoControle = v;
  if (v == tessaria::TipoControle::Calendario || v == tessaria::TipoControle::Calculadora)
    mask_.PromptInclude = true;
  site_.PropertyChanged(u"TipoControle");
}

void MaskChange::ItensMascara(const String& v) {
  mask_.ItensMascara = v;
  site_.PropertyChanged(u"ItensMascara");
}

}  // namespace tessaria
