// The parts of `Format`.
#pragma once

#include <cstddef>
#include <vector>

#include "runtime/digits.h"
#include "tessaria/variant.h"

namespace tessaria {

/// One character of a pattern: a literal one stood in quotes or behind a "\".
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
/// How many items from `start` on are the letter that stands there, in either case; at most
/// `longest`.
std::size_t RunLength(const Pattern& pattern, std::size_t start, std::size_t longest);
/// True when the unquoted text stands at `start`, exactly as spelled.
bool StandsAt(const Pattern& pattern, std::size_t start, StringView text);
/// The letter of an item in lower case; 0 for a literal.
char16_t SmallLetter(const PatternItem& item);
/// The sections between the semicolons; at least one.
std::vector<Pattern> Sections(const Pattern& pattern);

/// The length of the token for a whole time, "ttttt".
inline constexpr std::size_t kWholeTime = 5;

enum class PatternKind { Number, Date, Text };
/// What the first character that means something is for. Number when none does.
PatternKind KindOf(const Pattern& pattern);

/// The pattern that a name such as "Standard" or "Short Date" stands for; the text itself when
/// it is no such name.
StringView ExpandName(StringView text);

String FormatNumber(const Digits& value, const Pattern& pattern);
String FormatDate(Date value, const Pattern& pattern);
String FormatText(StringView text, const Pattern& pattern);

}  // namespace tessaria
