// The calendar.
#include <gtest/gtest.h>

#include <limits>

#include "tessaria/conversion.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

TEST(Calendar, KnownDays) {
  const struct {
    double Days;
    CivilTime Time;
  } rows[] = {
      {0, {1899, 12, 30}},
      {1, {1899, 12, 31}},
      {2, {1900, 1, 1}},
      {60, {1900, 2, 28}},
      {61, {1900, 3, 1}},  // 1900 has no 29 February
      {36526, {2000, 1, 1}},
      {36585, {2000, 2, 29}},
      {42729, {2016, 12, 25}},
      {25569, {1970, 1, 1}},
      {-1, {1899, 12, 29}},
      {-657434, {100, 1, 1}},
      {2958465, {9999, 12, 31}},
      {42729.25, {2016, 12, 25, 6, 0, 0}},
      {-1.25, {1899, 12, 29, 6, 0, 0}},  // the fraction is also the time before the origin
      {-657434.5, {100, 1, 1, 12, 0, 0}},
      {42729 + 86399.0 / 86400, {2016, 12, 25, 23, 59, 59}},
  };
  for (const auto& row : rows) {
    const CivilTime time = ToCivil({row.Days});
    EXPECT_EQ(time.Year, row.Time.Year) << row.Days;
    EXPECT_EQ(time.Month, row.Time.Month) << row.Days;
    EXPECT_EQ(time.Day, row.Time.Day) << row.Days;
    EXPECT_EQ(time.Hour, row.Time.Hour) << row.Days;
    EXPECT_EQ(time.Minute, row.Time.Minute) << row.Days;
    EXPECT_EQ(time.Second, row.Time.Second) << row.Days;
    EXPECT_DOUBLE_EQ(FromCivil(row.Time).Days, row.Days);
  }
}

void ExpectDaysFollow(int first, int last) {
  CivilTime before = ToCivil({static_cast<double>(first - 1)});
  for (int day = first; day <= last; ++day) {
    const CivilTime time = ToCivil({static_cast<double>(day)});
    const bool next = time.Day == before.Day + 1 && time.Month == before.Month;
    const bool month = time.Day == 1 && time.Month == before.Month % 12 + 1;
    ASSERT_TRUE((next || month) && time.Year == before.Year + (month && time.Month == 1)) << day;
    ASSERT_EQ(FromCivil(time).Days, day);
    before = time;
  }
}

TEST(Calendar, EveryDayFollowsTheOneBefore) {
  ExpectDaysFollow(-657433, -650000);
  ExpectDaysFollow(-110000, 190000);  // 1598 to 2420: a whole cycle of leap years and more
  ExpectDaysFollow(2950000, 2958465);
}

TEST(Calendar, EverySecondOfADayRoundTrips) {
  for (const int day : {42729, -42729, 2958465, 0}) {
    for (int second = 0; second < 86400; second += 7) {
      CivilTime time = ToCivil({static_cast<double>(day)});
      time.Hour = second / 3600;
      time.Minute = second / 60 % 60;
      time.Second = second % 60;
      const CivilTime back = ToCivil(FromCivil(time));
      ASSERT_EQ(back.Day, time.Day);
      ASSERT_EQ(back.Hour * 3600 + back.Minute * 60 + back.Second, second);
    }
  }
}

TEST(Calendar, RoundsToTheSecondAcrossMidnight) {
  const CivilTime time = ToCivil({42369.999999});  // the last day of a year
  EXPECT_EQ(time.Year, 2016);
  EXPECT_EQ(time.Month, 1);
  EXPECT_EQ(time.Day, 1);
  EXPECT_EQ(time.Hour + time.Minute + time.Second, 0);
}

TEST(Calendar, RefusesDatesOutsideTheCalendar) {
  for (const double days :
       {-657435.0, 2958466.0, 2958465.999999, 1E300, -1E300,
        std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
    EXPECT_HOST_ERROR(ToCivil({days}), errors::Overflow) << days;
  }
  const CivilTime times[] = {
      {99, 12, 31},     {10000, 1, 1},       {2016, 0, 1},          {2016, 13, 1}, {2016, 4, 31},
      {2015, 2, 29},    {1900, 2, 29},       {2016, 1, 0},          {2016, 1, 32}, {2016, 1, 1, 24},
      {2016, 1, 1, -1}, {2016, 1, 1, 0, 60}, {2016, 1, 1, 0, 0, 60}};
  for (const auto& time : times) EXPECT_HOST_ERROR(FromCivil(time), errors::InvalidArgument);
}

}  // namespace
}  // namespace tessaria
