// The comforts of the process.

#include "tessaria/comforts.h"

#include <gtest/gtest.h>

namespace tessaria {
namespace {

TEST(Comforts, AreOffByDefault) {
  EXPECT_FALSE(comforts().ClipboardKeys);
  EXPECT_FALSE(comforts().PasteWholeOrNothing);
  EXPECT_FALSE(comforts().CalendarCancels);
  EXPECT_FALSE(comforts().SearchWithoutFormerKey);
  EXPECT_FALSE(comforts().DarkPalette);
}

TEST(Comforts, AreSetTogetherForTheWholeProcess) {
  setComforts(Comforts::All());
  EXPECT_TRUE(comforts().ClipboardKeys);
  EXPECT_TRUE(comforts().PasteWholeOrNothing);
  EXPECT_TRUE(comforts().CalendarCancels);
  EXPECT_TRUE(comforts().SearchWithoutFormerKey);
  EXPECT_TRUE(comforts().DarkPalette);
  setComforts({});
  EXPECT_FALSE(comforts().DarkPalette);
}

}  // namespace
}  // namespace tessaria
