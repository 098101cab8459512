// The small rules that need no server.
#include <gtest/gtest.h>

#include "hosts/sql/errors/driver_error.h"
#include "hosts/sql/session/dbms_version.h"
#include "hosts/sql/values/calendar.h"
#include "hosts/sql/values/money.h"
#include "hosts/sql/values/text_order.h"
#include "tessaria/text.h"
#include "tests/support/printers.h"

namespace tessaria::sql {
namespace {

struct VersionCase {
  StringView reported, text;
  Integer number;
};

constexpr VersionCase kVersions[] = {
    {u"9.4.1", u"PostgreSQL 9.4.1", 941},      {u"9.5.3", u"PostgreSQL 9.5.3", 953},
    {u"09.05.0003", u"PostgreSQL 9.5.3", 953}, {u"9.5.0", u"PostgreSQL 9.5.0", 950},
    {u"9.6.24", u"PostgreSQL 9.6.24", 9624},   {u"10.0", u"PostgreSQL 10.0.0", 1000},
    {u"10.1", u"PostgreSQL 10.0.1", 1001},     {u"15.18", u"PostgreSQL 15.0.18", 1501},
    {u"15.0.18", u"PostgreSQL 15.0.18", 1501}, {u"15.0.3 (Debian)", u"PostgreSQL 15.0.3", 1503},
    {u"100.2", u"PostgreSQL 100.0.2", 1000},
};

// The rule of the lookups: six characters from 11 after the start of "PostgreSQL", without points,
// as a 16-bit integer.
TEST(DbmsVersion, IsReadAsANumberByTheVersionRule) {
  for (const VersionCase& c : kVersions) {
    const String text = PostgreSqlVersion(c.reported);
    EXPECT_EQ(text, c.text);
    EXPECT_EQ(CInt(Replace(Mid(text, InStr(text, u"PostgreSQL") + 11, 6), u".", u"")), c.number);
  }
}

struct MoneyCase {
  StringView text;
  std::int64_t value;
};

constexpr MoneyCase kMoney[] = {
    {u"$12.34", 123400},
    {u"$1,234.50", 12345000},
    {u"-$0.05", -500},
    {u"R$ 1.234,56", 12345600},
    {u"-R$ 1.234.567,89", -12345678900},
    {u"($12.00)", -120000},
    {u"$1,234", 12340000},
    {u"12", 120000},
    {u"1.2345", 12345},
};

TEST(Money, IsReadInEveryCountrysStyle) {
  for (const MoneyCase& c : kMoney) EXPECT_EQ(MoneyFromText(c.text), c.value) << ToUtf8(c.text);
  EXPECT_EQ(MoneyText(-12345678), u"-1234.5678");
  EXPECT_EQ(MoneyText(500), u"0.0500");
}

TEST(Calendar, KeepsDaysAndMicroseconds) {
  EXPECT_EQ(DayNumber(1899, 12, 30), 0);
  EXPECT_EQ(DayNumber(2000, 1, 1), 36526);
  EXPECT_EQ(DayNumber(44, 3, 15), std::nullopt);
  EXPECT_EQ(DayNumber(0, 0, 0), std::nullopt);
  EXPECT_EQ(DayOfText(u"2000-01-01"), 36526);
  for (const StringView wrong : {u"", u"0000-00-00", u"2000-02-30", u"hoje", u"2000-01-01-01"}) {
    EXPECT_EQ(DayOfText(wrong), std::nullopt) << ToUtf8(wrong);
  }
  EXPECT_EQ(MicrosOfTime(u"13:14:15.000120"), 47'655'000'120);
  EXPECT_EQ(MicrosOfTime(u"24:00:00"), std::nullopt);
  EXPECT_EQ(MicrosOfTime(u"10:00:00 BC"), std::nullopt);
  EXPECT_EQ(TimeText(47'655'000'120), u"13:14:15.000120");
  EXPECT_EQ(TimeText(47'655'000'000), u"13:14:15");
  EXPECT_EQ(DayText(-1), u"1899-12-29");
}

// Before the first day a date value counts its fraction forward from midnight.
TEST(Calendar, CountsTheTimeOfEarlyDaysForward) {
  EXPECT_EQ(DateOf(-1, kMicrosPerDay / 4).Days, -1.25);
  EXPECT_EQ(MomentOf(Date{-1.25}), -kMicrosPerDay + kMicrosPerDay / 4);
  const SplitMoment split = Split(-kMicrosPerDay + kMicrosPerDay / 4);
  EXPECT_EQ(split.day, -1);
  EXPECT_EQ(split.micros, kMicrosPerDay / 4);
}

TEST(TextOrder, ComparesBaseLettersThenAccentsNeverCase) {
  EXPECT_EQ(CompareText(u"SÃO PAULO", u"são paulo"), 0);
  EXPECT_LT(CompareText(u"Sao Paulo", u"São Paulo"), 0);
  EXPECT_LT(CompareText(u"São Paulo", u"Sao Pedro"), 0);
  EXPECT_LT(CompareText(u"Água", u"Azul"), 0);
  EXPECT_GT(CompareText(u"çá", u"ca"), 0);
  EXPECT_EQ(BaseKey(u"AÇÚCAR às ÑÖ"), u"acucar as no");
}

struct LikeCase {
  StringView pattern, text;
  bool matches;
};

constexpr LikeCase kLikes[] = {
    {u"Ma%", u"maria", true},   {u"Ma*", u"MARIA", true},  {u"Ma%", u"Ema", false},
    {u"%ria", u"Maria", true},  {u"%ar%", u"Maria", true}, {u"*ar*", u"Mel", false},
    {u"maria", u"Maria", true}, {u"%", u"", true},         {u"50%%", u"50% off", true},
    {u"São%", u"sao", false},
};

TEST(TextOrder, LikeTakesWildcardsAtTheEnds) {
  for (const LikeCase& c : kLikes) {
    EXPECT_EQ(LikePattern(c.pattern).Matches(c.text), c.matches)
        << ToUtf8(c.pattern) << " on " << ToUtf8(c.text);
  }
}

struct StateCase {
  const char* state;
  Long number;
  bool loss;
};

constexpr StateCase kStates[] = {
    {"08S01", errors::ProviderError, true},
    {"08001", errors::ProviderError, true},
    {"57P01", errors::ProviderError, true},
    {"57014", errors::TimeOut, false},
    {"HYT00", errors::TimeOut, false},
    {"23505", errors::IntegrityViolation, false},
    {"42601", errors::ErrorsInCommand, false},
    {"22001", errors::ValueRefused, false},
    {"28P01", errors::AuthenticationFailed, false},
    {"HY000", errors::ProviderError, false},
};

TEST(DriverError, NumberFollowsTheState) {
  for (const StateCase& c : kStates) {
    const DriverError error(c.state, u"texto do driver");
    EXPECT_EQ(error.Number(), c.number) << c.state;
    EXPECT_EQ(error.IsConnectionLoss(), c.loss) << c.state;
    EXPECT_EQ(error.Description(), u"texto do driver");
  }
}

}  // namespace
}  // namespace tessaria::sql
