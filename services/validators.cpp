#include "tessaria/validators.h"

#include <algorithm>

#include "tessaria/text.h"

namespace tessaria {
namespace {

constexpr std::size_t kCpfLength = 11;
constexpr std::size_t kCnpjLength = 14;
constexpr std::size_t kCheckDigits = 2;
constexpr int kGreatestCpfWeight = 11;
constexpr int kGreatestCnpjWeight = 9;

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool IsDigitOrLetter(char16_t c) { return IsDigit(c) || (c >= u'A' && c <= u'Z'); }

String WithoutLiterals(StringView text, StringView literals) {
  String rest = UCase(String(text));
  std::erase_if(rest, [&](char16_t c) { return literals.find(c) != StringView::npos; });
  return rest;
}

/// Weights run from 2 up to the greatest, from the right, and begin again. A letter is worth its
/// distance from "0" in the table of characters, as a digit is.
char16_t CheckDigit(StringView text, int greatestWeight) {
  int sum = 0;
  int weight = 2;
  for (auto c = text.rbegin(); c != text.rend(); ++c) {
    sum += (*c - u'0') * weight;
    weight = weight == greatestWeight ? 2 : weight + 1;
  }
  const int rest = sum % 11;
  return static_cast<char16_t>(u'0' + (rest < 2 ? 0 : 11 - rest));
}

bool HasItsCheckDigits(const String& text, int greatestWeight) {
  String expected = text.substr(0, text.size() - kCheckDigits);
  for (std::size_t i = 0; i < kCheckDigits; ++i) expected += CheckDigit(expected, greatestWeight);
  return expected == text;
}

bool IsOneCharacterRepeated(const String& text) {
  return std::ranges::all_of(text, [&](char16_t c) { return c == text.front(); });
}

Validator Refusing(bool (*isRight)(StringView)) {
  return [isRight](const String& text) {
    return isRight(text) ? String() : String(u"não confere, Verifique Por Favor");
  };
}

}  // namespace

bool IsCpf(StringView text) {
  const String cpf = WithoutLiterals(text, u".- ");
  return cpf.size() == kCpfLength && std::ranges::all_of(cpf, IsDigit) &&
         !IsOneCharacterRepeated(cpf) && HasItsCheckDigits(cpf, kGreatestCpfWeight);
}

bool IsCnpj(StringView text) {
  const String cnpj = WithoutLiterals(text, u"./- ");
  return cnpj.size() == kCnpjLength && std::ranges::all_of(cnpj, IsDigitOrLetter) &&
         !IsOneCharacterRepeated(cnpj) && HasItsCheckDigits(cnpj, kGreatestCnpjWeight);
}

Validator CpfValidator() { return Refusing(IsCpf); }
Validator CnpjValidator() { return Refusing(IsCnpj); }

Validator CpfOrCnpjValidator() {
  return Refusing([](StringView text) { return IsCpf(text) || IsCnpj(text); });
}

}  // namespace tessaria
