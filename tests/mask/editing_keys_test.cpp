#include "mask/editing_keys.h"

#include <gtest/gtest.h>

#include "tessaria/memory/application.h"
#include "tests/mask/session.h"
#include "tests/mask/test_field.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

TEST(DeleteInNumber, IsLeftToTheBox) {
  Session(R"(
    mask $$$$$.$$
    max 9
    show |12,50
    Del -> |2,50 ; key 46
    show 1[2]3,50
    Del -> 1|3,50
    show 12|
    Del -> 12|
  )");
}

TEST(DeleteInNumber, KeepsTheCommaOfASelectionThatSpansIt) {
  Session(R"(
    mask $$$$$.$$
    max 9
    show 1[2,5]0
    Del -> 1|,0 ; key 0
    show [12,5]0
    Del -> |,0 ; key 0
  )");
}

TEST(DeleteInNumber, SelectionToTheEndAlsoDeletesTheComma) {
  Session(R"(
    mask $$$$$.$$
    max 9
    show 1[2,50]
    Del -> 1| ; key 46
    show [12,50]
    Del -> | ; key 46
  )");
}

TEST(DeleteInNumber, KeepsTheCommaOfALongNumber) {
  Session(R"(
    mask $$$$$$$.$$
    max 10
    show 12345|,67
    Del -> 12345|,67 ; beep ; key 0
    show 1234|,67
    Del -> 1234|67 ; key 46
  )");
}

TEST(DeleteInNumber, SelectionFromTheCommaToTheEndIsTestedAsTheCommaAlone) {
  Session(R"(
    mask $$$$$$$.$$
    max 10
    show 12345[,67]
    Del -> 12345[,67] ; beep
  )");
}

TEST(KeyDown, OtherKeysAreIgnored) {
  memory::Application app;
  TestField field(u"00/00");
  field.Show(u"1234");
  for (Integer code = 1; code < 256; ++code) {
    if (code == 46 || code == 120) continue;
    Integer key = code, shift = 0;
    txtEdit_KeyDown(field, key, shift);
    EXPECT_EQ(key, code);
    EXPECT_EQ(field.box.Text(), u"12/34");
  }
}

TEST(KeyDown, UnmaskedFieldDeletesByItself) {
  Session(R"(
    mask
    show a|b
    Del -> a| ; key 46
  )");
}

TEST(KeyDown, ReportsItsErrors) {
  memory::Application app;
  TestField field(u"$$$.$$");
  field.box.Text(u"12,50");
  field.box.SelStart(1);
  field.box.SelLength(2);
  field.box.OnChange = [] { throw HostError(13); };
  Integer key = 46, shift = 0;
  txtEdit_KeyDown(field, key, shift);
  EXPECT_EQ(key, 46);
  ASSERT_EQ(app.Boxes().size(), 1u);
  EXPECT_EQ(app.Boxes().front().Title, u"Erro: 13 - Função: tsText.txtEdit_KeyDown");
}

}  // namespace
}  // namespace tessaria
