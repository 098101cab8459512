// Date patterns.
#include <gtest/gtest.h>

#include "tessaria/conversion.h"
#include "tessaria/format.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

const Date kSunday = FromCivil({2017, 3, 5, 9, 7, 3});
const Date kEvening = FromCivil({2016, 12, 25, 21, 30, 45});

struct Row {
  Variant Value;
  StringView Pattern, Text;
};

void ExpectRows(std::initializer_list<Row> rows) {
  for (const auto& row : rows) {
    EXPECT_EQ(Format(row.Value, row.Pattern), row.Text)
        << ::testing::PrintToString(row.Value) << " " << ToUtf8(row.Pattern);
  }
}

TEST(DatePatterns, OfTheDialects) {
  ExpectRows({{u"25/12/2016", u"mm/dd/yyyy", u"12/25/2016"},
              {u"25/12/2016", u"yyyy-mm-dd", u"2016-12-25"},
              {u"25122016", u"dd/mm/yyyy", u"25/12/2016"},
              {u"5/3/17", u"yyyy-mm-dd", u"2017-03-05"},
              {kEvening, u"dd/mm/yyyy", u"25/12/2016"}});
}

TEST(DatePatterns, Days) {
  ExpectRows({{kSunday, u"d", u"5"},
              {kSunday, u"dd", u"05"},
              {kSunday, u"ddd", u"dom"},
              {kSunday, u"dddd", u"domingo"},
              {kSunday, u"ddddd", u"05/03/2017"},
              {kSunday, u"dddddd", u"domingo, 5 de março de 2017"},
              {kSunday, u"ddddddd", u"domingo, 5 de março de 20175"},
              {kEvening, u"DD", u"25"}});
}

TEST(DatePatterns, NamesOfDays) {
  const StringView names[] = {u"domingo",      u"segunda-feira", u"terça-feira", u"quarta-feira",
                              u"quinta-feira", u"sexta-feira",   u"sábado"};
  const StringView shorts[] = {u"dom", u"seg", u"ter", u"qua", u"qui", u"sex", u"sáb"};
  for (std::size_t i = 0; i < 7; ++i) {
    const Date day{kSunday.Days + static_cast<double>(i)};
    EXPECT_EQ(Format(day, u"dddd"), names[i]);
    EXPECT_EQ(Format(day, u"ddd"), shorts[i]);
    EXPECT_EQ(Format(day, u"w"), CStr(static_cast<Long>(i + 1)));
  }
}

TEST(DatePatterns, NamesOfMonths) {
  const StringView names[] = {u"janeiro",  u"fevereiro", u"março",    u"abril",
                              u"maio",     u"junho",     u"julho",    u"agosto",
                              u"setembro", u"outubro",   u"novembro", u"dezembro"};
  for (int month = 1; month <= 12; ++month) {
    const Date day = FromCivil({2017, month, 1});
    const StringView name = names[month - 1];
    EXPECT_EQ(Format(day, u"mmmm"), name);
    EXPECT_EQ(Format(day, u"mmm"), name.substr(0, 3));
    EXPECT_EQ(Format(day, u"m"), CStr(Long{month}));
    EXPECT_EQ(Format(day, u"q"), CStr(Long{(month + 2) / 3}));
  }
}

TEST(DatePatterns, YearsAndWeeks) {
  ExpectRows({{kSunday, u"yy", u"17"},
              {kSunday, u"yyyy", u"2017"},
              {FromCivil({2005, 1, 1}), u"yy", u"05"},
              {FromCivil({100, 1, 1}), u"yyyy", u"0100"},
              {kSunday, u"y", u"64"},
              {FromCivil({2016, 12, 31}), u"y", u"366"},
              {FromCivil({2017, 1, 1}), u"ww", u"1"},
              {FromCivil({2017, 1, 7}), u"ww", u"1"},
              {FromCivil({2017, 1, 8}), u"ww", u"2"},
              {FromCivil({2016, 1, 2}), u"ww", u"1"},
              {FromCivil({2016, 1, 3}), u"ww", u"2"},
              {FromCivil({2016, 12, 31}), u"ww", u"53"}});
}

