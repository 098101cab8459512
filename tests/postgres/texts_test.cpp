// Parameters of statements, and cells that arrive as texts.
#include <gtest/gtest.h>

#include "hosts/postgres/numbered_text.h"
#include "hosts/postgres/pg_types.h"
#include "hosts/postgres/text_cells.h"
#include "hosts/sql/values/cell.h"
#include "tests/support/printers.h"

namespace tessaria::postgres {
namespace {

using sql::Storage;

struct NumberedCase {
  StringView text;
  const char* numbered;
  bool backslashes = false;
};

constexpr NumberedCase kNumbered[] = {
    {u"", ""},
    {u"SELECT 1", "SELECT 1"},
    {u"UPDATE t SET a = ?, b = ? WHERE c=?", "UPDATE t SET a = $1, b = $2 WHERE c=$3"},
    {u"cast(cast(? as numeric) as money)", "cast(cast($1 as numeric) as money)"},
    {u"select '?', \"a?b\", $$?$$, E'\\'?' from t -- ?\n/* ? */ where a = ?",
     "select '?', \"a?b\", $$?$$, E'\\'?' from t -- ?\n/* ? */ where a = $1"},
    {u"select 'ação', ?", "select 'ação', $1"},
    {u"select '\\', ?", "select '\\', $1"},
    {u"select '\\'?', ?", "select '\\'?', $1", true},
};

TEST(NumberedText, NumbersQuestionMarksOutsideQuotes) {
  for (const NumberedCase& c : kNumbered) {
    EXPECT_EQ(NumberedText(c.text, c.backslashes), c.numbered);
  }
}

struct CellCase {
  const char* type;
  Oid oid;
  const char* text;
  Variant value;
};

Variant Shown(const CellCase& c) {
  sql::ColumnDescription told = DescriptionOf(c.oid, -1);
  const sql::Columns columns = {sql::ColumnOf(std::move(told), true)};
  sql::ColumnStore store(columns);
  AppendTextCell(store, 0, {columns[0].storage, columns[0].padded, columns[0].lowerCase}, c.oid,
                 c.text);
  store.EndRows(1);
  return sql::CellValue(store, columns, 0, 0);
}

TEST(TextCells, AreReadByTheirTypes) {
  const auto moment = [](int hour) { return Variant(FromCivil({2020, 2, 29, hour, 14, 15})); };
  const CellCase cases[] = {
      {"int2", 21, "-7", Integer{-7}},
      {"int4", 23, "2147483647", Long{2147483647}},
      {"int8", 20, "-9223372036854775808", DecimalFromText(u"-9223372036854775808")},
      {"oid", 26, "4294967295", DecimalFromText(u"4294967295")},
      {"float8", 701, "1e+300", 1e300},
      {"float8", 701, "Infinity", u"Infinity"},
      {"float4", 700, "-Infinity", u"-Infinity"},
      {"float4", 700, "NaN", u"NaN"},
      {"bool", 16, "t", true},
      {"bool", 16, "f", false},
      {"numeric", 1700, "-0.50", DecimalFromText(u"-0.50")},
      {"money", 790, "-R$ 1.234,56", Currency{-12345600}},
      {"date", 1082, "2020-02-29", Variant(FromCivil({2020, 2, 29, 0, 0, 0}))},
      {"date", 1082, "0044-03-15 BC", u"0044-03-15 BC"},
      {"time", 1083, "24:00:00", u"24:00:00"},
      {"timestamp", 1114, "2020-02-29 13:14:15.5", moment(13)},
      {"timestamptz", 1184, "2020-02-29 13:14:15.5-03", moment(13)},
      {"timestamptz", 1184, "2020-02-29 13:14:15+05:30", moment(13)},
      {"timestamptz", 1184, "0044-03-15 10:00:00-03:06:28 BC", u"0044-03-15 10:00:00 BC"},
      {"timestamptz", 1184, "infinity", u"infinity"},
      {"timestamptz", 1184, "-infinity", u"-infinity"},
      {"bytea", 17, "\\x00ff10", u"00ff10"},
      {"bytea", 17, "", u""},
      {"text", 25, "\\xação ", u"\\xação "},
      {"bpchar", 1042, "ab   ", u"ab"},
      {"json", 114, "{\"a\": 1}", u"{\"a\": 1}"},
  };
  for (const CellCase& c : cases) EXPECT_SAME(Shown(c), c.value) << c.type << " " << c.text;
}

}  // namespace
}  // namespace tessaria::postgres
