#include "tessaria/text.h"

#include <algorithm>

#include "tessaria/error.h"

namespace tessaria {

namespace {

constexpr char16_t kBlank = u' ';

// A count argument, as a size.
std::size_t Size(Long count) {
  if (count < 0) throw HostError(errors::InvalidArgument);
  return static_cast<std::size_t>(count);
}

// A position from 1, as an index from 0.
std::size_t Index(Long start) {
  if (start < 1) throw HostError(errors::InvalidArgument);
  return static_cast<std::size_t>(start) - 1;
}

Long Position(std::size_t index) {
  return index == StringView::npos ? 0 : static_cast<Long>(index) + 1;
}

StringView WithoutLeadingBlanks(StringView text) {
  return text.substr(std::min(text.find_first_not_of(kBlank), text.size()));
}

StringView WithoutTrailingBlanks(StringView text) {
  return text.substr(0, text.find_last_not_of(kBlank) + 1);
}

}  // namespace

Long Len(StringView text) { return static_cast<Long>(text.size()); }

String Left(StringView text, Long count) { return String(text.substr(0, Size(count))); }

String LeftWhole(StringView text, Long count) {
  String left = Left(text, count);
  const bool cut = left.size() < text.size() && IsLowSurrogate(text[left.size()]);
  if (cut && !left.empty() && IsHighSurrogate(left.back())) left.pop_back();
  return left;
}

String Right(StringView text, Long count) {
  return String(text.substr(text.size() - std::min(Size(count), text.size())));
}

String Mid(StringView text, Long start) {
  return String(text.substr(std::min(Index(start), text.size())));
}

String Mid(StringView text, Long start, Long count) {
  const std::size_t size = Size(count);
  return String(text.substr(std::min(Index(start), text.size()), size));
}

Long InStr(StringView text, StringView part) { return InStr(1, text, part); }

Long InStr(Long start, StringView text, StringView part) {
  const std::size_t index = Index(start);
  return index >= text.size() ? 0 : Position(text.find(part, index));
}

Long InStrRev(StringView text, StringView part) {
  if (part.empty()) return Len(text);
  return Position(text.rfind(part));
}

String Trim(StringView text) { return String(WithoutLeadingBlanks(WithoutTrailingBlanks(text))); }

String LTrim(StringView text) { return String(WithoutLeadingBlanks(text)); }

String RTrim(StringView text) { return String(WithoutTrailingBlanks(text)); }

bool StartsWith(StringView text, StringView start) { return text.starts_with(start); }

bool EndsWith(StringView text, StringView end) { return text.ends_with(end); }

String Replace(StringView text, StringView find, StringView replacement) {
  if (find.empty()) return String(text);
  String result;
  std::size_t from = 0;
  for (std::size_t at; (at = text.find(find, from)) != StringView::npos; from = at + find.size()) {
    result.append(text.substr(from, at - from)).append(replacement);
  }
  return result.append(text.substr(from));
}

String Space(Long count) { return String(Size(count), kBlank); }

String StringOf(Long count, StringView text) {
  if (text.empty()) throw HostError(errors::InvalidArgument);
  return String(Size(count), text.front());
}

}  // namespace tessaria
