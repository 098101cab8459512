// What assigning `Mascara` does to the box, and what it does not change.

#include "tests/control/control_fixture.h"

namespace tessaria::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class MaskAssignmentTest : public ControlTest {
 protected:
  tsText& Control() { return **field; }
  memory::TextBox& Box() { return field->txtEdit(); }
  /// A field with a mask and a value.
  void Start(const String& mask, const Variant& value) {
    field = AddField(u"txtCampo" + CStr(Variant(++fields)));
    Control().Mascara(mask);
    Control().Value(value);
  }
  /// The properties that assigning the mask notifies.
  std::vector<String> Assign(const String& mask) {
    const auto before = static_cast<std::ptrdiff_t>(field->ChangedProperties().size());
    Control().Mascara(mask);
    return {field->ChangedProperties().begin() + before, field->ChangedProperties().end()};
  }

  FieldPtr field;
  Long fields = 0;
};

struct Aligned {
  const char16_t* Mask;
  host::Alignment Alignment;
};

const Aligned kAlignments[] = {
    {u"$$$.$$", host::Alignment::Right}, {u"00/00", host::Alignment::Left},
    {u"$", host::Alignment::Right},      {u"", host::Alignment::Left},
    {u"$$$%", host::Alignment::Right},   {u"0$", host::Alignment::Left},
};

TEST_F(MaskAssignmentTest, ANumberIsAlignedRight) {
  Start(u"", Variant::Null());
  for (const Aligned& row : kAlignments) {
    Control().Mascara(row.Mask);
    EXPECT_EQ(Box().Alignment(), row.Alignment) << ToUtf8(row.Mask);
  }
}

TEST_F(MaskAssignmentTest, NotifiesTheItemsBeforeTheMask) {
  Start(u"", u"1234");
  EXPECT_THAT(Assign(u"00/00"), ElementsAre(u"ItensMascara", u"Mascara"));
  EXPECT_EQ(Control().ItensMascara(), u"_/");
  EXPECT_THAT(Assign(u""), ElementsAre(u"ItensMascara", u"Mascara"));
  EXPECT_EQ(Control().ItensMascara(), u"_");
}

struct Relaid {
  const char16_t* Before;
  const char16_t* Value;
  const char16_t* Mask;
  const char16_t* Box;
};

const Relaid kRelaid[] = {
    {u"", u"1234", u"00/00", u"12/34"},
    {u"", u"12", u"00/00", u"12/__"},
    {u"", u"1234,5", u"$$$$.$$", u"1.234,50"},
    {u"00/00", u"1234", u"##/##", u"12/34"},
    {u"00/00", u"12", u"000/000", u"12_/___"},
    // The old mask's literals are stripped only where the new one has them too.
    {u"00/00", u"1234", u"00-00", u"12-/3"},
    // Without a mask nothing is stripped: the text does not change.
    {u"00/00", u"1234", u"", u"12/34"},
    {u"00/00", u"12", u"", u"12/__"},
};

TEST_F(MaskAssignmentTest, LaysOutTheBoxAgainAndKeepsValueAndTypedText) {
  for (const Relaid& row : kRelaid) {
    SCOPED_TRACE(ToUtf8(row.Before) + " to " + ToUtf8(row.Mask));
    Start(row.Before, row.Value);
    EXPECT_THAT(Assign(row.Mask), ElementsAre(u"ItensMascara", u"Mascara"));
    EXPECT_EQ(Box().Text(), row.Box);
    EXPECT_THAT(Control().Value(), IsValue(row.Value));
    EXPECT_EQ(Control().Texto(), row.Value);
  }
}

TEST_F(MaskAssignmentTest, RemovingTheMaskOfAnEmptyBoxSetsTheValueToNull) {
  Start(u"00/00", u"1234");
  Box().Text(u"__/__");
  EXPECT_THAT(Assign(u""), ElementsAre(u"ItensMascara", u"Texto", u"Value", u"Mascara"));
  EXPECT_THAT(Control().Value(), IsNullVariant());
  EXPECT_EQ(Control().Texto(), u"");
  EXPECT_EQ(Box().Text(), u"");
}

TEST_F(MaskAssignmentTest, PasswordCharactersAreLaidOutThemselves) {
  Start(u"", u"segredo");
  Control().PasswordChar(u"*");
  Control().Value(u"segredo");
  Control().Mascara(u"XX-XX");
  EXPECT_EQ(Box().Text(), u"*****");
  EXPECT_EQ(Control().Texto(), u"segredo");
  EXPECT_THAT(Control().Value(), IsValue(u"segredo"));
}

TEST_F(MaskAssignmentTest, AssigningNoMaskToAFieldWithoutOneEmptiesTheValueOfAnEmptyBox) {
  Start(u"", u"abc");
  Control().Mascara(u"");
  EXPECT_THAT(Control().Value(), IsValue(u"abc"));
  Control().Text(u"");
  Control().Mascara(u"");
  EXPECT_THAT(Control().Value(), IsNullVariant());
}

class MaskDesignTest : public DesignTest {};

TEST_F(MaskDesignTest, InTheDesignerOnlyTheAlignmentChanges) {
  const auto field = AddField(u"txtCampo");
  (*field)->Text(u"1234");
  const auto before = field->ChangedProperties().size();
  (*field)->Mascara(u"$$$.$$");
  EXPECT_EQ(field->txtEdit().Text(), u"1234");
  EXPECT_EQ(field->txtEdit().Alignment(), host::Alignment::Right);
  (*field)->Mascara(u"");
  EXPECT_EQ(field->txtEdit().Text(), u"1234");
  EXPECT_EQ(field->txtEdit().Alignment(), host::Alignment::Left);
  const std::vector<String> told(
      field->ChangedProperties().begin() + static_cast<std::ptrdiff_t>(before),
      field->ChangedProperties().end());
  EXPECT_THAT(told, ElementsAre(u"ItensMascara", u"Mascara", u"ItensMascara", u"Mascara"));
  EXPECT_THAT(app.TakeBoxes(), IsEmpty());
}

}  // namespace
}  // namespace tessaria::test
