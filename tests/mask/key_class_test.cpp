#include "mask/key_class.h"

#include <gtest/gtest.h>

#include "tessaria/masks.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

struct ClassCase {
  char16_t slot;
  bool digits, letters, blank;
  char16_t lower, upper;  ///< the stored form of "b" and "B"
};

constexpr ClassCase kClasses[] = {
    {u'0', true, false, false, 0, 0},     {u'#', true, false, false, 0, 0},
    {u'N', true, false, false, 0, 0},     {u'd', true, false, false, 0, 0},
    {u'm', true, false, false, 0, 0},     {u'y', true, false, false, 0, 0},
    {u'D', true, false, false, 0, 0},     {u'M', true, false, false, 0, 0},
    {u'Y', true, false, false, 0, 0},     {u'A', true, true, true, u'B', u'B'},
    {u'a', true, true, true, u'b', u'b'}, {u'C', true, true, true, u'B', u'B'},
    {u'c', true, true, true, u'B', u'B'}, {u'X', true, true, true, u'b', u'B'},
    {u'x', true, true, true, u'b', u'B'}, {u'$', false, false, false, 0, 0},
    {u'n', false, false, false, 0, 0},    {u'/', false, false, false, 0, 0},
};

TEST(KeyClass, EachSlotTakesItsKeys) {
  for (const ClassCase& row : kClasses) {
    const StringView slot(&row.slot, 1);
    for (Integer key = 0; key < 0x100; ++key) {
      const bool digit = key >= u'0' && key <= u'9';
      const bool letter = (key >= u'a' && key <= u'z') || (key >= u'A' && key <= u'Z');
      const bool expected =
          (digit && row.digits) || (letter && row.letters) || (key == u' ' && row.blank);
      EXPECT_EQ(SlotTakes(slot, key), expected) << "slot " << int{row.slot} << " key " << key;
    }
    EXPECT_FALSE(SlotTakes(slot, -1));
  }
}

TEST(KeyClass, EachSlotFoldsItsLetters) {
  for (const ClassCase& row : kClasses) {
    if (!row.letters) continue;
    const StringView slot(&row.slot, 1);
    EXPECT_EQ(FoldForSlot(slot, u'b'), String(1, row.lower));
    EXPECT_EQ(FoldForSlot(slot, u'B'), String(1, row.upper));
    EXPECT_EQ(FoldForSlot(slot, u'7'), u"7");
  }
}

TEST(KeyClass, PositionsAfterTheMaskAcceptNothing) {
  EXPECT_FALSE(SlotTakes(u"", u'1'));
  EXPECT_FALSE(SlotTakes(u"", u'a'));
}

TEST(KeyClass, NumberKeys) {
  const StringView kKeys = u"0123456789+,-.km\b";
  for (Integer key = -1; key < 0x100; ++key) {
    const bool expected = key >= 0 && kKeys.find(static_cast<char16_t>(key)) != StringView::npos;
    EXPECT_EQ(IsNumberKey(key), expected) << key;
  }
}

}  // namespace
}  // namespace tessaria
