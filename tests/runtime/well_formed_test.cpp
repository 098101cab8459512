// Texts that reach a database uncut.
#include "runtime/well_formed.h"

#include "tests/support/printers.h"

namespace tessaria {
namespace {

String Unit(char16_t unit) { return String(1, unit); }

TEST(WellFormed, TextsOfEveryPlane) {
  for (const String& text : {String(), String(u"ação"), String(u"\U0001F600x\U0010FFFF"),
                             String(u"\uFFFF\uFFFD\uE000\uD7FF"), String(u"\r\n\t\x01")}) {
    EXPECT_TRUE(IsWellFormed(text));
    EXPECT_NO_THROW(RequireWellFormed(text));
  }
}

TEST(WellFormed, NoNulAndNoHalfOfAPair) {
  for (const String& text :
       {Unit(0), String(u"a\0b", 3), Unit(0xD800), Unit(0xDBFF) + u"a", Unit(0xDC00), Unit(0xDFFF),
        Unit(0xDC00) + Unit(0xD800), Unit(0xD800) + Unit(0xD800) + Unit(0xDC00)}) {
    EXPECT_FALSE(IsWellFormed(text));
    EXPECT_HOST_ERROR(RequireWellFormed(text), errors::InvalidArgument);
  }
}

}  // namespace
}  // namespace tessaria
