// Masks, their literals and slots, and what belongs to a mask.
#include <algorithm>

#include "apps/check/rules.h"
#include "tessaria/error.h"
#include "tessaria/masks.h"
#include "tessaria/text.h"

namespace tessaria::formcheck {
namespace {

constexpr StringView kSlotCharacters = u"0#dmyAaC$XN";

bool IsSlot(char16_t c) { return kSlotCharacters.find(c) != StringView::npos; }
bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }
bool IsLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }
char16_t OtherCase(char16_t c) { return IsLetter(c) ? static_cast<char16_t>(c ^ 0x20) : c; }

/// The literals of a mask, each once.
String LiteralsOf(const String& mask) { return mdlObjTxt::MontaItensMascara(mask, {}); }

std::string SlotMeant(char16_t literal) {
  if (literal == u'9') return "; a digit is '#' or '0'";
  if (literal == u'&' || literal == u'?' || literal == u'L') return "; a letter is 'X', 'A' or 'a'";
  if (IsSlot(OtherCase(literal))) return "; the slot is " + Quoted(String(1, OtherCase(literal)));
  return {};
}

/// One mask of a field or of one of its searches.
class MaskCheck {
 public:
  MaskCheck(String mask, int line, const String& field, Findings& findings)
      : mask_(std::move(mask)), line_(line), field_(field), findings_(findings) {}

  void Check() {
    if (mdlObjTxt::IsNumericMask(mask_)) {
      CheckNumber();
    } else {
      CheckSlots();
      CheckBrackets();
    }
  }

 private:
  void Error(std::string message) {
    findings_.Error(line_, field_, "mask", "mask " + Quoted(mask_) + ": " + std::move(message));
  }
  void Warning(std::string message) {
    findings_.Warning(line_, field_, "mask", "mask " + Quoted(mask_) + ": " + std::move(message));
  }

  void CheckSlots() {
    if (std::none_of(mask_.begin(), mask_.end(), IsSlot)) Error("it has no slot");
    if (mask_.find(u'$') != String::npos) Error("'$' makes a number only as the first character");
    for (const char16_t literal : LiteralsOf(mask_)) {
      const std::string what = Quoted(String(1, literal));
      const std::string meant = SlotMeant(literal);
      if (!meant.empty()) {
        Error(what + " is no slot but a literal" + meant);
      } else if (IsDigit(literal) || IsLetter(literal)) {
        Warning("the literal " + what + " is removed from what is typed, wherever it occurs");
      }
    }
    if (mdlObjTxt::DateFormOf(mask_) == mdlObjTxt::DateForm::EmptyOnly)
      Error("only an empty field passes its date check; a date is 'dd/mm/yyyy'");
  }

  void CheckBrackets() {
    for (const StringView pair : {StringView(u"()"), StringView(u"[]"), StringView(u"{}")}) {
      const auto opened = std::count(mask_.begin(), mask_.end(), pair[0]);
      const auto closed = std::count(mask_.begin(), mask_.end(), pair[1]);
      if (opened != closed) Warning(Quoted(pair) + " are not balanced");
    }
  }

  void CheckNumber() {
    if (mask_.find(u',') != String::npos)
      Error("a numeric mask must not have a ','; the '.' marks the decimals");
    if (std::count(mask_.begin(), mask_.end(), u'.') > 1)
      Error("a numeric mask has one '.', before its decimals");
    if (mask_.find_first_of(u"0#") != String::npos) Error("a numeric mask has no slots but '$'");
    const StringView number = StringView(mask_).substr(0, mask_.find_last_of(u'$') + 1);
    if (number.find_first_not_of(u"$.,0#") != StringView::npos)
      Error("a numeric mask has no text before its last '$'");
    if (mask_.size() > number.size() + 1)
      Warning("the text after a number must be one character; more is shown repeatedly");
  }

  String mask_;
  int line_;
  const String& field_;
  Findings& findings_;
};

/// Whether two item sets are the same; their order has no meaning.
bool HoldSameItems(String a, String b) {
  std::sort(a.begin(), a.end());
  std::sort(b.begin(), b.end());
  return a == b;
}

