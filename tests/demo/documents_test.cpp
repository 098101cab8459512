#include "apps/demo/documents.h"

#include <gtest/gtest.h>

namespace tessaria::demo {
namespace {

TEST(Documents, TheLengthDeterminesTheKindOfPerson) {
  EXPECT_EQ(personOf("52998224725"), Person::Natural);
  EXPECT_EQ(personOf(""), Person::Natural);
  EXPECT_EQ(personOf("11222333000181"), Person::Legal);
}

}  // namespace
}  // namespace tessaria::demo
