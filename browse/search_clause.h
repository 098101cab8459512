// The SQL condition of one answered search.
#pragma once

#include "tessaria/export.h"
#include "tessaria/string.h"

namespace tessaria::mdlObjTxt {

/// Kinds of a search's value: `ItemPesquisa::Tipo`.
namespace search_kind {
inline constexpr Long Number = 2;
inline constexpr Long Date = 7;
inline constexpr Long Text = 8;
}  // namespace search_kind

/// Comparisons of a search: `ItemPesquisa::Like`. Those with wildcards mean equal when the value is
/// not a text.
namespace search_comparison {
inline constexpr Long Equal = 0;
inline constexpr Long StartsWith = 1;
inline constexpr Long EndsWith = 2;
inline constexpr Long Contains = 3;
inline constexpr Long Greater = 4;
inline constexpr Long GreaterOrEqual = 5;
inline constexpr Long Less = 6;
inline constexpr Long LessOrEqual = 7;
}  // namespace search_comparison

/// The field qualified with its table: the table's name is put before it, or after the first "(" of
/// an expression. A field that contains a "." is not changed.
TESSARIA_HOST_API String QualifyField(const String& field, const String& table);

/// The condition on a field of a select list, whose alias is removed. A text (`kind` 8) is passed
/// as typed, any other value as an SQL literal. The result is "" for a text with an unknown `like`;
/// for another kind an unknown code means equal. The LIKE keyword is that of the thread's
/// connection; error 91 without one. A text raises the errors of `QuotedText`.
String SearchCondition(const String& selected, Long kind, Long like, const String& value);

}  // namespace tessaria::mdlObjTxt
