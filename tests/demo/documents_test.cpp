#include "apps/demo/documents.h"

#include <gtest/gtest.h>

namespace tessaria::demo {
namespace {

struct Case {
  Person person;
  const char* digits;
  bool valid;
};

TEST(Documents, CheckDigits) {
  const Case cases[] = {
      {Person::Natural, "52998224725", true},
      {Person::Natural, "11144477735", true},
      {Person::Natural, "52998224724", false},
      {Person::Natural, "52998224715", false},
      {Person::Natural, "5299822472", false},
      {Person::Natural, "11111111111", false},
      {Person::Natural, "", false},
      {Person::Natural, "5299822472a", false},
      {Person::Legal, "11222333000181", true},
      {Person::Legal, "11222333000182", false},
      {Person::Legal, "52998224725", false},
      {Person::Natural, "11222333000181", false},
      {Person::Legal, "00000000000000", false},
  };
  for (const Case& c : cases)
    EXPECT_EQ(isValidDocument(c.person, QString::fromLatin1(c.digits)), c.valid) << c.digits;
}

TEST(Documents, TheLengthDeterminesTheKindOfPerson) {
  EXPECT_EQ(personOf("52998224725"), Person::Natural);
  EXPECT_EQ(personOf(""), Person::Natural);
  EXPECT_EQ(personOf("11222333000181"), Person::Legal);
}

}  // namespace
}  // namespace tessaria::demo
