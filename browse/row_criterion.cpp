#include "browse/row_criterion.h"

#include "lookup/literals.h"
#include "runtime/digits.h"
#include "runtime/field_names.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {
namespace {

/// Whether the usual text of a binary number identifies exactly that number.
bool IsExact(const Variant& value, const String& text) {
  if (const auto* single = value.TryGet<float>()) return static_cast<float>(CDbl(text)) == *single;
  const auto* number = value.TryGet<double>();
  return number == nullptr || CDbl(text) == *number;
}

String ExactText(const Variant& value) {
  String text = CStr(value);
  return IsExact(value, text) ? text : PlainText(ShortestDigits(CDbl(value)), u',');
}

}  // namespace

String StartCriterion(const String& name, StringView text) {
  return FieldNameText(name) + u" like '" + DoubleApostrophes(text) + u"%'";
}

void FindStart(host::Recordset& rows, StringView text) {
  const auto field = [&] { return rows.Fields().Item(0); };
  const String criterion = StartCriterion(field()->Name(), text);
  rows.Find(criterion);
  if (text.find_first_of(u"*%") != 0) return;
  const String start = LCase(text);
  while (!rows.Eof() && !StartsWith(LCase(CStr(field()->Value())), start)) {
    rows.MoveNext();
    if (!rows.Eof()) rows.Find(criterion);
  }
}

String EqualityCriterion(const String& name, const Variant& value) {
  return FieldNameText(name) + u" = " + ExactText(value);
}

}  // namespace tessaria::mdlObjTxt