TEST(DatePatterns, Times) {
  ExpectRows({{kSunday, u"h:n:s", u"9:7:3"},
              {kSunday, u"hh:nn:ss", u"09:07:03"},
              {kSunday, u"hh:mm:ss", u"09:07:03"},  // m after h is minutes
              {kSunday, u"h:m", u"9:7"},
              {kSunday, u"mm hh", u"03 09"},
              {kSunday, u"hh:mm dd/mm", u"09:07 05/03"},
              {kSunday, u"ttttt", u"09:07:03"},
              {kEvening, u"hh:nn AM/PM", u"09:30 PM"},
              {kEvening, u"h:nn am/pm", u"9:30 pm"},
              {kSunday, u"h:nn A/P", u"9:07 A"},
              {kSunday, u"h a/p", u"9 a"},
              {FromCivil({2017, 1, 1, 0, 5, 0}), u"h:nn AM/PM", u"12:05 AM"},
              {FromCivil({2017, 1, 1, 12, 5, 0}), u"h:nn AM/PM", u"12:05 PM"}});
}

TEST(DatePatterns, Literals) {
  ExpectRows({{kSunday, u"dd \"de\" mmmm", u"05 de março"},
              {kSunday, u"\\d: d", u"d: 5"},
              {kSunday, u"dd.mm.yyyy", u"05.03.2017"},
              {kSunday, u"dd-mm-yy", u"05-03-17"},
              {kSunday, u"yyyymmdd", u"20170305"},
              {kSunday, u"dd 0#", u"05 0#"},
              {kSunday, u"d t", u"5 t"}});
}

TEST(DatePatterns, Names) {
  ExpectRows({{kSunday, u"General Date", u"05/03/2017 09:07:03"},
              {kSunday, u"c", u"05/03/2017 09:07:03"},
              {kSunday, u"Long Date", u"domingo, 5 de março de 2017"},
              {kSunday, u"Medium Date", u"05-mar-17"},
              {kSunday, u"Short Date", u"05/03/2017"},
              {kSunday, u"Long Time", u"09:07:03"},
              {kEvening, u"Medium Time", u"09:30 PM"},
              {kEvening, u"short time", u"21:30"}});
}

TEST(DatePatterns, OfEveryKind) {
  ExpectRows({{42729, u"dd/mm/yyyy", u"25/12/2016"},
              {42729.5, u"hh:nn", u"12:00"},
              {Decimal{{42729}, 0, false}, u"dd/mm/yyyy", u"25/12/2016"},
              {Currency{427290000}, u"yyyy", u"2016"},
              {0, u"dd/mm/yyyy", u"30/12/1899"},
              {Date{-1.25}, u"dd/mm/yyyy hh:nn", u"29/12/1899 06:00"},
              {Variant(), u"dd/mm/yyyy", u""},
              {Variant::Null(), u"dd/mm/yyyy", u""}});
  EXPECT_HOST_ERROR(Format(1E10, u"dd/mm/yyyy"), errors::Overflow);
  EXPECT_HOST_ERROR(Format(Date{1E10}, u"dd/mm/yyyy"), errors::Overflow);
  EXPECT_HOST_ERROR(Format(ObjectPtr(), u"dd/mm/yyyy"), errors::TypeMismatch);
}

TEST(DatePatterns, ATextThatIsNotADateIsReturned) {
  ExpectRows({{u"abc", u"yyyy-mm-dd", u"abc"},
              {u"", u"yyyy-mm-dd", u""},
              {u"31/04/2017", u"yyyy-mm-dd", u"31/04/2017"},
              {u"__/__/____", u"mm/dd/yyyy", u"__/__/____"},
              {u"42729", u"mm/dd/yyyy", u"42729"}});
}

}  // namespace
}  // namespace tessaria
