// Text patterns.
#include <gtest/gtest.h>

#include "tessaria/format.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

TEST(TextPatterns, DistributeCharactersOverPlaces) {
  const struct {
    Variant Value;
    StringView Pattern, Text;
  } rows[] = {
      {u"01310100", u"@@@@@-@@@", u"01310-100"},
      {u"12345678909", u"@@@.@@@.@@@-@@", u"123.456.789-09"},
      {u"abc", u"@@@@@", u"  abc"},  // filled from the right
      {u"abc", u"!@@@@@", u"abc  "},
      {u"abc", u"&&&&&", u"abc"},
      {u"abc", u"!&&&&&x", u"abcx"},
      {u"abcdef", u"@-@@", u"abcd-ef"},
      {u"abcdef", u"!@-@@", u"a-bcdef"},
      {u"", u"@@", u"  "},
      {u"", u"&&", u""},
      {u"Ação", u">", u"AÇÃO"},
      {u"AÇÃO", u"<", u"ação"},
      {u"ab", u"\"cód. \">@@", u"cód. AB"},
      {u"ab", u"\\@@@", u"@ab"},
      {u"31/12/2016", u"@@", u"31/12/2016"},
      {1234.5, u"@@@@@@@@", u"  1234,5"},
      {true, u">", u"VERDADEIRO"},
      {Date{42729}, u"!@@@@@@@@@@@@", u"25/12/2016  "},
      {Variant(), u"@@", u""},
      {Variant::Null(), u"@@", u""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(Format(row.Value, row.Pattern), row.Text) << ToUtf8(row.Pattern);
  }
  EXPECT_HOST_ERROR(Format(ObjectPtr(), u"@"), errors::TypeMismatch);
}

}  // namespace
}  // namespace tessaria
