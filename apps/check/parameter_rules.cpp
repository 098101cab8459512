// `@name@` parameters, and what is not closed in the texts of a lookup.
#include <algorithm>

#include "apps/check/near_name.h"
#include "apps/check/rules.h"
#include "apps/check/where_parameters.h"
#include "tessaria/masks.h"
#include "tessaria/text.h"

namespace tessaria::formcheck {
namespace {

/// Classes of Qt whose widgets have no Value.
constexpr StringView kWithoutValue[] = {u"QLabel",    u"QLineEdit",      u"QComboBox",
                                        u"QTextEdit", u"QPlainTextEdit", u"QDateEdit"};

/// Whether a field's value can be something else than a number. What a column holds is not known
/// here.
bool MayHoldText(const Field& field) {
  const String mask = field.Text(u"Mascara");
  const Long type = field.Number(u"TipoDado", 1);
  if (field.Kind() == TipoControle::Descricao || field.Kind() == TipoControle::Calendario)
    return true;
  if (mdlObjTxt::IsNumericMask(mask) || field.Kind() == TipoControle::Calculadora) return false;
  if (mdlObjTxt::IsDateMask(mask)) return true;
  if (mask.find_first_of(u"AaCX") != String::npos) return true;
  const bool hasLiterals = mask.find_first_not_of(u"0#N") != String::npos;
  if (!mask.empty()) return hasLiterals && field.Flag(u"PromptInclude", false);
  if (!field.Text(u"DataSource").empty()) return false;
  return type != 2 && type != 4 && type != 5;
}

/// The condition of one field.
class WhereCheck {
 public:
  WhereCheck(const CheckedForm& form, const Field& field, Findings& findings)
      : form_(form), field_(field), findings_(findings), line_(field.LookupLine(u"BrwWhere")) {}

  void Check() {
    const String where = field_.Lookup(u"BrwWhere");
    for (const WhereParameter& parameter : ParametersOf(where)) CheckParameter(parameter);
    if (EqualNoCase(Trim(where).substr(0, 6), u"where "))
      Error("where", "BrwWhere is the condition without the word Where");
  }

 private:
  void Error(const char* rule, std::string message) {
    findings_.Error(line_, field_.Name(), rule, std::move(message));
  }

  void CheckParameter(const WhereParameter& parameter) {
    const std::string name = "'@" + ToUtf8(parameter.name) + "@'";
    if (!parameter.isClosed)
      return Error("parameter",
                   "the parameter '@" + ToUtf8(parameter.name) + "' has no second '@'");
    const FormWidget* const widget = form_.file.Named(parameter.name);
    if (!widget)
      return Error("parameter",
                   "the parameter " + name + " has no control on this form" +
                       DidYouMean(parameter.name, form_.file.NamesBeside(*field_.widget)));
    if (parameter.context == SqlContext::Closed)
      return Error("parameter", "the parameter " + name + " stands where none is accepted");
    for (const StringView className : kWithoutValue)
      if (form_.file.IsA(*widget, className))
        return Error("parameter", "the parameter " + name + " is a " + ToUtf8(className) +
                                      ", which has no Value");
    const Field* const source = form_.FieldNamed(parameter.name);
    if (source && parameter.context == SqlContext::Code && MayHoldText(*source))
      Error("parameter-quotes",
            "the parameter " + name + " can be a text: write it between apostrophes");
  }

  const CheckedForm& form_;
  const Field& field_;
  Findings& findings_;
  int line_;
};

/// Apostrophes, quotation marks and comments that reach the end of the text.
bool IsClosedText(const String& text) {
  return ContextBehind(text, kConditionRules) == SqlContext::Code;
}

/// Parentheses outside texts: 0 when they are balanced.
bool AreBalanced(const String& text) {
  SqlScanner scanner(text, kConditionRules);
  int depth = 0;
  for (SqlToken token = scanner.Next(); token.length > 0 && depth >= 0; token = scanner.Next()) {
    if (!token.Is(SqlToken::Kind::Symbol)) continue;
    if (scanner.TextOf(token) == u"(") ++depth;
    if (scanner.TextOf(token) == u")") --depth;
  }
  return depth == 0;
}

}  // namespace

void CheckParameters(const CheckedForm& form, const Field& field, Findings& findings) {
  WhereCheck(form, field, findings).Check();
  for (const StringView key : kLookupTexts) {
    if (key == u"BrwTitulo") continue;
    const String text = WithSampleValues(field.Lookup(key));
    const int line = field.LookupLine(key);
    if (!IsClosedText(text)) {
      findings.Error(line, field.Name(), "unbalanced",
                     "a quotation or comment in " + ToUtf8(key) + " is not closed");
    } else if (!AreBalanced(text)) {
      findings.Error(line, field.Name(), "unbalanced",
                     "the parentheses in " + ToUtf8(key) + " are not balanced");
    }
  }
}

}  // namespace tessaria::formcheck
