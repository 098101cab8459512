// The keys that open the calculator of a number field: "x" when its slot refuses it, and F9.
#include <gtest/gtest.h>

#include "tessaria/memory/application.h"
#include "tessaria/text.h"
#include "tests/mask/test_field.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

struct Row {
  const char16_t* Mask;
  const char16_t* Text;
  Long Caret;
  bool Opens;
  const char16_t* TextAfterX;  ///< the "x" itself reaches the box unless it was taken or refused
  int Beeps = 0;
};

constexpr Row rows[] = {
    {u"$$$$$.$$", u"12,50", 0, true, u"x12,50"},
    {u"$$$$$.$$", u"12,50", 5, true, u"12,50x"},
    {u"$$$$$", u"", 0, true, u"x"},
    {u"####", u"12__", 2, true, u"12x__"},
    {u"00/00", u"12/__", 2, true, u"12x/__"},  // the slot after the literal refuses it
    {u"dd/mm/yyyy", u"__/__/____", 0, true, u"x__/__/____"},
    // A slot that accepts letters accepts this one.
    {u"AA", u"__", 0, false, u"X_"},
    {u"aa", u"__", 0, false, u"x_"},
    {u"CC", u"__", 0, false, u"X_"},
    {u"XX", u"", 0, false, u"x"},
    {u"0A", u"1_", 1, false, u"1X"},
    {u"0A", u"__", 0, true, u"x__"},
    // There is no slot after the mask.
    {u"####", u"1234", 4, false, u"1234", 1},
    // A mask with many literals lets the key pass before its slot.
    {u"00.000.000/0000-00", u"12.345.678/0001-__", 15, false, u"12.345.678/0001x-__"},
    // An unmasked field is an ordinary box.
    {u"", u"12", 2, false, u"12x"},
};

class CalculatorKeys : public testing::Test {
 protected:
  TestField& Open(const Row& row, TipoControle type) {
    field.type = type;
    field.calculators = 0;
    field.Mask(row.Mask);
    field.box.Text(row.Text);
    field.box.SelStart(row.Caret);
    beeps = app.Beeps();
    return field;
  }
  memory::Application app;
  TestField field;
  int beeps = 0;
};

TEST_F(CalculatorKeys, AnXOpensItWhereItsSlotRefusesTheKeyAndStillReachesTheBox) {
  for (const Row& row : rows) {
    SCOPED_TRACE(ToUtf8(String(row.Mask) + u" " + row.Text));
    Open(row, TipoControle::Calculadora).box.Type(u"x");
    EXPECT_EQ(field.calculators, row.Opens ? 1 : 0);
    EXPECT_EQ(field.box.Text(), row.TextAfterX);
    EXPECT_EQ(app.Beeps() - beeps, row.Beeps);
  }
}

TEST_F(CalculatorKeys, F9OpensItInTheSamePlacesAndPrintsNothing) {
  for (const Row& row : rows) {
    SCOPED_TRACE(ToUtf8(String(row.Mask) + u" " + row.Text));
    Open(row, TipoControle::Calculadora).box.Press(memory::Key::F9);
    EXPECT_EQ(field.calculators, row.Opens ? 1 : 0);
    if (row.Opens) {
      EXPECT_EQ(field.box.Text(), row.Text);
      EXPECT_EQ(field.lastKey, 120);
    }
  }
}

TEST_F(CalculatorKeys, NoOtherKindOfFieldHasACalculator) {
  for (const TipoControle type :
       {TipoControle::Normal, TipoControle::Browse, TipoControle::Calendario,
        TipoControle::Descricao, TipoControle::Diretorio}) {
    for (const Row& row : rows) {
      Open(row, type).box.Type(u"x");
      EXPECT_EQ(field.box.Text(), row.TextAfterX) << ToUtf8(row.Mask);
      Open(row, type).box.Press(memory::Key::F9);
      EXPECT_EQ(field.calculators, 0);
    }
  }
}

TEST_F(CalculatorKeys, NoOtherKeyOpensIt) {
  for (Integer key = 1; key < 256; ++key) {
    if (key == 120) continue;
    for (const Row& row : rows) {
      Integer code = key;
      txtEdit_KeyPress(Open(row, TipoControle::Calculadora), code);
      EXPECT_EQ(field.calculators, 0) << key << " in " << ToUtf8(row.Mask);
    }
  }
}

}  // namespace
}  // namespace tessaria
