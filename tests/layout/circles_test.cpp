// No chain of includes leads back to its start.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/layout/include_graph.h"

namespace layout {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

TEST(Circles, AreTheComponentsThatReachThemselves) {
  EXPECT_THAT(InCircles({}), IsEmpty());
  EXPECT_THAT(InCircles({{"a", {"b", "c"}}, {"b", {"c"}}}), IsEmpty());
  EXPECT_THAT(InCircles({{"a", {"b"}}, {"b", {"a"}}}), ElementsAre("a", "b"));
  EXPECT_THAT(InCircles({{"a", {"b"}}, {"b", {"c"}}, {"c", {"a"}}}), ElementsAre("a", "b", "c"));
}

TEST(Circles, ExcludeComponentsThatLeadToThemOrFromThem) {
  EXPECT_THAT(InCircles({{"in", {"a"}}, {"a", {"b", "out"}}, {"b", {"a"}}}), ElementsAre("a", "b"));
  // There is a path between two circles, but no third circle.
  EXPECT_THAT(
      InCircles({{"a", {"b"}}, {"b", {"a", "way"}}, {"way", {"c"}}, {"c", {"d"}}, {"d", {"c"}}}),
      ElementsAre("a", "b", "c", "d"));
}

TEST(Circles, AHeaderAndTheSourceOfTheSameNameAreOneComponent) {
  const std::vector<Include> includes = {
      {"hosts/x/room/a.cpp", 1, "tessaria/x/a.h", false},
      {"hosts/x/room/a.cpp", 2, "hosts/x/room/b.h", false},
      {"hosts/x/room/b.h", 1, "tessaria/x/c.h", false},
      {"hosts/x/room/c.cpp", 1, "hosts/x/room/b.h", false},
      {"hosts/x/room/c.cpp", 2, "tessaria/x/c.h", false},
      {"include/tessaria/x/a.h", 1, "string", true},
  };
  const Components components(includes);
  EXPECT_EQ(components.Of("include/tessaria/x/a.h"), "hosts/x/room/a");
  EXPECT_EQ(components.Of("hosts/x/room/b.h"), "hosts/x/room/b");
  // The source of its name includes it, but not first.
  EXPECT_EQ(components.Of("include/tessaria/x/c.h"), "include/tessaria/x/c");
  EXPECT_THAT(
      GraphOf(includes),
      ElementsAre(Pair("hosts/x/room/a", ElementsAre("hosts/x/room/b")),
                  Pair("hosts/x/room/b", ElementsAre("include/tessaria/x/c")),
                  Pair("hosts/x/room/c", ElementsAre("hosts/x/room/b", "include/tessaria/x/c"))));
}

TEST(Circles, ThereAreNoneInTheWholeTree) {
  EXPECT_THAT(InCircles(GraphOf(AllIncludes())), IsEmpty());
}

}  // namespace
}  // namespace layout
