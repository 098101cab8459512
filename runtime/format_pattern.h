// Patterns of `Format`, and the routines that apply them.
#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "runtime/digits.h"
#include "tessaria/variant.h"

namespace tessaria {

/// One character of a pattern. It is literal when the pattern has it in quotes or after a "\".
struct PatternItem {
  char16_t Character;
  bool Literal;

  bool Is(char16_t c) const { return !Literal && Character == c; }
  bool IsOneOf(StringView characters) const {
    return !Literal && characters.find(Character) != StringView::npos;
  }
};

using Pattern = std::vector<PatternItem>;

Pattern ReadPattern(StringView text);
/// The number of items from `start` on that repeat the letter at `start`, in either case; at most
/// `longest`.
std::size_t RunLength(const Pattern& pattern, std::size_t start, std::size_t longest);
/// True when the pattern has the unquoted text at `start`, exactly as spelled.
bool StandsAt(const Pattern& pattern, std::size_t start, StringView text);
/// The letter of an item in lower case; 0 for a literal.
char16_t SmallLetter(const PatternItem& item);
/// A part of a pattern, which must outlive it.
using PatternPart = std::span<const PatternItem>;
/// The sections between the semicolons; at least one.
std::vector<PatternPart> Sections(const Pattern& pattern);

/// The length of the token for a whole time, "ttttt".
inline constexpr std::size_t kWholeTime = 5;

enum class PatternKind { Number, Date, Text };
/// The kind of the first character that has a meaning; Number when there is none.
PatternKind KindOf(const Pattern& pattern);

/// The pattern that a name such as "Standard" or "Short Date" stands for; the text itself when it
/// is not such a name.
StringView ExpandName(StringView text);

String FormatDate(Date value, const Pattern& pattern);
String FormatText(StringView text, const Pattern& pattern);

}  // namespace tessaria
