// Number patterns.
#include <gtest/gtest.h>

#include "tessaria/format.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

struct NumberRow {
  Variant Value;
  StringView Pattern, Text;
};

void ExpectNumbers(std::initializer_list<NumberRow> rows) {
  for (const auto& row : rows) {
    EXPECT_EQ(Format(row.Value, row.Pattern), row.Text)
        << ::testing::PrintToString(row.Value) << " " << ToUtf8(row.Pattern);
  }
}

TEST(NumberPatterns, OfTheMasks) {
  ExpectNumbers({{1234.5, u"#,##0.00", u"1.234,50"},
                 {0, u"#,##0.00", u"0,00"},
                 {0.5, u"#,##0.00", u"0,50"},
                 {-1234.5, u"#,##0.00", u"-1.234,50"},
                 {1234567.891, u"#,##0.00", u"1.234.567,89"},
                 {999, u"#,##0", u"999"},
                 {1000, u"#,##0", u"1.000"},
                 {123456, u"#,##0", u"123.456"},
                 {1234567, u"#,##0", u"1.234.567"},
                 {0, u"#,##0", u"0"},
                 {1234.5, u"#,##0.0", u"1.234,5"},
                 {u"1234,5", u"#,##0.00", u"1.234,50"},
                 {u"1.234,5", u"#,##0.00", u"1.234,50"},
                 {u"-7", u"#,##0.00", u"-7,00"}});
}

TEST(NumberPatterns, PlacesOfTheWholePart) {
  ExpectNumbers({{5, u"0", u"5"},
                 {5, u"000", u"005"},
                 {12345, u"000", u"12345"},
                 {5, u"#", u"5"},
                 {0, u"#", u""},
                 {0, u"###", u""},
                 {5, u"#00", u"05"},
                 {5, u"0#", u"05"},
                 {5, u"0,000", u"0.005"},
                 {1234, u"000,0", u"1.234"},
                 {1234567, u"#,#", u"1.234.567"}});
}

TEST(NumberPatterns, PlacesOfTheFraction) {
  ExpectNumbers({{1.5, u"0.00", u"1,50"},
                 {1.5, u"0.##", u"1,5"},
                 {1.5, u"0.0#", u"1,5"},
                 {1, u"0.##", u"1,"},
                 {1, u"0.0#", u"1,0"},
                 {0.5, u"#.##", u",5"},
                 {0, u"#.##", u","},
                 {12.5, u".00", u"12,50"},
                 {0.5, u".00", u",50"},
                 {0.05, u"0.00", u"0,05"},
                 {1.5, u"0.#0", u"1,50"},
                 {0.001, u"0.0", u"0,0"},
                 {1234.5, u"0.", u"1235,"}});
}

TEST(NumberPatterns, HalvesGoAwayFromZero) {
  ExpectNumbers({{0.5, u"0", u"1"},
                 {1.5, u"0", u"2"},
                 {2.5, u"0", u"3"},
                 {-0.5, u"0", u"-1"},
                 {-2.5, u"0", u"-3"},
                 {2.675, u"0.00", u"2,68"},
                 {1.005, u"0.00", u"1,01"},
                 {9.995, u"0.00", u"10,00"},
                 {999.5, u"#,##0", u"1.000"},
                 {0.125, u"0.00", u"0,13"},
                 {0.49999, u"0", u"0"},
                 {u"2,675", u"0.00", u"2,68"}});
}

TEST(NumberPatterns, DoublesCountFifteenDigits) {
  ExpectNumbers({{0.1 + 0.2, u"0.00000000000000000000", u"0,30000000000000000000"},
                 {1.0 / 3, u"0.0000000000000000", u"0,3333333333333330"},
                 {1234567890123456789.0, u"0", u"1234567890123460000"},
                 {1E20, u"#,##0", u"100.000.000.000.000.000.000"}});
}

TEST(NumberPatterns, ExactKindsCountAllDigits) {
  ExpectNumbers({{Currency{9223372036854775807}, u"#,##0.0000", u"922.337.203.685.477,5807"},
                 {Decimal{{~0u, ~0u, ~0u}, 0, true}, u"0", u"-79228162514264337593543950335"},
                 {Decimal{{125}, 2, false}, u"0.0", u"1,3"},
                 {Decimal{{1}, 28, false}, u"0.00", u"0,00"}});
}

TEST(NumberPatterns, TextsCountAllDigits) {
  ExpectNumbers(
      {{u"12345678901234567890,125", u"#,##0.00", u"12.345.678.901.234.567.890,13"},
       {u"-0,00000000000000000005", u"0.00000000000000000000", u"-0,00000000000000000005"},
       {u"999999999999999999,995", u"0.00", u"1000000000000000000,00"},
       {u"9007199254740993", u"0", u"9007199254740993"},
       {u"0,1250000000000000000001", u"0.00", u"0,13"},
       {u"&HFF", u"0", u"255"},
       {u"1E400", u"0", u"1E400"}});
}

TEST(NumberPatterns, AValueThatShowsAsZeroHasNoMinus) {
  ExpectNumbers({{-0.001, u"0.00", u"0,00"},
                 {-0.4, u"#,##0", u"0"},
                 {-0.0, u"0", u"0"},
                 {-0.001, u"0.00;(0.00)", u"0,00"},
                 {-0.001, u"0.00;(0.00);zero", u"zero"},
                 {0.001, u"0.00;(0.00);zero", u"zero"}});
}

