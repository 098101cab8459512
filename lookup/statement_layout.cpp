#include "lookup/statement_layout.h"

#include <array>

#include "tessaria/conversion.h"
#include "tessaria/text.h"

namespace tessaria::mdlObjTxt {
namespace {

constexpr StringView kLineBreak = u"\r\n";
constexpr StringView kIndentedLine = u"\r\n      ";

struct Keyword {
  StringView Word;
  StringView LaidOut;
};

constexpr std::array kKeywords{
    Keyword{u"Select", u"SELECT\r\n      "},
    Keyword{u"From", u"\r\nFROM\r\n      "},
    Keyword{u"Left Join", u"\r\n      Left Join "},
};

struct TypeQuotes {
  StringView Type;
  StringView Open;
  StringView Close;
};

// The date is written the same way in every dialect.
constexpr std::array kTypeQuotes{
    TypeQuotes{u"String", u"'", u"'"},
    TypeQuotes{u"Data", u"cDate('", u"')"},
};

TypeQuotes QuotesFor(const String& type) {
  for (const TypeQuotes& quotes : kTypeQuotes) {
    if (quotes.Type == type) return quotes;
  }
  return {};
}

/// The first character from `position` on that is not a blank; "" at the end.
StringView NonBlankAfter(StringView sql, std::size_t position) {
  const auto found = sql.find_first_not_of(u' ', position);
  return found == StringView::npos ? StringView() : sql.substr(found, 1);
}

/// The last character before `position` that is not a blank; "" at the start.
StringView NonBlankBefore(StringView sql, std::size_t position) {
  const auto found = sql.substr(0, position).find_last_not_of(u' ');
  return found == StringView::npos ? StringView() : sql.substr(found, 1);
}

/// A comma does not break the line between two quoted texts and before a digit from 1 to 9.
bool CommaBreaks(StringView sql, std::size_t position) {
  const StringView next = NonBlankAfter(sql, position + 1);
  const bool betweenTexts = next == u"'" && NonBlankBefore(sql, position) == u"'";
  return !betweenTexts && Val(next) == 0;
}

String LayOutStatement(StringView sql) {
  String laidOut;
  // The character after a keyword is dropped: it is the blank that follows it.
  for (std::size_t i = 0; i < sql.size(); ++i) {
    const Keyword* found = nullptr;
    for (const Keyword& keyword : kKeywords) {
      if (StartsWith(sql.substr(i), keyword.Word)) found = &keyword;
    }
    if (found) {
      laidOut += found->LaidOut;
      i += found->Word.size();
    } else {
      laidOut += sql[i];
    }
    // A dropped comma breaks the line too.
    if (i < sql.size() && sql[i] == u',' && CommaBreaks(sql, i)) laidOut += kIndentedLine;
  }
  return laidOut;
}

String LayOutTerms(const ListRows& rows) {
  String terms;
  for (const ListRow& row : rows) {
    const String term = SearchTerm(row);
    if (term.empty()) continue;
    if (!terms.empty()) terms.append(u" and ").append(kIndentedLine);
    terms += term;
  }
  return terms;
}

}  // namespace

String SearchTerm(const ListRow& row) {
  if (row.SubItems.size() != 3) return {};
  const TypeQuotes quotes = QuotesFor(row.SubItems[2]);
  String term = Trim(row.Text) + Trim(row.SubItems[0]);
  term.append(quotes.Open).append(u"@").append(Trim(row.SubItems[1])).append(u"@");
  return term.append(quotes.Close);
}

String MontaSqlPronta(const String& strSql, const ListRows* lstWhere, const ListRows* lstOrderBy) {
  String laidOut = LayOutStatement(Replace(strSql, u"Where 1 = Null", u""));
  if (lstWhere && !lstWhere->empty()) {
    laidOut.append(kLineBreak).append(u"WHERE");
    const String terms = LayOutTerms(*lstWhere);
    if (!terms.empty()) laidOut.append(kIndentedLine).append(terms);
  }
  if (lstOrderBy && !lstOrderBy->empty()) {
    laidOut.append(kLineBreak).append(u"ORDER BY");
    StringView separator;
    for (const ListRow& row : *lstOrderBy) {
      laidOut.append(separator).append(kIndentedLine).append(Trim(row.Text));
      separator = u",";
    }
  }
  return laidOut;
}

}  // namespace tessaria::mdlObjTxt
