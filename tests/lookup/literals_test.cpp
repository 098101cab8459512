// Values as SQL literals: texts, numbers, and refused values.
#include "lookup/literals.h"

#include "tessaria/text.h"
#include "tests/lookup/lookup_fixture.h"

namespace tessaria::test {
namespace {

struct NumberCase {
  const char16_t* typed;
  const char16_t* sql;  ///< null: refused
};

const NumberCase kNumbers[] = {
    {u"", u""},
    {u"  ", u"  "},
    {u"15", u"15"},
    {u"00015", u"00015"},
    {u" 1 ", u" 1 "},
    {u"+1", u"+1"},
    {u"-1", u"-1"},
    {u"1,5", u"1.5"},
    {u"12,50", u"12.50"},
    {u"-12,5", u"-12.5"},
    {u"1.5", u"1.5"},
    {u".5", u".5"},
    {u",5", u".5"},
    {u"5.", u"5."},
    {u"1e5", u"1e5"},
    {u"1E-5", u"1E-5"},
    {u"1.5e+10", u"1.5e+10"},
    {u"123456789012345678901234567890", u"123456789012345678901234567890"},
    // not numbers
    {u"0 or true", nullptr},
    {u"1 or pg_sleep(1) is null", nullptr},
    {u"1--", nullptr},
    {u"1/**/", nullptr},
    {u"--1", nullptr},
    {u"- -1", nullptr},
    {u"- 1", nullptr},
    {u"+-1", nullptr},
    {u"-", nullptr},
    {u".", nullptr},
    {u"1.2.3", nullptr},
    {u"1.234,50", nullptr},
    {u"1,2,3", nullptr},
    {u"1 2", nullptr},
    {u"1e", nullptr},
    {u"e5", nullptr},
    {u"1e+", nullptr},
    {u"0x10", nullptr},
    {u"1_000", nullptr},
    {u"NaN", nullptr},
    {u"infinity", nullptr},
    {u"$1", nullptr},
    {u"$$", nullptr},
    {u"1$$", nullptr},
    {u"'1'", nullptr},
    {u"1'", nullptr},
    {u"(1)", nullptr},
    {u"1;", nullptr},
    {u"1\n", nullptr},
    {u"\t1", nullptr},
    {u"1\u00A0", nullptr},
    {u"\u3000", nullptr},
    {u"\uFF11\uFF12", nullptr},
    {u"\u0661", nullptr},
    {u"1\u2212", nullptr},
    {u"1::text", nullptr},
    {u"null", nullptr},
    {u"?", nullptr},
    {u"@x@", nullptr},
    {u"\\", nullptr},
};

TEST(Literals, ANumberIsOneTokenOrRefused) {
  for (const NumberCase& row : kNumbers) {
    SCOPED_TRACE(ToUtf8(row.typed));
    if (row.sql) {
      EXPECT_EQ(SqlNumber(row.typed, u"Código"), row.sql);
    } else {
      EXPECT_HOST_ERROR(SqlNumber(row.typed, u"Código"), errors::TypeMismatch);
    }
  }
  EXPECT_HOST_ERROR(SqlNumber(String(u"1\0", 2), u""), errors::TypeMismatch);
}

TEST(Literals, TheRefusalNamesTheFieldAndTheValue) {
  try {
    SqlNumber(u"0 or true", u"Código");
    FAIL();
  } catch (const HostError& error) {
    EXPECT_EQ(error.Description(),
              u"Código: o valor \"0 or true\" não é um número, e só um número é aceito aqui.");
  }
}

TEST(Literals, ALongValueIsCutInTheRefusalAndItsLineEndsAreBlanks) {
  try {
    SqlNumber(u"a\r\nb" + String(1000, u'x'), u"");
    FAIL();
  } catch (const HostError& error) {
    EXPECT_EQ(error.Description(), u"o valor \"a  b" + String(56, u'x') +
                                       u"...\" não é um número, e só um número é aceito aqui.");
  }
}

TEST(Literals, TheRefusalDoesNotCutACharacterOfTwoUnits) {
  try {
    SqlNumber(String(59, u'x') + u"\U0001F600" + String(60, u'x'), u"");
    FAIL();
  } catch (const HostError& error) {
    EXPECT_EQ(error.Description(), u"o valor \"" + String(59, u'x') +
                                       u"...\" não é um número, e só um número é aceito aqui.");
  }
}

class LiteralsTest : public LookupTest {
 protected:
  void Backslashes(const Variant& escapes) { connection->Backslashes(escapes); }
};

TEST_F(LiteralsTest, ATextDoublesItsApostrophes) {
  EXPECT_EQ(QuotedText(u"A'1"), u"'A''1'");
  EXPECT_EQ(QuotedText(u"''"), u"''''''");
  EXPECT_EQ(QuotedText(u""), u"''");
  EXPECT_EQ(TextContent(u"d'água -- /* $$ \" # @ ;\n"), u"d''água -- /* $$ \" # @ ;\n");
}

TEST_F(LiteralsTest, ABackslashIsDoubledWhereTheServerReadsItAsAnEscape) {
  EXPECT_EQ(QuotedText(u"C:\\'"), u"'C:\\'''");
  Backslashes(true);
  EXPECT_EQ(QuotedText(u"C:\\'"), u"'C:\\\\'''");
}

TEST_F(LiteralsTest, ABackslashIsRefusedWhenItIsUnknownHowTheServerReadsIt) {
  Backslashes(Variant::Null());
  EXPECT_EQ(QuotedText(u"sem"), u"'sem'");
  EXPECT_HOST_ERROR(QuotedText(u"\\"), errors::InvalidArgument);
}

TEST_F(LiteralsTest, APatternContainsTheTextAndKeepsItsWildcards) {
  const struct {
    const char16_t* dialect;
    const char16_t* pattern;
  } cases[] = {{u"PostgreSQL", u"AC\\\\DC [d''á]%_"},
               {u"Microsoft SQL Server", u"AC\\DC [[]d''á]%_"},
               {u"ACCESS", u"AC\\DC [[]d''á]%_"},
               {u"MS JET", u"AC\\DC [[]d''á]%_"},
               {u"SQLite", u"AC\\DC [d''á]%_"}};
  for (const auto& c : cases) {
    connection->Dbms(c.dialect);
    EXPECT_EQ(PatternContent(u"AC\\DC [d'á]%_"), c.pattern);
  }
}

TEST_F(LiteralsTest, ABackslashIsEscapedFirstForThePatternAndThenForTheText) {
  connection->Dbms(u"PostgreSQL");
  Backslashes(true);
  EXPECT_EQ(PatternContent(u"C:\\"), u"C:\\\\\\\\");
  connection->Dbms(u"Microsoft SQL Server");
  EXPECT_EQ(PatternContent(u"C:\\"), u"C:\\\\");
}

TEST_F(LiteralsTest, APatternRefusesWhatATextRefuses) {
  connection->Dbms(u"PostgreSQL");
  EXPECT_HOST_ERROR(PatternContent(String(u"a\0b", 3)), errors::InvalidArgument);
  Backslashes(Variant::Null());
  EXPECT_HOST_ERROR(PatternContent(u"\\"), errors::InvalidArgument);
}

TEST_F(LiteralsTest, ATextThatIsNotWellFormedIsRefused) {
  for (const String& text :
       {String(u"a\0b", 3), String(u"\0", 1), String(1, char16_t{0xD83D}),
        String(1, char16_t{0xDE00}) + u"x", u"x" + String(2, char16_t{0xD83D})})
    EXPECT_HOST_ERROR(QuotedText(text), errors::InvalidArgument);
  EXPECT_EQ(QuotedText(u"\U0001F600"), u"'\U0001F600'");
}

TEST_F(LiteralsTest, AValueOfAnyKindIsOneToken) {
  EXPECT_EQ(SqlLiteral(u"0 or true", u""), u"'0 or true'");
  EXPECT_EQ(SqlLiteral(Long{-15}, u""), u"-15");
  EXPECT_EQ(SqlLiteral(1.5, u""), u"1.5");
  EXPECT_EQ(SqlLiteral(1e30, u""), u"1E+30");
  EXPECT_EQ(SqlLiteral(true, u""), u"-1");
  EXPECT_EQ(SqlLiteral(Variant(), u""), u"");
  EXPECT_EQ(SqlLiteral(Variant::Null(), u""), u"");
  // Without quotes a date would be read as two divisions.
  EXPECT_HOST_ERROR(SqlLiteral(Date{42000}, u""), errors::TypeMismatch);
}

TEST_F(LiteralsTest, AnEarlierLiteralIsAlsoOneToken) {
  EXPECT_EQ(ReadyLiteral(Long{15}, u""), u"15");
  EXPECT_EQ(ReadyLiteral(u"'A''1'", u""), u"'A''1'");
  EXPECT_EQ(ReadyLiteral(u"' or ''='", u""), u"' or ''='");  // one text, although a strange one
  for (const char16_t* hostile :
       {u"'a' or 'b'", u"1 or 1=1", u"'a", u"'a'--", u"'a' ", u"'a''", u"E'a'"})
    EXPECT_HOST_ERROR(ReadyLiteral(hostile, u""), errors::TypeMismatch) << ToUtf8(hostile);
  connection->Dbms(u"PostgreSQL");
  Backslashes(true);
  EXPECT_HOST_ERROR(ReadyLiteral(u"'\\'", u""), errors::TypeMismatch);
}

TEST_F(LiteralsTest, ARefusalStatesTheReason) {
  const auto says = [](const String& text) {
    return testing::Throws<HostError>(testing::Property(&HostError::Description, text));
  };
  EXPECT_THAT([] { ReadyLiteral(u"'a' or 'b'", u"txtIrmao"); },
              says(u"txtIrmao: o valor \"'a' or 'b'\" não é um texto só."));
  EXPECT_THAT([] { QuotedText(String(u"a\0b", 3)); },
              says(u"O texto contém um caractere nulo ou incompleto, que o banco de dados não "
                   u"aceita. Digite o texto de novo."));
  Backslashes(Variant::Null());
  EXPECT_THAT([] { QuotedText(u"C:\\"); },
              says(u"O valor contém uma barra invertida (\\), e não se sabe como este banco de "
                   u"dados a lê. Tire a barra do valor."));
}

}  // namespace
}  // namespace tessaria::test