/// The file holds what follows from the mask too: the control loads both as they are.
void CheckItems(const Field& field, const String& mask, Findings& findings) {
  const String needed = mdlObjTxt::MontaItensMascara(mask, field.PromptChar());
  if (HoldSameItems(field.Text(u"ItensMascara"), needed)) return;
  const std::string line = "ItensMascara=String:" + ToUtf8(needed);
  if (!field.Find(u"ItensMascara")) {
    findings.Error(
        field.LineOf(u"Mascara"), field.Name(), "mask-items",
        "Mascara without ItensMascara takes no literal out of the text; add '" + line + "'");
  } else {
    findings.Error(
        field.LineOf(u"ItensMascara"), field.Name(), "mask-items",
        "ItensMascara does not belong to the mask " + Quoted(mask) + "; it is '" + line + "'");
  }
}

void CheckPromptChar(const Field& field, Findings& findings) {
  const String prompt = field.PromptChar();
  if (prompt.size() > 1)
    findings.Error(field.LineOf(u"PromptChar"), field.Name(), "prompt-char",
                   "PromptChar is one character, not " + Quoted(prompt));
  if (prompt.size() == 1 && (IsDigit(prompt[0]) || IsLetter(prompt[0])))
    findings.Error(field.LineOf(u"PromptChar"), field.Name(), "prompt-char",
                   "PromptChar " + Quoted(prompt) + " is removed from what is typed");
}

/// What else a mask needs to work as it is meant.
void CheckCompanions(const Field& field, const String& mask, Findings& findings) {
  const bool isNumber = mdlObjTxt::IsNumericMask(mask);
  if (isNumber && field.Number(u"MaxLength", 0) == 0)
    findings.Warning(field.LineOf(u"Mascara"), field.Name(), "mask-length",
                     "a numeric mask needs MaxLength, the length of the formatted number; without "
                     "it neither '-' nor the removal of the comma is accepted");
  if (mdlObjTxt::DateFormOf(mask) == mdlObjTxt::DateForm::DayMonthYear &&
      !field.Flag(u"PromptInclude", false))
    findings.Warning(field.LineOf(u"Mascara"), field.Name(), "mask-date",
                     "a date mask needs PromptInclude=Boolean:True, or the value is digits alone");
  if (!isNumber && field.Flag(u"ValorNegativo", false))
    findings.Warning(field.LineOf(u"ValorNegativo"), field.Name(), "mask",
                     "ValorNegativo has no effect: the mask " + Quoted(mask) + " is not numeric");
}

void CheckSearchMasks(const Field& field, Findings& findings) {
  for (Long i = 1; field.pesquisa && i <= field.pesquisa->Count(); ++i) {
    const auto search = field.pesquisa->Item(i);
    const std::string number = std::to_string(i);
    const String prefix = u"Pesquisa.Pesquisa" + FromUtf8(number);
    if (!search->Mascara().empty())
      MaskCheck(search->Mascara(), field.LineOf(prefix + u"Mascara"), field.Name(), findings)
          .Check();
    const bool isDate = search->Tipo() == 7;
    if (isDate && (search->Mascara() != u"dd/mm/yyyy" || !search->PromptInclude()))
      findings.Error(
          field.LineOf(prefix + u"Tipo"), field.Name(), "search",
          "search " + number + " for a date needs the mask 'dd/mm/yyyy' and PromptInclude");
  }
}

}  // namespace

void CheckMasks(const Field& field, Findings& findings) {
  CheckPromptChar(field, findings);
  CheckSearchMasks(field, findings);
  const String mask = field.Text(u"Mascara");
  if (mask.empty()) {
    if (!field.Text(u"ItensMascara").empty())
      findings.Warning(field.LineOf(u"ItensMascara"), field.Name(), "mask-items",
                       "ItensMascara without Mascara has no effect");
    return;
  }
  MaskCheck(mask, field.LineOf(u"Mascara"), field.Name(), findings).Check();
  CheckItems(field, mask, findings);
  CheckCompanions(field, mask, findings);
}

}  // namespace tessaria::formcheck
