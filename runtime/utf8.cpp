#include "tessaria/utf8.h"

#include <algorithm>

namespace tessaria {

namespace {

constexpr char32_t kReplacement = 0xFFFD;

void AppendUtf8(std::string& out, char32_t c) {
  const auto tail = [&](int shift) {
    out.push_back(static_cast<char>(0x80 | ((c >> shift) & 0x3F)));
  };
  if (c < 0x80) {
    out.push_back(static_cast<char>(c));
  } else if (c < 0x800) {
    out.push_back(static_cast<char>(0xC0 | (c >> 6)));
    tail(0);
  } else if (c < 0x10000) {
    out.push_back(static_cast<char>(0xE0 | (c >> 12)));
    tail(6);
    tail(0);
  } else {
    out.push_back(static_cast<char>(0xF0 | (c >> 18)));
    tail(12);
    tail(6);
    tail(0);
  }
}

void AppendUtf16(String& out, char32_t c) {
  if (c < 0x10000) {
    out.push_back(static_cast<char16_t>(c));
  } else {
    out.push_back(static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10)));
    out.push_back(static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF)));
  }
}

// What a lead byte announces: the total number of bytes and the least character that needs them.
struct Lead {
  std::size_t Size;
  char32_t Bits, Least;
};

Lead ReadLead(unsigned char byte) {
  if (byte < 0x80) return {1, byte, 0};
  if (byte >= 0xC2 && byte <= 0xDF) return {2, byte & 0x1Fu, 0x80};
  if (byte >= 0xE0 && byte <= 0xEF) return {3, byte & 0x0Fu, 0x800};
  if (byte >= 0xF0 && byte <= 0xF4) return {4, byte & 0x07u, 0x10000};
  return {0, 0, 0};
}

bool IsCharacter(char32_t c, const Lead& lead) {
  return c >= lead.Least && c <= 0x10FFFF && !IsHighSurrogate(c) && !IsLowSurrogate(c);
}

constexpr auto kIsAscii = [](auto unit) { return unit >= 0 && unit < 0x80; };

// The number of units before the next one that is not ASCII.
template <class View>
std::size_t AsciiRun(View text) {
  const auto end = std::find_if_not(text.begin(), text.end(), kIsAscii);
  return static_cast<std::size_t>(end - text.begin());
}

// Takes one character off the front, or only the first byte of an invalid sequence.
char32_t TakeCharacter(std::string_view& bytes) {
  const Lead lead = ReadLead(static_cast<unsigned char>(bytes.front()));
  char32_t c = lead.Bits;
  bool valid = lead.Size > 0 && lead.Size <= bytes.size();
  for (std::size_t i = 1; valid && i < lead.Size; ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    valid = (byte & 0xC0) == 0x80;
    c = (c << 6) | (byte & 0x3Fu);
  }
  valid = valid && IsCharacter(c, lead);
  bytes.remove_prefix(valid ? lead.Size : 1);
  return valid ? c : kReplacement;
}

}  // namespace

std::string ToUtf8(StringView text) {
  const std::size_t plain = AsciiRun(text);
  std::string result(plain, '\0');
  std::transform(text.begin(), text.begin() + std::ptrdiff_t(plain), result.begin(),
                 [](char16_t unit) { return static_cast<char>(unit); });
  if (plain == text.size()) return result;
  result.reserve(text.size());
  for (std::size_t i = plain; i < text.size(); ++i) {
    char32_t c = text[i];
    if (IsHighSurrogate(c) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00u);
    } else if (IsHighSurrogate(c) || IsLowSurrogate(c)) {
      c = kReplacement;
    }
    AppendUtf8(result, c);
  }
  return result;
}

String FromUtf8(std::string_view bytes) {
  const std::size_t plain = AsciiRun(bytes);
  String result(bytes.begin(), bytes.begin() + std::ptrdiff_t(plain));
  if (plain == bytes.size()) return result;
  result.reserve(bytes.size());
  bytes.remove_prefix(plain);
  while (!bytes.empty()) AppendUtf16(result, TakeCharacter(bytes));
  return result;
}

}  // namespace tessaria
