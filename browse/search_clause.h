// The SQL condition that one answered search stands for.
#pragma once

#include "tessaria/string.h"

namespace tessaria::mdlObjTxt {

/// Kinds of a search's value: `ItemPesquisa::Tipo`.
namespace search_kind {
inline constexpr Long Number = 2;
inline constexpr Long Date = 7;
inline constexpr Long Text = 8;
}  // namespace search_kind

/// Comparisons of a search: `ItemPesquisa::Like`. The wildcard ones mean equal where the value
/// is no text.
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

/// The field under its table's name: in front, or behind the first "(" of an expression. A field
/// that has a "." is left as it is.
String QualifyField(const String& field, const String& table);

/// The condition on a field, whose alias is taken off. A text (`kind` 8) comes as it was typed,
/// any other value as it stands in SQL. "" for a text with an unknown `like`; with another kind
/// an unknown code means equal. The LIKE keyword is the one of the thread's connection; error 91
/// with none. A text is refused as `QuotedText` refuses it.
String SearchCondition(const String& selected, Long kind, Long like, const String& value);

}  // namespace tessaria::mdlObjTxt
