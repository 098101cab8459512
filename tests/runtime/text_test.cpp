// Text functions: positions from 1.
#include "tessaria/text.h"

#include <gtest/gtest.h>

#include "tests/support/printers.h"

namespace tessaria {
namespace {

constexpr Long kHuge = 2147483647;

TEST(Lengths, CountUnits) {
  EXPECT_EQ(Len(u""), 0);
  EXPECT_EQ(Len(u"ação"), 4);
  EXPECT_EQ(Len(u"\U0001F600"), 2);
}

TEST(LeftAndRight, TakeAtMostTheWholeText) {
  const struct {
    StringView Text;
    Long Count;
    StringView Left, Right;
  } rows[] = {{u"código", 3, u"cód", u"igo"},
              {u"código", 0, u"", u""},
              {u"código", 6, u"código", u"código"},
              {u"código", 99, u"código", u"código"},
              {u"", 3, u"", u""},
              {u"x", kHuge, u"x", u"x"}};
  for (const auto& row : rows) {
    EXPECT_EQ(Left(row.Text, row.Count), row.Left);
    EXPECT_EQ(Right(row.Text, row.Count), row.Right);
  }
}

TEST(LeftAndRight, RefuseNegativeCounts) {
  EXPECT_HOST_ERROR(Left(u"abc", -1), errors::InvalidArgument);
  EXPECT_HOST_ERROR(Right(u"abc", -1), errors::InvalidArgument);
  EXPECT_HOST_ERROR(Left(u"", -1), errors::InvalidArgument);
}

TEST(LeftAndRight, LeftWholeTakesNoHalfOfAPair) {
  EXPECT_EQ(LeftWhole(u"ab", 1), u"a");
  EXPECT_EQ(LeftWhole(u"a😀b", 1), u"a");
  EXPECT_EQ(LeftWhole(u"a😀b", 2), u"a");
  EXPECT_EQ(LeftWhole(u"a😀b", 3), u"a😀");
  EXPECT_EQ(LeftWhole(u"😀", 1), u"");
  EXPECT_EQ(LeftWhole(u"😀", 99), u"😀");
  const String halves = {0xD83D, u'a', 0xDE00, 0xDE00};
  for (Long count = 0; count <= Len(halves); ++count)
    EXPECT_EQ(LeftWhole(halves, count), Left(halves, count)) << count;
  EXPECT_HOST_ERROR(LeftWhole(u"abc", -1), errors::InvalidArgument);
}

TEST(Mids, StartAtAPosition) {
  EXPECT_EQ(Mid(u"código", 1), u"código");
  EXPECT_EQ(Mid(u"código", 4), u"igo");
  EXPECT_EQ(Mid(u"código", 6), u"o");
  EXPECT_EQ(Mid(u"código", 7), u"");
  EXPECT_EQ(Mid(u"código", kHuge), u"");
  EXPECT_EQ(Mid(u"", 1), u"");
  EXPECT_EQ(Mid(u"código", 2, 3), u"ódi");
  EXPECT_EQ(Mid(u"código", 5, 9), u"go");
  EXPECT_EQ(Mid(u"código", 2, 0), u"");
  EXPECT_EQ(Mid(u"código", 99, 2), u"");
  EXPECT_EQ(Mid(u"código", 2, kHuge), u"ódigo");
}

TEST(Mids, RefuseInvalidPositionsAndCounts) {
  EXPECT_HOST_ERROR(Mid(u"abc", 0), errors::InvalidArgument);
  EXPECT_HOST_ERROR(Mid(u"abc", -1), errors::InvalidArgument);
  EXPECT_HOST_ERROR(Mid(u"abc", 0, 1), errors::InvalidArgument);
  EXPECT_HOST_ERROR(Mid(u"abc", 1, -1), errors::InvalidArgument);
}

TEST(Searches, GivePositions) {
  EXPECT_EQ(InStr(u"banana", u"an"), 2);
  EXPECT_EQ(InStr(u"banana", u"AN"), 0);
  EXPECT_EQ(InStr(u"banana", u"bananas"), 0);
  EXPECT_EQ(InStr(3, u"banana", u"an"), 4);
  EXPECT_EQ(InStr(5, u"banana", u"an"), 0);
  EXPECT_EQ(InStr(7, u"banana", u"a"), 0);
  EXPECT_EQ(InStr(kHuge, u"banana", u"a"), 0);
  EXPECT_EQ(InStrRev(u"banana", u"an"), 4);
  EXPECT_EQ(InStrRev(u"banana", u"x"), 0);
  EXPECT_EQ(InStrRev(u"", u"x"), 0);
  EXPECT_EQ(InStrRev(u"C:\\dados\\x.txt", u"\\"), 9);
}

TEST(Searches, FindAnEmptyPartWhereTheyStart) {
  EXPECT_EQ(InStr(u"banana", u""), 1);
  EXPECT_EQ(InStr(3, u"banana", u""), 3);
  EXPECT_EQ(InStr(u"", u""), 0);
  EXPECT_EQ(InStr(u"", u"x"), 0);
  EXPECT_EQ(InStr(7, u"banana", u""), 0);
  EXPECT_EQ(InStrRev(u"banana", u""), 6);
}

TEST(Searches, RefuseAStartBelowOne) {
  EXPECT_HOST_ERROR(InStr(0, u"abc", u"a"), errors::InvalidArgument);
  EXPECT_HOST_ERROR(InStr(-5, u"", u""), errors::InvalidArgument);
}

TEST(Trims, TakeBlanksOnly) {
  EXPECT_EQ(Trim(u"  a b  "), u"a b");
  EXPECT_EQ(LTrim(u"  a b  "), u"a b  ");
  EXPECT_EQ(RTrim(u"  a b  "), u"  a b");
  EXPECT_EQ(Trim(u"    "), u"");
  EXPECT_EQ(LTrim(u"    "), u"");
  EXPECT_EQ(RTrim(u"    "), u"");
  EXPECT_EQ(Trim(u""), u"");
  EXPECT_EQ(Trim(u"\ta\n"), u"\ta\n");
  EXPECT_EQ(Trim(u"\u00A0a"), u"\u00A0a");
}

TEST(Beginnings, AreExact) {
  EXPECT_TRUE(StartsWith(u"Mascara", u"Masc"));
  EXPECT_FALSE(StartsWith(u"Mascara", u"masc"));
  EXPECT_TRUE(StartsWith(u"Mascara", u""));
  EXPECT_FALSE(StartsWith(u"Ma", u"Mascara"));
  EXPECT_TRUE(EndsWith(u"Adodc", u"dc"));
  EXPECT_FALSE(EndsWith(u"Adodc", u"DC"));
  EXPECT_FALSE(EndsWith(u"c", u"dc"));
}

TEST(Replacing, GoesFromLeftToRight) {
  EXPECT_EQ(Replace(u"d'água d'ouro", u"'", u"''"), u"d''água d''ouro");
  EXPECT_EQ(Replace(u"aaa", u"aa", u"b"), u"ba");
  EXPECT_EQ(Replace(u"aba", u"a", u""), u"b");
  EXPECT_EQ(Replace(u"aba", u"A", u"x"), u"aba");
  EXPECT_EQ(Replace(u"aba", u"", u"x"), u"aba");
  EXPECT_EQ(Replace(u"", u"a", u"x"), u"");
  EXPECT_EQ(Replace(u"a", u"a", u"aa"), u"aa");
}

TEST(Filling, RepeatsACharacter) {
  EXPECT_EQ(Space(3), u"   ");
  EXPECT_EQ(Space(0), u"");
  EXPECT_EQ(StringOf(3, u"*"), u"***");
  EXPECT_EQ(StringOf(2, u"çx"), u"çç");
  EXPECT_EQ(StringOf(0, u"x"), u"");
  EXPECT_HOST_ERROR(Space(-1), errors::InvalidArgument);
  EXPECT_HOST_ERROR(StringOf(-1, u"x"), errors::InvalidArgument);
  EXPECT_HOST_ERROR(StringOf(1, u""), errors::InvalidArgument);
}

}  // namespace
}  // namespace tessaria
