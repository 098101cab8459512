#include "browse/search_number.h"

#include "browse/search_clause.h"
#include "lookup/literals.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {

bool IsNumberSearch(Long kind) { return kind != search_kind::Date && kind != search_kind::Text; }

String AmountNumber(const String& text) { return Replace(Replace(text, u".", u""), u",", u"."); }

std::optional<String> SearchNumber(const Variant& value, const String& mask) {
  const String text = Trim(SqlText(value));
  const bool isAmount = value.IsString() && StartsWith(mask, u"$");
  String number = isAmount ? AmountNumber(text) : Replace(text, u",", u".");
  if (!IsSqlNumber(number)) return std::nullopt;
  return number;
}

bool IsTypedNumber(const String& text, Long kind, const String& mask) {
  // A number field reads its text by itself, including points for thousands.
  if (kind == search_kind::Number) return IsNumeric(text);
  return SearchNumber(text, mask).has_value();
}

}  // namespace tessaria::mdlObjTxt
