// Dates from texts and from the other kinds.
#include <gtest/gtest.h>

#include <ctime>
#include <initializer_list>

#include "tessaria/conversion.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

struct Reading {
  const char16_t* Text;
  CivilTime Time;
};

void ExpectReadings(std::initializer_list<Reading> rows) {
  for (const auto& row : rows) {
    EXPECT_EQ(CDate(row.Text), FromCivil(row.Time)) << ToUtf8(row.Text);
    EXPECT_TRUE(IsDate(row.Text)) << ToUtf8(row.Text);
  }
}

// The current year, for texts without a year.
int ThisYear() {
  const std::time_t now = std::time(nullptr);
  return std::localtime(&now)->tm_year + 1900;
}

TEST(DateTexts, DayMonthYear) {
  ExpectReadings({{u"25/12/2016", {2016, 12, 25}},
                  {u"25-12-2016", {2016, 12, 25}},
                  {u"25.12.2016", {2016, 12, 25}},
                  {u"1/2/2003", {2003, 2, 1}},
                  {u"01/02/2003", {2003, 2, 1}},
                  {u" 01/02/2003 ", {2003, 2, 1}},
                  {u"01 / 02 / 2003", {2003, 2, 1}},
                  {u"29/02/2016", {2016, 2, 29}},
                  {u"01/01/100", {100, 1, 1}},
                  {u"31/12/9999", {9999, 12, 31}}});
}

TEST(DateTexts, TwoDigitYears) {
  ExpectReadings({{u"01/02/00", {2000, 2, 1}},
                  {u"01/02/3", {2003, 2, 1}},
                  {u"01/02/29", {2029, 2, 1}},
                  {u"01/02/30", {1930, 2, 1}},
                  {u"01/02/99", {1999, 2, 1}},
                  {u"29/02/00", {2000, 2, 29}}});
}

TEST(DateTexts, MonthAndYearAreTheFirstOfTheMonth) {
  ExpectReadings({{u"12/2017", {2017, 12, 1}}, {u"1-1999", {1999, 1, 1}}});
}

TEST(DateTexts, DayAndMonthAreOfThisYear) {
  ExpectReadings({{u"25/12", {ThisYear(), 12, 25}}, {u"1-2", {ThisYear(), 2, 1}}});
}

TEST(DateTexts, YearFirst) {
  ExpectReadings({{u"2016-12-25", {2016, 12, 25}},
                  {u"2016/1/2", {2016, 1, 2}},
                  {u"2016-12-25 06:30:15", {2016, 12, 25, 6, 30, 15}}});
}

TEST(DateTexts, EightDigitsAreDayMonthYear) {
  ExpectReadings({{u"25122016", {2016, 12, 25}},
                  {u" 01022003 ", {2003, 2, 1}},
                  {u"25122016 12:00", {2016, 12, 25, 12, 0, 0}}});
  EXPECT_HOST_ERROR(CDate(u"12252016"), errors::TypeMismatch);
  EXPECT_HOST_ERROR(CDate(u"20161225"), errors::TypeMismatch);
}

TEST(DateTexts, DayAndMonthAreSwappedWhenOnlyThatIsADate) {
  ExpectReadings({{u"12/25/2016", {2016, 12, 25}},
                  {u"2/29/2016", {2016, 2, 29}},
                  {u"12/25/16", {2016, 12, 25}},
                  {u"12/25", {ThisYear(), 12, 25}},
                  {u"2016-25-12", {2016, 12, 25}}});
}

TEST(DateTexts, TimesAfterABlankOrAlone) {
  ExpectReadings({{u"25/12/2016 10:30", {2016, 12, 25, 10, 30, 0}},
                  {u"25/12/2016 23:59:59", {2016, 12, 25, 23, 59, 59}},
                  {u"25/12/2016   1:2:3", {2016, 12, 25, 1, 2, 3}},
                  {u"12/2017 06:00", {2017, 12, 1, 6, 0, 0}},
                  {u"10:30", {1899, 12, 30, 10, 30, 0}},
                  {u" 0:00:01 ", {1899, 12, 30, 0, 0, 1}}});
  EXPECT_EQ(CDate(u"29/12/1899 06:00").Days, -1.25);
}

TEST(DateTexts, OthersAreATypeMismatch) {
  for (const auto* text : {u"",
                           u" ",
                           u"abc",
                           u"31/04/2017",
                           u"29/02/2015",
                           u"29/02/1900",
                           u"30/02/2016",
                           u"00/01/2017",
                           u"01/00/2017",
                           u"13/13/2017",
                           u"32/01/2017",
                           u"0/0/0",
                           u"25/12/2016x",
                           u"25/12/",
                           u"/12/2016",
                           u"25//2016",
                           u"25/12/2016/1",
                           u"25/12/12345",
                           u"25/123/2016",
                           u"12/__/____",
                           u"__/__/____",
                           u"1/1/99999",
                           u"2016",
                           u"13/2017",
                           u"0/2017",
                           u"2017/12",
                           u"01/01/099",
                           u"01/01/0099",
                           u"00000000",
                           u"31042017",
                           u"2512201",
                           u"251220166",
                           u"122017",
                           u"25 12 2016",
                           u"25/12/2016 24:00",
                           u"25/12/2016 10:60",
                           u"25/12/2016 10:00:60",
                           u"10:",
                           u":30",
                           u"10:30:00:00",
                           u"25/12/2016 10",
                           u"25/12/2016 10:3a",
                           u"10:30 25/12/2016",
                           u"25/12/201610:30",
                           u"-1/1/2016",
                           u"40000",
                           u"1,5",
                           u"25/dez/2016",
                           u"100:00",
                           u"10:30 10:30"}) {
    EXPECT_HOST_ERROR(CDate(text), errors::TypeMismatch) << ToUtf8(text);
    EXPECT_FALSE(IsDate(text)) << ToUtf8(text);
  }
}

TEST(ToDates, FromEveryKind) {
  const std::pair<Variant, double> rows[] = {
      {Variant(), 0}, {Integer{2}, 2},        {Long{42729}, 42729},    {1.5f, 1.5},
      {-1.25, -1.25}, {Currency{15000}, 1.5}, {Decimal{{15}, 1}, 1.5}, {Date{42729.5}, 42729.5},
      {true, -1}};
  for (const auto& [value, days] : rows) EXPECT_EQ(CDate(value).Days, days);
}

TEST(ToDates, Errors) {
  EXPECT_HOST_ERROR(CDate(3E6), errors::Overflow);
  EXPECT_HOST_ERROR(CDate(-657435), errors::Overflow);
  EXPECT_HOST_ERROR(CDate(Date{1E10}), errors::Overflow);
  EXPECT_HOST_ERROR(CDate(Variant::Null()), errors::InvalidUseOfNull);
  EXPECT_HOST_ERROR(CDate(Variant::Missing()), errors::TypeMismatch);
  EXPECT_HOST_ERROR(CDate(ObjectPtr()), errors::TypeMismatch);
}

TEST(IsDates, ByKind) {
  EXPECT_TRUE(IsDate(Date{1}));
  for (const Variant& value :
       {Variant(), Variant::Null(), Variant::Missing(), Variant(1), Variant(1.5), Variant(true),
        Variant(Currency{1}), Variant(Decimal{}), Variant(ObjectPtr())}) {
    EXPECT_FALSE(IsDate(value));
  }
}

}  // namespace
}  // namespace tessaria
