#include "lookup/dialect.h"

#include <array>

#include "lookup/literals.h"
#include "lookup/sql_family.h"
#include "tessaria/format.h"
#include "tessaria/text.h"

namespace tessaria {
namespace {

constexpr Long kAnyKind = -1;

/// One fragment in the three families. A cell is a template: {name} stands for an argument,
/// {name:pattern} for the argument as a date of that pattern.
struct Fragment {
  Long Code;
  Long IntegerKind;  ///< kAnyKind when the code has no kinds
  StringView Access;
  StringView SqlServer;
  StringView PostgreSQL;
};

constexpr StringView kCase = u"Case When {strCondicao} Then {strEntao} Else {strSenao} End";

// The first row of a code and kind counts. The "&" of SQL Server is deliberate.
constexpr std::array kFragments{
    Fragment{sql_fragment::Substring, kAnyKind, u"Mid", u"Substring", u"Substring"},
    Fragment{sql_fragment::Conditional, kAnyKind, u"IIf({strCondicao}, {strEntao}, {strSenao})",
             kCase, kCase},
    Fragment{sql_fragment::Date, kAnyKind, u"Cdate('{strData}')", u"'{strData:mm/dd/yyyy}'",
             u"'{strData:yyyy-mm-dd}'::date"},
    Fragment{sql_fragment::IntegerCast, 0, u"Cint({strExpressao})", u"Convert(int, {strExpressao})",
             u"{strExpressao}::integer"},
    Fragment{sql_fragment::IntegerCast, 1, u"Cint({strExpressao})",
             u"Convert(SmallInt, {strExpressao})", u"{strExpressao}::int2"},
    Fragment{sql_fragment::IntegerCast, kAnyKind, u"Cint({strExpressao})", u"", u""},
    Fragment{sql_fragment::Trim, kAnyKind, u"Trim", u"RTrim", u"Trim"},
    Fragment{sql_fragment::Concatenate, kAnyKind, u"&", u"&", u"||"},
    Fragment{sql_fragment::Like, kAnyKind, u"Like", u"Like", u"ilike"},
};

StringView CellOf(const Fragment& row, SqlFamily family) {
  switch (family) {
    case SqlFamily::Access:
      return row.Access;
    case SqlFamily::SqlServer:
      return row.SqlServer;
    case SqlFamily::PostgreSQL:
      return row.PostgreSQL;
    case SqlFamily::Unknown:
      break;
  }
  return {};
}

StringView TemplateOf(Long code, Long integerKind, SqlFamily family) {
  for (const Fragment& row : kFragments) {
    const bool sameInteger = row.IntegerKind == kAnyKind || row.IntegerKind == integerKind;
    if (row.Code == code && sameInteger) return CellOf(row, family);
  }
  return {};
}

/// The argument that is between apostrophes in every template.
constexpr StringView kQuotedArgument = u"strData";

struct Argument {
  StringView Name;
  const String& Value;
};

template <std::size_t N>
String ValueOfMark(StringView mark, const std::array<Argument, N>& arguments) {
  const auto colon = mark.find(u':');
  const StringView name = mark.substr(0, colon);
  for (const Argument& argument : arguments) {
    if (argument.Name != name) continue;
    const bool formatted = colon != StringView::npos;
    const String value =
        formatted ? Format(Variant(argument.Value), mark.substr(colon + 1)) : argument.Value;
    return name == kQuotedArgument ? TextContent(value) : value;
  }
  return {};
}

/// Searches for marks in the template only, never in the arguments.
template <std::size_t N>
String FillTemplate(StringView pattern, const std::array<Argument, N>& arguments) {
  String text;
  for (;;) {
    const auto open = pattern.find(u'{');
    text += pattern.substr(0, open);
    if (open == StringView::npos) return text;
    const auto close = pattern.find(u'}', open);
    text += ValueOfMark(pattern.substr(open + 1, close - open - 1), arguments);
    pattern.remove_prefix(close + 1);
  }
}

}  // namespace

RowLimit LimitToOneRow(bool postgres) {
  return postgres ? RowLimit{u"Select ", u" Limit 1"} : RowLimit{u"Select Top 1 ", u""};
}

String Concatenation(const host::Connection& connection) {
  const SqlFamily family = FamilyOfDialect(DialectName(connection));
  return String(TemplateOf(sql_fragment::Concatenate, kAnyKind, family));
}

String mdlComum::TraduzSQL(Long intTipo, const String& strCondicao, const String& strEntao,
                           const String& strSenao, const String& strAlias, const String& strData,
                           Long intTipoInteiro, const String& strExpressao) {
  const SqlFamily family = FamilyOfDialect(DialectName(*CurrentConnection()));
  const std::array arguments{
      Argument{u"strCondicao", strCondicao},   Argument{u"strEntao", strEntao},
      Argument{u"strSenao", strSenao},         Argument{u"strData", strData},
      Argument{u"strExpressao", strExpressao},
  };
  String text = FillTemplate(TemplateOf(intTipo, intTipoInteiro, family), arguments);
  const bool withAlias = intTipo == sql_fragment::Conditional && !strAlias.empty();
  if (withAlias && family != SqlFamily::Unknown) text += u" as " + strAlias;
  return text;
}

String mdlObjTxt::sqlFuncao(const String& strDbms, const String& strFuncao) {
  const String dialect = UCase(strDbms);
  if (dialect == u"MS JET") return {};  // known only to TraduzSQL
  const SqlFamily family = FamilyOfDialect(dialect);
  if (EqualNoCase(strFuncao, u"sqlSubstring")) {
    return String(TemplateOf(sql_fragment::Substring, kAnyKind, family));
  }
  if (EqualNoCase(strFuncao, u"sqlConcat")) {
    return String(TemplateOf(sql_fragment::Concatenate, kAnyKind, family));
  }
  return {};
}

}  // namespace tessaria