TEST(NumberPatterns, Sections) {
  ExpectNumbers({{5, u"0;(0)", u"5"},
                 {-5, u"0;(0)", u"(5)"},
                 {0, u"0;(0)", u"0"},
                 {0, u"0;(0);\"nada\"", u"nada"},
                 {-5, u"0.0;;\\z", u"-5,0"},
                 {0, u"0.0;;\\z", u"z"},
                 {0, u"0.0;-0.0;", u"0,0"},
                 {-5, u"0;-0", u"-5"},
                 {5, u"\"a;b\"0", u"a;b5"},
                 {-1234.5, u"#,##0.00 C;#,##0.00 \\D", u"1.234,50 D"}});
}

TEST(NumberPatterns, Literals) {
  ExpectNumbers({{5, u"R$ 0.00", u"R$ 5,00"},
                 {-5, u"R$ 0.00", u"-R$ 5,00"},
                 {5, u"0 \"reais\"", u"5 reais"},
                 {5, u"0 kg", u"5 kg"},
                 {5, u"\\#0", u"#5"},
                 {5, u"0\\", u"5"},
                 {5, u"\"0", u"0"},
                 {5, u"\"sim\"", u"sim"},
                 {-5, u"\"sim\"", u"-sim"},
                 {12345678, u"00000-000", u"12345-678"},
                 {123456789, u"000-000", u"123456-789"},
                 {5, u"00/00", u"00/05"},
                 {5, u"0.0.0", u"5,0.0"}});
}

TEST(NumberPatterns, PercentAndThousands) {
  ExpectNumbers({{0.125, u"0%", u"13%"},
                 {0.125, u"0.0%", u"12,5%"},
                 {0.5, u"0.00 \"%\"", u"0,50 %"},
                 {0.001, u"%0", u"%0"},
                 {1234567, u"0,", u"1235"},
                 {1234567, u"#,##0,", u"1.235"},
                 {1234567, u"0,,", u"1"},
                 {1234567, u"0,.0", u"1234,6"},
                 {5, u",0", u"5"}});
}

TEST(NumberPatterns, Exponents) {
  ExpectNumbers({{12345, u"0.00E+00", u"1,23E+04"},
                 {0.00012, u"0.0E+00", u"1,2E-04"},
                 {0.00012, u"0.0e-00", u"1,2e-04"},
                 {12345, u"0.0E-0", u"1,2E4"},
                 {9.99, u"0.0E+00", u"1,0E+01"},
                 {0, u"0.00E+00", u"0,00E+00"},
                 {12345, u"00.0E+00", u"12,3E+03"},
                 {-12345, u"0E+0", u"-1E+4"},
                 {5, u"0 E", u"5 E"}});
}

TEST(NumberPatterns, Names) {
  ExpectNumbers({{1234.5, u"General Number", u"1234,5"},
                 {1234.5, u"general number", u"1234,5"},
                 {1234.5, u"Standard", u"1.234,50"},
                 {1234.5, u"Fixed", u"1234,50"},
                 {1234.5, u"Currency", u"R$ 1.234,50"},
                 {-1234.5, u"Currency", u"-R$ 1.234,50"},
                 {0.125, u"Percent", u"12,50%"},
                 {1234.5, u"Scientific", u"1,23E+03"},
                 {1, u"Yes/No", u"Sim"},
                 {-1, u"Yes/No", u"Sim"},
                 {0, u"Yes/No", u"Não"},
                 {true, u"True/False", u"Verdadeiro"},
                 {false, u"True/False", u"Falso"},
                 {1, u"On/Off", u"Ativado"},
                 {0, u"On/Off", u"Desativado"}});
}

TEST(NumberPatterns, OfEveryKind) {
  ExpectNumbers({{Integer{7}, u"00", u"07"},
                 {Long{70000}, u"#,##0", u"70.000"},
                 {1.1f, u"0.00000000", u"1,10000000"},
                 {Date{1.5}, u"0.0", u"1,5"},
                 {true, u"0", u"-1"},
                 {false, u"0.0", u"0,0"},
                 {Variant(), u"0.00", u""},
                 {Variant::Null(), u"0.00", u""},
                 {Variant::Missing(), u"0.00", u""}});
  EXPECT_HOST_ERROR(Format(ObjectPtr(), u"0"), errors::TypeMismatch);
}

TEST(NumberPatterns, ATextThatIsNotANumberIsReturned) {
  ExpectNumbers({{u"abc", u"#,##0.00", u"abc"},
                 {u"", u"#,##0.00", u""},
                 {u"1,2,3", u"0", u"1,2,3"},
                 {u"25/12/2016", u"0.00", u"25/12/2016"},
                 {u"1E999", u"0", u"1E999"},
                 {u" x ", u"\"sim\"", u" x "}});
}

TEST(EmptyPatterns, GiveTheTextOfTheValue) {
  ExpectNumbers({{1234.5, u"", u"1234,5"},
                 {true, u"", u"Verdadeiro"},
                 {Date{42729}, u"", u"25/12/2016"},
                 {u"abc", u"", u"abc"},
                 {Variant(), u"", u""},
                 {Variant::Null(), u"", u""}});
}

}  // namespace
}  // namespace tessaria
