// The text after From.
#include "wizard/from_text.h"

#include <gtest/gtest.h>

#include "tests/support/printers.h"

namespace tessaria::test {
namespace {

using wizard::FromText;

TEST(FromTables, OneTableStandsAlone) {
  EXPECT_EQ(FromText({{.text = u"M", .isMain = true}}, {}), u"M");
  EXPECT_EQ(FromText({{.text = u"M"}}, {}), u"M");
  EXPECT_EQ(FromText({{.text = u"M", .isMain = true}}, {u"l1", u"l2"}), u"M")
      << "links without a table to join are left over";
}

TEST(FromTables, TheOthersAreJoinedInBrackets) {
  const std::vector<String> names{u"A", u"B", u"C", u"D"};
  const std::vector<String> links{u"l1", u"l2", u"l3", u"l4"};
  const String expected[] = {
      u"M Left Join A on (l1)", u"(M Left Join A on l1) Left Join B on (l2)",
      u"((M Left Join A on l1) Left Join B on (l2)) Left Join C on (l3)",
      u"(((M Left Join A on l1) Left Join B on (l2)) Left Join C on (l3)) Left Join D on (l4)"};
  std::vector<wizard::FromTable> tables{{.text = u"M", .isMain = true}};
  for (std::size_t i = 0; i < names.size(); ++i) {
    tables.push_back({.text = names[i]});
    EXPECT_EQ(FromText(tables, {links.begin(), links.begin() + static_cast<std::ptrdiff_t>(i) + 1}),
              expected[i]);
  }
}

TEST(FromTables, TheMainTableIsTheFirstWhereverItStands) {
  EXPECT_EQ(
      FromText({{.text = u"A"}, {.text = u"M", .isMain = true}, {.text = u"B"}}, {u"l1", u"l2"}),
      u"(M Left Join A on l1) Left Join B on (l2)");
}

TEST(FromTables, LinksPairWithTablesByPlaceWhateverTheyName) {
  EXPECT_EQ(FromText({{.text = u"M", .isMain = true}, {.text = u"A"}, {.text = u"B"}},
                     {u"B.x=M.x", u"A.x=M.x"}),
            u"(M Left Join A on B.x=M.x) Left Join B on (A.x=M.x)");
}

TEST(FromTables, AMissingLinkLeavesAnEmptyCondition) {
  EXPECT_EQ(FromText({{.text = u"M", .isMain = true}, {.text = u"A"}}, {}), u"M Left Join A on ()");
  EXPECT_EQ(FromText({{.text = u"M", .isMain = true}, {.text = u"A"}, {.text = u"B"}}, {u"l1"}),
            u"(M Left Join A on l1) Left Join B on ()");
}

TEST(FromTables, WhenAllAreMainTablesNothingIsJoinedToThem) {
  EXPECT_EQ(FromText({{.text = u"M", .isMain = true}, {.text = u"A", .isMain = true}}, {u"l1"}),
            u"MA Left Join  on (l1)");
}

TEST(FromTables, TheTagOfARowFollowsItsTextInAJoin) {
  EXPECT_EQ(
      FromText({{.text = u"M", .isMain = true, .tag = u"m"}, {.text = u"A", .tag = u"a"}}, {u"l1"}),
      u"M as m Left Join A as a on (l1)");
  EXPECT_EQ(FromText({{.text = u"M", .isMain = true, .tag = u"m"}}, {}), u"M");
}

TEST(FromTables, MoreLinksThanJoinedTablesAreAnError) {
  EXPECT_TRUE(RaisesHostError(
      [] {
        FromText({{.text = u"M", .isMain = true}, {.text = u"A"}}, {u"l1", u"l2"});
      },
      errors::SubscriptOutOfRange));
}

TEST(FromTables, AnAliasIsWrittenBehindItsTable) {
  EXPECT_EQ(FromText({{.text = u"c", .table = u"cliente", .isMain = true}}, {}), u"cliente as c");
  EXPECT_EQ(FromText({{.text = u"cliente", .isMain = true},
                      {.text = u"pagador", .table = u"cliente"},
                      {.text = u"cidade"}},
                     {u"l1", u"l2"}),
            u"(cliente Left Join cliente as pagador on l1) Left Join cidade on (l2)");
}

TEST(FromTables, AnAliasWithoutItsTableStandsAlone) {
  EXPECT_EQ(FromText({{.text = u"Cliente", .isMain = true}, {.text = u"Cliente_1"}}, {u"l1"}),
            u"Cliente Left Join Cliente_1 on (l1)");
}

TEST(FromTables, WithoutAMainTableAllAreJoinedToNothing) {
  EXPECT_EQ(FromText({{.text = u"A"}, {.text = u"B"}}, {u"l1"}),
            u" Left Join A on l1) Left Join B on ()");
}

TEST(FromTables, EachCheckedTableGoesIntoTheText) {
  EXPECT_EQ(
      FromText({{.text = u"M", .isMain = true}, {.text = u"N", .isMain = true}, {.text = u"A"}},
               {u"l1"}),
      u"(MN Left Join A on (l1)");
}

}  // namespace
}  // namespace tessaria::test
