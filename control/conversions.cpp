#include "control/conversions.h"

#include "control/exact_number.h"
#include "control/same_value.h"
#include "tessaria/conversion.h"
#include "tessaria/masks.h"
#include "tessaria/text.h"

namespace tessaria {

namespace {

const Variant kZero{Integer{0}};

/// Whether a text holds only what its mask puts there.
bool IsBlankInMask(const String& text, const MaskSettings& mask) {
  return Trim(mdlObjTxt::LimpaMascara(text, mask.Mascara, mask.ItensMascara)).empty();
}

Variant ConvertNumber(const Variant& v, const Variant& blank, const MaskSettings& mask) {
  if (IsBlank(v)) return mdlObjTxt::IsNumericMask(mask.Mascara) ? kZero : blank;
  return ExactNumber(v);
}

Variant ConvertUnboundDate(const Variant& v, const MaskSettings& mask) {
  if (v.IsNull() || IsBlankInMask(CStr(v), mask)) return Variant::Null();
  return CDate(v);
}

Variant ConvertBoundDate(const Variant& v, const Variant& blank, const MaskSettings& mask) {
  if (v.IsNull()) return blank;
  const String text = CStr(v);
  if (IsBlankInMask(text, mask)) return blank;
  return CDate(mdlObjTxt::LimpaMascara(text, mask.Mascara, mask.PromptChar));
}

}  // namespace

Variant ConvertUnbound(const Variant& v, Long TipoDado, const MaskSettings& mask) {
  if (IsUnboundNumber(TipoDado)) return ConvertNumber(v, Variant::Null(), mask);
  if (TipoDado == kUnboundDate) return ConvertUnboundDate(v, mask);
  return IsBlank(v) ? Variant::Null() : v;
}

Variant ConvertBound(const Variant& v, FieldFamily family, bool acceptsNull,
                     const MaskSettings& mask) {
  const Variant blank = acceptsNull ? Variant::Null() : Variant();
  switch (family) {
    case FieldFamily::Text:
      return IsBlank(v) ? blank : CStr(v);
    case FieldFamily::Number:
      return ConvertNumber(v, acceptsNull ? Variant::Null() : kZero, mask);
    case FieldFamily::Date:
      return ConvertBoundDate(v, blank, mask);
    case FieldFamily::Other:
      break;
  }
  return v;
}

}  // namespace tessaria
