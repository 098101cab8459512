// Properties that hold for every mask and every sequence of keys.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "tessaria/memory/application.h"
#include "tessaria/text.h"
#include "tests/mask/test_field.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

using memory::Stroke;

class Dice {
 public:
  explicit Dice(unsigned seed) : engine_(seed) {}
  int Below(int limit) { return std::uniform_int_distribution<int>(0, limit - 1)(engine_); }
  bool Chance() { return Below(2) == 0; }
  char16_t From(StringView set) {
    return set[static_cast<std::size_t>(Below(static_cast<int>(set.size())))];
  }
  String Text(StringView set, int longest) {
    String text(static_cast<std::size_t>(Below(longest + 1)), u' ');
    for (char16_t& character : text) character = From(set);
    return text;
  }

 private:
  std::mt19937 engine_;
};

Stroke RandomStroke(Dice& dice) {
  static constexpr Stroke kKeys[] = {{8, 0, 8},  {46, 0, 0}, {120, 0, 0}, {13, 0, 13}, {37, 0, 0},
                                     {37, 1, 0}, {39, 0, 0}, {39, 1, 0},  {36, 0, 0},  {36, 1, 0},
                                     {35, 1, 0}, {65, 2, 0}, {86, 2, 22}, {35, 0, 0},  {8, 0, 8}};
  const int choice = dice.Below(2 * static_cast<int>(std::size(kKeys)));
  if (choice < static_cast<int>(std::size(kKeys))) return kKeys[choice];
  return {0, 0, dice.From(u"0123456789abzABZx .,-+km/ç%")};
}

std::string Describe(const TestField& field, const Stroke& stroke) {
  return "mask \"" + ToUtf8(field.Mascara()) + "\" box \"" + ToUtf8(field.box.Text()) +
         "\" caret " + std::to_string(field.box.SelStart()) + " key " +
         std::to_string(stroke.Code) + "/" + std::to_string(stroke.Character);
}

TEST(AnyKeys, NeverThrowOrHangOrExtendATextBeyondMaxLength) {
  Dice dice(1);
  for (int round = 0; round < 3000; ++round) {
    memory::Application app;
    TestField field(dice.Text(u"0#dmyAaC$XN/.-() DxM,%", 12), dice.Text(u"_ 0$", 1));
    if (dice.Chance()) field.box.MaxLength(dice.Below(14));
    if (dice.Below(4) == 0) field.box.PasswordChar(u"*");
    field.negative = dice.Chance();
    field.type = dice.Chance() ? TipoControle::Calculadora : TipoControle::Normal;
    if (dice.Chance()) field.Show(dice.Text(u"0123456789ab,-", 24));
    for (int key = 0; key < 25; ++key) {
      const Stroke stroke = RandomStroke(dice);
      const std::string before = Describe(field, stroke);
      const Long limit = std::max(field.box.MaxLength(), Len(field.box.Text()));
      ASSERT_NO_THROW(field.box.Hold(stroke)) << before;
      ASSERT_TRUE(field.box.MaxLength() == 0 || Len(field.box.Text()) <= limit) << before;
      ASSERT_LE(field.box.SelStart() + field.box.SelLength(), Len(field.box.Text())) << before;
    }
  }
}

Long Literals(const TestField& field) {
  const String mask = field.Mascara();
  return Len(mask) - Len(mdlObjTxt::LimpaMascara(mask, mask, field.ItensMascara()));
}

/// One more than before, or the whole mask. A selection that starts on literals is moved
/// past them as a whole, and the text grows by as many positions.
Long LongestAfterAKey(const TestField& field) {
  const Long longest = std::max(Len(field.box.Text()) + 1, Len(field.Mascara()));
  return field.box.SelLength() == 0 ? longest : longest + Literals(field);
}

TEST(AnyKeys, OneKeyAddsAtMostOneCharacterOrWhatTheSelectionMoved) {
  Dice dice(2);
  for (int round = 0; round < 3000; ++round) {
    memory::Application app;
    TestField field(dice.Text(u"0#dmyAaC$XN/.-() ", 12));
    field.negative = true;
    field.Show(dice.Text(u"0123456789ab", 8));
    for (int key = 0; key < 25; ++key) {
      const Stroke stroke = RandomStroke(dice);
      const std::string before = Describe(field, stroke);
      const Long longest = LongestAfterAKey(field);
      field.box.Hold(stroke);
      ASSERT_LE(Len(field.box.Text()), longest) << before;
    }
  }
}

/// Whether the mask is plain: left to right, with a slot first and so few literals that no key
/// passes early.
bool IsPlain(const TestField& field) {
  const String mask = field.Mascara();
  const Long slots = Len(mask) - Literals(field);
  const String items = field.ItensMascara();
  for (Long position = 1; position <= Len(mask); ++position) {
    const bool literal = mdlObjTxt::EhItemMascara(mask, static_cast<Integer>(position), items);
    if (literal && (position == 1 || position + 1 > slots)) return false;
  }
  return !mask.empty();
}

/// "x" is the only character that passes a slot that refuses it.
Stroke RandomEdit(Dice& dice) {
  for (;;) {
    const Stroke stroke = RandomStroke(dice);
    if (stroke.Character != u'x') return stroke;
  }
}

/// A selection that starts on a literal would be moved (see above).
void DropSelectionOnALiteral(TestField& field) {
  const auto position = static_cast<Integer>(field.box.SelStart() + 1);
  if (mdlObjTxt::EhItemMascara(field.Mascara(), position, field.ItensMascara())) {
    field.box.SelLength(0);
  }
}

TEST(AnyKeys, LiteralsOfAnOrdinaryMaskStayInPlace) {
  Dice dice(3);
  int plain = 0;
  for (int round = 0; round < 20000; ++round) {
    memory::Application app;
    TestField field(dice.Text(u"00##dmyAAaaC/-", 12));
    if (!IsPlain(field)) continue;
    ++plain;
    field.Show(dice.Text(u"0123456789ab", 8));
    const String mask = field.Mascara();
    for (int key = 0; key < 25; ++key) {
      const Stroke stroke = RandomEdit(dice);
      const std::string before = Describe(field, stroke);
      DropSelectionOnALiteral(field);
      field.box.Hold(stroke);
      const String text = field.box.Text();
      ASSERT_EQ(Len(text), Len(mask)) << before;
      for (std::size_t i = 0; i < mask.size(); ++i) {
        const bool literal = mask[i] == u'/' || mask[i] == u'-';
        ASSERT_TRUE(!literal || text[i] == mask[i]) << before << " gives " << ToUtf8(text);
      }
      ASSERT_TRUE(app.Boxes().empty()) << before;
    }
  }
  EXPECT_GT(plain, 500);
}

}  // namespace
}  // namespace tessaria
