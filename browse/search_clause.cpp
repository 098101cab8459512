#include "browse/search_clause.h"

#include "lookup/dialect.h"
#include "lookup/literals.h"
#include "lookup/query_text.h"
#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {
namespace {

/// The operator of an order comparison, with blanks around it; "" for any other code.
StringView OrderOperator(Long like) {
  switch (like) {
    case search_comparison::Greater:
      return u" > ";
    case search_comparison::GreaterOrEqual:
      return u" >= ";
    case search_comparison::Less:
      return u" < ";
    case search_comparison::LessOrEqual:
      return u" <= ";
    default:
      return {};
  }
}

String TextCondition(const String& field, Long like, const String& value) {
  const auto withLike = [&](StringView before, StringView after) {
    return field + u" " + mdlComum::TraduzSQL(sql_fragment::Like) + String(before) +
           PatternContent(value) + String(after);
  };
  switch (like) {
    case search_comparison::Equal:
      return field + u" = " + QuotedText(value);
    case search_comparison::StartsWith:
      return withLike(u" '", u"%'");
    case search_comparison::EndsWith:
      return withLike(u" '%", u"'");
    case search_comparison::Contains:
      return withLike(u" '%", u"%'");
    default:
      break;
  }
  const StringView comparison = OrderOperator(like);
  if (comparison.empty()) return {};
  // An apostrophe counts twice in the length.
  const Long length = Len(DoubleApostrophes(value));
  return u"Left(" + field + u", " + CStr(Variant(length)) + u")" + String(comparison) +
         QuotedText(value);
}

}  // namespace

String QualifyField(const String& field, const String& table) {
  if (InStr(field, u".") != 0) return field;
  const Long parenthesis = InStr(field, u"(");
  return Left(field, parenthesis) + table + u"." + Mid(field, parenthesis + 1);
}

String SearchCondition(const String& selected, Long kind, Long like, const String& value) {
  const String field = TiraAlias(selected);
  if (kind == search_kind::Text) return TextCondition(field, like, value);
  const StringView comparison = OrderOperator(like);
  return field + String(comparison.empty() ? u" = " : comparison) + value;
}

}  // namespace tessaria::mdlObjTxt
