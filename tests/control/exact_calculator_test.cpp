// The calculator with more digits than a Double holds, refused results, and unchanged values.

#include "tessaria/conversion.h"
#include "tessaria/text.h"
#include "tests/control/button_fixture.h"
#include "tests/control/raw_rows.h"

namespace tessaria::test {
namespace {

using memory::Key;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class ExactCalculator : public ButtonTest {
 protected:
  void ShowRow(const Variant& stored, const String& mask, Long maxLength,
               TipoControle kind = TipoControle::Calculadora) {
    rows->Field.Type =
        kind == TipoControle::Calendario ? host::type::DBTimeStamp : host::type::Numeric;
    rows->Field.Value = stored;
    const auto control = form->Add<memory::DataControl>(u"dtcDados");
    control->ConnectionString(u"DSN=teste");
    control->RecordSource(u"crua");
    control->RecordSet(rows);
    Bind(field, u"campo");
    Show(kind);
    Control().Mascara(mask);
    Control().MaxLength(maxLength);
    Control().Refresh();
    Enter();
  }
  void Enter() {
    form->Focus(u"chkAtivo");
    form->Focus(u"txtCampo");
    app.TakeBoxes();
    field->ForgetEvents();
  }
  void Open(bool byKey, const String& keys) {
    if (byKey) {
      desktop->WillShow(u"frmCalculadora", Calculate(keys));
      form->Press(Key::F9);
    } else {
      Click(u"frmCalculadora", Calculate(keys));
    }
  }

  std::shared_ptr<RawRows> rows = std::make_shared<RawRows>();
};

TEST_F(ExactCalculator, EscapeWritesATypedNumberWithAllDigits) {
  for (const bool byKey : {false, true}) {
    if (!form->Visible()) ShowRow(Variant::Null(), u"$$$$$$$$$$$$$$$$$$$$.$$", 30);
    Enter();
    Control().Text(u"12345678901234567,89");
    Open(byKey, u"");
    EXPECT_THAT(app.TakeBoxes(), IsEmpty());
    EXPECT_SAME(rows->Field.Value, DecimalFromText(u"12345678901234567.89"));
    EXPECT_EQ(Box().Text(), u"12.345.678.901.234.567,89");
  }
}

TEST_F(ExactCalculator, AnEntryOfSixteenDigitsIsWrittenAsTyped) {
  for (const bool byKey : {false, true}) {
    if (!form->Visible()) ShowRow(Variant::Null(), u"$$$$$$$$$$$$$$$$$$$$.$$", 30);
    rows->Field.Value = Variant::Null();
    Control().Refresh();
    Enter();
    // The box shows a zero: C makes a new entry of what follows.
    desktop->WillShow(u"frmCalculadora", [](memory::Dialog& shown) {
      shown.Click(u"btnOperador", 0);
      shown.Type(u"9999999999999999");
      shown.Press(Key::Escape);
    });
    if (byKey)
      form->Press(Key::F9);
    else
      field->btnBrowse().OnClick();
    EXPECT_THAT(app.TakeBoxes(), IsEmpty());
    EXPECT_TRUE(IsSameNumber(rows->Field.Value, u"9999999999999999"));
  }
}

TEST_F(ExactCalculator, ARefusedResultRestoresTheExactValueOfTheRow) {
  for (const Variant& stored :
       {Variant(u"NaN"), Variant(u"123456789012345678901234567890,5"), Variant::Null(),
        Variant(DecimalFromText(u"1.239")), Variant(DecimalFromText(u"9007199254740993"))}) {
    SCOPED_TRACE(stored.IsNull() ? "Null" : ToUtf8(CStr(stored)));
    if (!form->Visible()) ShowRow(stored, u"$$$", 3);
    rows->Field.Value = stored;
    Control().Refresh();
    Enter();
    const Variant value = Control().Value();
    Click(u"frmCalculadora", [](memory::Dialog& shown) {
      shown.Click(u"btnOperador", 0);
      shown.Type(u"1000");
      shown.Press(Key::Escape);
    });
    EXPECT_THAT(app.TakeBoxes(), SizeIs(1));
    EXPECT_THAT(rows->Field.Value, IsValue(stored));
    EXPECT_THAT(Control().Value(), IsValue(value));
    EXPECT_EQ(Box().Tag, u"");
    ASSERT_THAT(Returns(), SizeIs(1));
    EXPECT_FALSE(Returns()[0].HouveAlteracao);
    rows->Written.clear();
    form->Focus(u"chkAtivo");
    EXPECT_THAT(rows->Written, IsEmpty());
  }
}

TEST_F(ExactCalculator, OpeningAndClosingItOnAStoredWordWritesNothing) {
  for (const char16_t* word : {u"NaN", u"-Infinity"})
    for (const bool byKey : {false, true}) {
      if (!form->Visible()) ShowRow(word, u"$$$$$.$$", 9);
      rows->Field.Value = word;
      Control().Refresh();
      Enter();
      Open(byKey, u"");
      EXPECT_EQ(Box().Text(), word);
      EXPECT_THAT(Control().Value(), IsValue(word));
      form->Focus(u"chkAtivo");
      EXPECT_EQ(Box().Text(), word);
      EXPECT_THAT(rows->Written, IsEmpty());
      EXPECT_THAT(app.TakeBoxes(), IsEmpty());
    }
}

TEST_F(ExactCalculator, ANumberTypedOnAStoredWordIsWritten) {
  ShowRow(u"NaN", u"$$$$$.$$", 9);
  Open(false, u"5");
  EXPECT_EQ(CDbl(rows->Field.Value), 5);
}

TEST_F(ExactCalculator, ACancelledCalendarOnAStoredWordWritesNothing) {
  ShowRow(u"infinity", u"dd/mm/yyyy", 10, TipoControle::Calendario);
  Click(u"frmCalendario", [](memory::Dialog& shown) { shown.Press(Key::Escape); });
  EXPECT_EQ(Box().Text(), u"infinity");
  form->Focus(u"chkAtivo");
  EXPECT_THAT(rows->Written, IsEmpty());
  Enter();
  Click(u"frmCalendario", [](memory::Dialog& shown) { shown.Press(Key::Enter); });
  EXPECT_THAT(rows->Written, SizeIs(1));
}

// The calendar of a blank field returns the day that it opened on, cancelled or not.
TEST_F(ExactCalculator, ACancelledCalendarOnABlankReturnsItsDay) {
  ShowRow(Variant::Null(), u"dd/mm/yyyy", 10, TipoControle::Calendario);
  Click(u"frmCalendario", [](memory::Dialog& shown) { shown.Press(Key::Escape); });
  EXPECT_THAT(rows->Written, SizeIs(1));
}

}  // namespace
}  // namespace tessaria::test
