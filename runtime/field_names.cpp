#include "runtime/field_names.h"

#include <algorithm>

#include "tessaria/text.h"

namespace tessaria {

namespace {

constexpr char16_t kOpen = u'[';
constexpr char16_t kClose = u']';
constexpr StringView kEndsPlainName = u" =<>";

/// Takes a name in brackets from the start of `text`.
std::optional<String> TakeBracketed(StringView& text) {
  String name;
  for (std::size_t at = 1; at < text.size(); ++at) {
    if (text[at] != kClose) {
      name += text[at];
    } else if (at + 1 < text.size() && text[at + 1] == kClose) {
      name += text[at++];
    } else {
      text.remove_prefix(at + 1);
      return name;
    }
  }
  return std::nullopt;
}

bool CutDirection(String& name, StringView direction) {
  if (!EqualNoCase(Right(name, Len(direction)), direction)) return false;
  name.resize(name.size() - direction.size());
  return true;
}

/// Takes one field of an order and the comma after it. Nothing when it cannot be read.
std::optional<OrderedField> TakeOrdered(StringView& order) {
  order.remove_prefix(std::min(order.find_first_not_of(u' '), order.size()));
  const bool isBracketed = !order.empty() && order.front() == kOpen;
  std::optional<String> name = isBracketed ? TakeBracketed(order) : String();
  if (!name) return std::nullopt;
  const std::size_t comma = std::min(order.find(u','), order.size());
  // With a blank before it, because a direction may directly follow a bracket.
  String rest = (isBracketed ? u" " : u"") + Trim(order.substr(0, comma));
  order.remove_prefix(std::min(comma + 1, order.size()));
  const bool descending = CutDirection(rest, u" desc");
  if (!descending) CutDirection(rest, u" asc");
  rest = Trim(rest);
  if (isBracketed != rest.empty()) return std::nullopt;
  return OrderedField{isBracketed ? *name : rest, descending};
}

}  // namespace

String FieldNameText(const String& name) {
  const bool isPlain =
      !name.empty() && name.front() != kOpen && name.find_first_of(u" =<>,") == String::npos;
  return isPlain ? name : kOpen + Replace(name, u"]", u"]]") + kClose;
}

std::optional<String> TakeFieldName(StringView& text) {
  if (!text.empty() && text.front() == kOpen) return TakeBracketed(text);
  const std::size_t end = std::min(text.find_first_of(kEndsPlainName), text.size());
  if (end == 0) return std::nullopt;
  const String name(text.substr(0, end));
  text.remove_prefix(end);
  return name;
}

std::optional<std::vector<OrderedField>> ReadOrder(StringView order) {
  std::vector<OrderedField> fields;
  while (!Trim(order).empty()) {
    const auto field = TakeOrdered(order);
    if (!field) return std::nullopt;
    fields.push_back(*field);
  }
  return fields;
}

}  // namespace tessaria
