// An untouched field: its row does not change, whatever mask shows it.

#include "tessaria/conversion.h"
#include "tessaria/text.h"
#include "tests/control/untouched_fixture.h"

namespace tessaria::test {
namespace {

using testing::SizeIs;

// --- Every mask, every type ---------------------------------------------------------------------

struct Stored {
  Long Type;
  Variant Value;
};

const std::vector<Stored>& StoredValues() {
  static const std::vector<Stored> values = {
      {host::type::VarWChar, null},
      {host::type::VarWChar, u""},
      {host::type::VarWChar, u" "},
      {host::type::VarWChar, u"15"},
      {host::type::VarWChar, u"Ana_Maria-d'Ávila"},
      {host::type::VarWChar, u"12/34 (5)"},
      {host::type::VarWChar, u"0"},
      {host::type::Char, u"ab"},
      {host::type::Integer, null},
      {host::type::Integer, Long{0}},
      {host::type::Integer, Long{-7}},
      {host::type::Integer, Long{2147483647}},
      {host::type::SmallInt, Integer{12}},
      {host::type::Single, 0.3F},
      {host::type::Double, 1e300},
      {host::type::Double, 1.239},
      {host::type::Double, -0.000012345678901},
      {host::type::Currency, Currency{123456789012345678}},
      {host::type::Numeric, null},
      {host::type::Numeric, DecimalFromText(u"12345.67")},
      {host::type::Numeric, DecimalFromText(u"1.239")},
      {host::type::Numeric, DecimalFromText(u"9007199254740993")},
      {host::type::Numeric, DecimalFromText(u"-12345678901234567890.123456789")},
      {host::type::Date, null},
      {host::type::Date, FromCivil({2017, 12, 25})},
      {host::type::DBTimeStamp, Date{FromCivil({2017, 12, 25, 10, 30, 59}).Days + 0.000001}},
      {host::type::DBTimeStamp, FromCivil({150, 1, 31})},
      {host::type::DBTime, Date{0.5}},
      {host::type::Boolean, true},
      {host::type::Boolean, null},
      {host::type::Decimal, DecimalFromText(u"-0.05")},
      {host::type::Decimal, null},
      {host::type::TinyInt, Integer{5}},
      {host::type::WChar, u"ab kg"},
      {host::type::WChar, null},
      {host::type::VarChar, u"a"},
      {host::type::DBDate, FromCivil({2017, 12, 25})},
      {host::type::DBDate, null},
  };
  return values;
}

const char16_t* const masks[] = {
    u"",          u"$$$$$.$$", u"$$$$$",  u"$$$.$$%", u"NNN-AA",  u"N000",  u"00000",
    u"#####",     u"##-##",    u"XXXXX",  u"XX-XX",   u"AAAAA",   u"aaaa",  u"dd/mm/yyyy",
    u"dd/mm/yy",  u"mm/yyyy",  u"mm/yy",  u"##/##",   u"CC (aa)", u"xAAAA", u"00/00/0000",
    u"$$$.$$ kg", u"## kg",    u"$$$,$$", u"##,##",
};

class UntouchedTable : public UntouchedTest, public testing::WithParamInterface<Stored> {};

INSTANTIATE_TEST_SUITE_P(Types, UntouchedTable, testing::ValuesIn(StoredValues()));

TEST_P(UntouchedTable, ShowingAndTabbingThroughWriteNothingAndTheBoxShowsTheSameAgain) {
  AddRow(GetParam().Type, GetParam().Value);
  form->Show();
  const Variant stored = Stored();
  for (const char16_t* mask : masks)
    for (const Long maxLength : {0, 1, 7, 12})
      for (const bool promptInclude : {false, true}) {
        SCOPED_TRACE(testing::Message() << "mask " << ToUtf8(mask) << ", at most " << maxLength
                                        << (promptInclude ? ", literals kept" : ""));
        Control().MaxLength(maxLength);
        if (Control().Mascara() != mask) Control().Mascara(mask);
        Control().PromptInclude(promptInclude);
        Control().Refresh();
        const String shown = Box().Text();
        const Variant value = Control().Value();
        TabThrough();
        app.TakeBoxes();  // a check may refuse what the mask makes of the value
        TabThrough();
        app.TakeBoxes();
        EXPECT_FALSE(IsEdited());
        EXPECT_SAME(Stored(), stored);
        EXPECT_SAME(Control().Value(), value);
        if (Control().LastValidaStatus()) {
          EXPECT_EQ(Box().Text(), shown);
        }
      }
}

TEST_P(UntouchedTable, NoKindOfFieldAndNoSettingWritesAnUntouchedValue) {
  State().dbConexao = connection;
  connection->OnStatement = [](const String& statement) -> std::optional<memory::Rows> {
    if (InStr(statement, u"taxas") == 0) return std::nullopt;
    return memory::Rows{{{u"taxa"}, {u"nome"}}, {{u"77", u"Setenta e sete"}}};
  };
  AddRow(GetParam().Type, GetParam().Value);
  Control().UsaChecaRelacao(true);
  Control().BrowseTable(u"taxas");
  Control().BrwCampo(u"taxa");
  Control().TipoStrZero(1);
  Control().ValorNegativo(true);
  form->Show();
  const Variant stored = Stored();
  for (const char16_t* mask : masks)
    for (const Long kind : {1, 2, 3, 4, 5})
      for (const char16_t* password : {u"", u"*"}) {
        SCOPED_TRACE(testing::Message() << "mask " << ToUtf8(mask) << ", kind " << kind
                                        << (*password ? ", hidden" : ""));
        Control().TipoControle(static_cast<TipoControle>(kind));
        Control().PasswordChar(password);
        if (Control().Mascara() != mask) Control().Mascara(mask);
        Control().Refresh();
        const Variant value = Control().Value();
        TabThrough();
        TabThrough();
        app.TakeBoxes();  // a check may refuse what the mask makes of the value
        EXPECT_FALSE(IsEdited());
        EXPECT_SAME(Stored(), stored);
        EXPECT_SAME(Control().Value(), value);
      }
}

TEST_F(UntouchedTest, ARowIsShownWholeWhateverTheMaxLength) {
  AddRow(host::type::Numeric, DecimalFromText(u"12345.67"));
  Control().Mascara(u"$$$$$.$$");
  Control().MaxLength(7);
  form->Show();
  EXPECT_EQ(Box().Text(), u"12.345,67");
  TabThrough();
  EXPECT_EQ(Box().Text(), u"12.345,67");
  EXPECT_FALSE(IsEdited());
}

// The key filter leaves room for the points; a program's text has no such limit.
TEST_F(UntouchedTest, AFormattedAmountIsAlsoShownWhole) {
  AddRow(host::type::Numeric, null);
  Control().Mascara(u"$$$$$$$.$$");
  Control().MaxLength(9);
  form->Show();
  Enter();
  form->Type(u"1234567");
  EXPECT_EQ(Box().Text(), u"12345");
  Control().Text(u"1234567");
  Leave();
  EXPECT_EQ(Box().Text(), u"1.234.567,00");
  EXPECT_EQ(CDbl(Stored()), 1234567);
}

TEST_F(UntouchedTest, NullUnderAnAmountIsShownAsZeroAndStaysNull) {
  AddRow(host::type::Numeric, null);
  Control().Mascara(u"$$$$$.$$");
  form->Show();
  TabThrough();
  EXPECT_EQ(Box().Text(), u"0,00");
  EXPECT_THAT(Control().Value(), IsValue(Integer{0}));
  EXPECT_THAT(Control().OriginalValue(), IsNullVariant());
  EXPECT_THAT(Stored(), IsNullVariant());
  EXPECT_FALSE(IsEdited());
}

// Zero equals Empty, and Empty is Null in a field that accepts it.
TEST_F(UntouchedTest, AStoredZeroIsShownAsABlankAndStaysZero) {
  AddRow(host::type::Integer, Long{0});
  form->Show();
  TabThrough();
  EXPECT_EQ(Box().Text(), u"");
  EXPECT_THAT(Stored(), IsValue(Long{0}));
  EXPECT_FALSE(IsEdited());
}

TEST_F(UntouchedTest, AnAmountIsFormattedAgainWhenTheFieldIsLeft) {
  AddRow(host::type::Numeric, DecimalFromText(u"1234567.891"));
  Control().Mascara(u"$$$$$$$.$$");
  form->Show();
  EXPECT_EQ(Box().Text(), u"1.234.567,89");
  Enter();
  EXPECT_EQ(Box().Text(), u"1234567,89");
  EXPECT_EQ(Box().Alignment(), host::Alignment::Left);
  Leave();
  EXPECT_EQ(Box().Text(), u"1.234.567,89");
  EXPECT_EQ(Box().Alignment(), host::Alignment::Right);
  EXPECT_SAME(Control().Value(), DecimalFromText(u"1234567.891"));
  EXPECT_SAME(Stored(), DecimalFromText(u"1234567.891"));
}

TEST_F(UntouchedTest, AnUntouchedExitReportsItsValueAndNoChange) {
  AddRow(host::type::Numeric, DecimalFromText(u"1.239"));
  form->Show();
  Enter();
  field->ForgetEvents();
  const auto told = field->ChangedProperties().size();
  Leave();
  EXPECT_GT(field->ChangedProperties().size(), told);
  EXPECT_EQ(field->ChangedProperties().back(), u"Value");
  ASSERT_THAT(field->Events(Kind::BrowseReturn), SizeIs(1));
  EXPECT_FALSE(field->Events(Kind::BrowseReturn)[0].HouveAlteracao);
}

// A refused sign replaces the typed text and does not change the box.
TEST_F(UntouchedTest, AnUntouchedExitSetsTheTypedTextFromTheValue) {
  AddRow(host::type::Numeric, DecimalFromText(u"1234.5"));
  Control().Mascara(u"$$$$$.$$");
  form->Show();
  Enter();
  form->Type(u"+");
  EXPECT_EQ(Control().Texto(), u"1");
  Leave();
  EXPECT_EQ(Control().Texto(), u"1234,5");
  EXPECT_EQ(Box().Text(), u"1.234,50");
  EXPECT_FALSE(IsEdited());
}

TEST_F(UntouchedTest, AnUnboundFieldAlsoKeepsItsValue) {
  field = AddField(u"txtCampo");
  Control().UsaChecaRelacao(false);
  Control().TipoDado(5);
  form->Show();
  Control().Value(u"0");  // a typed zero is a number
  for (const Variant& value :
       {Variant(0.0), Variant(1.239), Variant(DecimalFromText(u"9007199254740993"))}) {
    Control().Value(CStr(value));
    TabThrough();
    EXPECT_SAME(Control().Value(), value);
  }
}

TEST_F(UntouchedTest, FittingAMaskOfLettersToItsFieldDoesNotTouchIt) {
  AddRow({u"campo", host::type::VarWChar, 5}, u"a_b");
  Control().Mascara(u"A");
  form->Show();
  TabThrough();
  EXPECT_THAT(Stored(), IsValue(u"a_b"));
  EXPECT_THAT(Control().Value(), IsValue(u"a_b"));
}

}  // namespace
}  // namespace tessaria::test
