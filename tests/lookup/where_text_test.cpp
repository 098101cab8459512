// Where conditions with values: each value is one token, whatever it contains.
#include "lookup/where_text.h"

#include "lookup/literals.h"
#include "tessaria/memory/controls.h"
#include "tessaria/memory/form.h"
#include "tessaria/text.h"
#include "tests/lookup/lookup_fixture.h"

namespace tessaria::test {
namespace {

class WhereTextTest : public LookupTest {
 protected:
  WhereTextTest() {
    auto part = form->Add<memory::Generic>(u"txtPai", u"TextBox");
    part->Properties().Add(u"Value", [this] { return value; });
    connection->Dbms(u"PostgreSQL");
  }
  ~WhereTextTest() override { form->Close(); }

  String Expanded(const String& text, const Variant& v) {
    value = v;
    return mdlObjTxt::ExpandCondition(form, text);
  }

  Variant value;
  std::shared_ptr<memory::Form> form = memory::Form::Create(u"frmCadastro");
};

struct WhereCase {
  const char16_t* text;
  Variant value;
  const char16_t* expanded;  ///< null: refused
};

const WhereCase kOrdinary[] = {
    {u"", 1.0, u""},
    {u"ativo = 1", 1.0, u"ativo = 1"},
    {u"cidade = @txtPai@", Long{15}, u"cidade = 15"},
    {u"cidade=@TXTPAI@", Long{15}, u"cidade=15"},
    {u"cidade = @txtPai", Long{15}, u"cidade = 15"},  // without a closing mark the rest is the name
    {u"cidade in (@txtPai@)", Long{15}, u"cidade in (15)"},
    {u"valor > @txtPai@ And 1 = 1", 12.5, u"valor > 12.5 And 1 = 1"},
    {u"valor > @txtPai@", u"12,5", u"valor > 12.5"},
    {u"valor > @txtPai@::numeric", u"1", u"valor > 1::numeric"},
    {u"k = @txtPai@", Variant::Null(), u"k = "},
    {u"k = @txtPai@", Variant(), u"k = "},
    {u"k = @txtPai@", u"", u"k = "},
    {u"k = @txtPai@ And a", u" 1 ", u"k =  1  And a"},
    {u"nome = '@txtPai@'", u"São Paulo", u"nome = 'São Paulo'"},
    {u"nome = '@txtPai@'", Variant::Null(), u"nome = ''"},
    {u"nome like '%@txtPai@%'", u"50%", u"nome like '%50%%'"},
    {u"\"@txtPai@\" = 1", u"coluna", u"\"coluna\" = 1"},
    {u"d = '@txtPai@'", FromCivil({2017, 12, 25}), u"d = '25/12/2017'"},
    {u"a = '@txtPai@' And b = @txtPai@", Long{7}, u"a = '7' And b = 7"},
};

TEST_F(WhereTextTest, OrdinaryValuesAreWrittenUnchanged) {
  for (const auto& row : kOrdinary) EXPECT_EQ(Expanded(row.text, row.value), row.expanded);
}

const WhereCase kQuoted[] = {
    {u"n = '@txtPai@'", u"' or ''='", u"n = ''' or ''''='''"},
    {u"n = '@txtPai@'", u"'; drop table t; --", u"n = '''; drop table t; --'"},
    {u"n = '@txtPai@'", u"joao@x", u"n = 'joao@x'"},
    {u"n = '@txtPai@'", u"@txtPai@", u"n = '@txtPai@'"},
    {u"n = '@txtPai@'", u"-- /* $$ \" # \r\n", u"n = '-- /* $$ \" # \r\n'"},
    {u"n = '@txtPai@'", u"a\\'", u"n = 'a\\'''"},
    {u"n = 'd''@txtPai@'", u"'", u"n = 'd'''''"},
    {u"n = N'@txtPai@'", u"'", u"n = N''''"},
    {u"n = E'@txtPai@'", u"\\'", u"n = E'\\\\'''"},
    {u"n = E''\n'@txtPai@'", u"\\'", u"n = E''\n'\\\\'''"},
    {u"\"@txtPai@\" = 1", u"a\" or \"b", u"\"a\"\" or \"\"b\" = 1"},
    {u"\"@txtPai@\" = 1", u"'", u"\"'\" = 1"},
};

TEST_F(WhereTextTest, AQuotedValueStaysBetweenItsQuotes) {
  for (const auto& row : kQuoted) {
    SCOPED_TRACE(ToUtf8(row.text));
    EXPECT_EQ(Expanded(row.text, row.value), row.expanded);
  }
}

TEST_F(WhereTextTest, BackslashesAreDoubledWhereTheServerReadsThemAsEscapes) {
  connection->Backslashes(true);
  EXPECT_EQ(Expanded(u"n = '@txtPai@'", u"\\'"), u"n = '\\\\'''");
  connection->Backslashes(Variant::Null());
  EXPECT_HOST_ERROR(Expanded(u"n = '@txtPai@'", u"\\"), errors::InvalidArgument);
  EXPECT_EQ(Expanded(u"n = '@txtPai@'", u"a"), u"n = 'a'");
}

// What operators type where a number is expected.
constexpr const char16_t* kHostile[] = {u"0 or true",  u"1 or pg_sleep(1) is null",
                                        u"' or ''='",  u"1--",
                                        u"1/**/",      u"--1",
                                        u"- -1",       u"1.2.3",
                                        u"0x10",       u"1_000",
                                        u"NaN",        u"\uFF11",
                                        u"$$",         u"$1",
                                        u"1,2,3",      u"1, 2",
                                        u"(1)",        u"1;",
                                        u"a",          u"null",
                                        u"'1'",        u"\"a\"",
                                        u"1\n",        u"1\u00A0",
                                        u"1e",         u"1::int",
                                        u"1+1",        u"?",
                                        u"{1}",        u"@txtPai@",
                                        u"1) or (1=1", u"\\",
                                        u"#",          u"/*",
                                        u"*/"};

constexpr const char16_t* kFamilies[] = {u"PostgreSQL", u"ACCESS", u"MS JET",
                                         u"Microsoft SQL Server", u"SQLite"};

TEST_F(WhereTextTest, OutsideQuotesOnlyANumberIsAccepted) {
  for (const auto* family : kFamilies) {
    connection->Dbms(family);
    for (const auto* hostile : kHostile) {
      for (const auto* text : {u"k = @txtPai@", u"k in (@txtPai@)", u"@txtPai@ = k"})
        EXPECT_HOST_ERROR(Expanded(text, hostile), errors::TypeMismatch) << ToUtf8(hostile);
    }
  }
}

TEST_F(WhereTextTest, BetweenQuotesAHostileValueIsOneToken) {
  for (const auto* family : kFamilies) {
    connection->Dbms(family);
    for (const auto* hostile : kHostile) {
      const String text = Expanded(u"'@txtPai@'", hostile);
      SqlScanner scanner(text, RulesFor(text));
      const SqlToken token = scanner.Next();
      EXPECT_TRUE(token.Is(SqlToken::Kind::Text)) << ToUtf8(text);
      EXPECT_EQ(token.length, text.size()) << ToUtf8(text);
    }
  }
}

TEST_F(WhereTextTest, ABlankSeparatesTwoSigns) {
  EXPECT_EQ(Expanded(u"k = -@txtPai@", Long{-5}), u"k = - -5");
  EXPECT_EQ(Expanded(u"k = -@txtPai@", Long{5}), u"k = -5");
  EXPECT_EQ(Expanded(u"k = +@txtPai@", u"+5"), u"k = + +5");
  EXPECT_EQ(Expanded(u"k %@txtPai@ = 1", Long{-5}), u"k % -5 = 1");
  EXPECT_EQ(Expanded(u"k=@txtPai@", Long{-5}), u"k=-5");
  EXPECT_EQ(Expanded(u"k<>@txtPai@", Long{-5}), u"k<>-5");
  EXPECT_EQ(Expanded(u"k>=@txtPai@", Long{-5}), u"k>=-5");
  // Such an operator would include the sign.
  EXPECT_EQ(Expanded(u"k!=@txtPai@", Long{-5}), u"k!= -5");
  EXPECT_EQ(Expanded(u"k|/@txtPai@", Long{-5}), u"k|/ -5");
  EXPECT_EQ(Expanded(u"k!=@txtPai@", Long{5}), u"k!=5");
}

TEST_F(WhereTextTest, AnEmptyValueDoesNotJoinItsNeighbours) {
  EXPECT_EQ(Expanded(u"k = 1 -@txtPai@- 2", u""), u"k = 1 - - 2");
  EXPECT_EQ(Expanded(u"n = 'a'@txtPai@'b'", u""), u"n = 'a' 'b'");
  EXPECT_EQ(Expanded(u"k in (@txtPai@)", u""), u"k in ()");
}

TEST_F(WhereTextTest, AValueThatTouchesAWordIsRefused) {
  for (const auto* text : {u"a@txtPai@", u"1@txtPai@", u"k = @txtPai@e5", u"k = @txtPai@.5",
                           u"k = @txtPai@@txtPai@", u"$@txtPai@$", u"t.@txtPai@", u"a = b@txtPai@"})
    EXPECT_HOST_ERROR(Expanded(text, Long{7}), errors::TypeMismatch) << ToUtf8(text);
  EXPECT_HOST_ERROR(Expanded(u"k@txtPai@ = 1", Long{-7}), errors::TypeMismatch);
}

TEST_F(WhereTextTest, AListIsRefusedWhereverItCouldBeOne) {
  for (const auto* list : {u"1,2", u"1,2,3", u"1, 2"}) {
    EXPECT_HOST_ERROR(Expanded(u"k in (@txtPai@)", list), errors::TypeMismatch);
    EXPECT_HOST_ERROR(Expanded(u"k in (5, @txtPai@, 6)", list), errors::TypeMismatch);
  }
}

TEST_F(WhereTextTest, AListIsRecognisedThroughBlanksAndComments) {
  for (const auto* text :
       {u"k in (\r\n@txtPai@\r\n)", u"k in\t(\t@txtPai@\t)", u"k in ( /* um */ @txtPai@ -- só\n)",
        u"k in/* a (b */(@txtPai@)", u"k IN (@txtPai@)", u"k not In (@txtPai@)",
        u"k in (1,\n@txtPai@\n, 2)", u"k in (abs(1), @txtPai@)", u"(k in (@txtPai@))"}) {
    EXPECT_HOST_ERROR(Expanded(text, u"1,2"), errors::TypeMismatch) << ToUtf8(text);
    EXPECT_NE(Expanded(text, u"12"), u"");
  }
}

TEST_F(WhereTextTest, OtherParenthesesAcceptANumberWithAComma) {
  const struct {
    const char16_t* text;
    const char16_t* expanded;
  } cases[] = {
      {u"limite > (@txtPai@)", u"limite > (12.5)"},
      {u"coalesce(limite, @txtPai@) > 0", u"coalesce(limite, 12.5) > 0"},
      {u"round(@txtPai@, 2) = x", u"round(12.5, 2) = x"},
      {u"minin(@txtPai@) = 1", u"minin(12.5) = 1"},
      {u"\"in\"(@txtPai@) = 1", u"\"in\"(12.5) = 1"},
      {u"k in (round(@txtPai@, 2))", u"k in (round(12.5, 2))"},
      {u"k in (1, 2) And (@txtPai@) > 0", u"k in (1, 2) And (12.5) > 0"},
      {u"n = 'in (' And (@txtPai@) > 0", u"n = 'in (' And (12.5) > 0"},
  };
  for (const auto& c : cases) EXPECT_EQ(Expanded(c.text, u"12,5"), c.expanded);
}

TEST_F(WhereTextTest, AParameterIsRefusedWhereAValueWouldNotBeContained) {
  for (const auto* text :
       {u"k = 1 -- @txtPai@", u"k = 1 /* @txtPai@ */", u"n = $$@txtPai@$$", u"n = $a$ @txtPai@ $a$",
        u"n = U&'@txtPai@'", u"n = B'@txtPai@'", u"n = X'@txtPai@'", u"U&\"@txtPai@\" = 1",
        u"n = E'\\@txtPai@'", u"k = 1a @txtPai@"})
    EXPECT_HOST_ERROR(Expanded(text, u"1"), errors::TypeMismatch) << ToUtf8(text);
}

TEST_F(WhereTextTest, DatesAndBracketsOfTheOtherFamiliesRefuseTheirClosingCharacter) {
  connection->Dbms(u"ACCESS");
  EXPECT_EQ(Expanded(u"d = #@txtPai@#", u"12/25/2017"), u"d = #12/25/2017#");
  EXPECT_EQ(Expanded(u"d = #@txtPai@#", u"'"), u"d = #'#");
  EXPECT_HOST_ERROR(Expanded(u"d = #@txtPai@#", u"1# or #1"), errors::TypeMismatch);
  for (const auto* family : {u"ACCESS", u"Microsoft SQL Server"}) {
    connection->Dbms(family);
    EXPECT_EQ(Expanded(u"[@txtPai@] = 1", u"a"), u"[a] = 1");
    EXPECT_HOST_ERROR(Expanded(u"[@txtPai@] = 1", u"a] = 1 or [b"), errors::TypeMismatch);
  }
}

TEST_F(WhereTextTest, ATextThatIsNotWellFormedIsRefused) {
  EXPECT_HOST_ERROR(Expanded(u"n = '@txtPai@'", String(u"a\0b", 3)), errors::InvalidArgument);
  EXPECT_HOST_ERROR(Expanded(u"n = '@txtPai@'", String(1, char16_t{0xD800})),
                    errors::InvalidArgument);
  EXPECT_HOST_ERROR(Expanded(u"k = @txtPai@", String(u"1\0", 2)), errors::InvalidArgument);
}

TEST_F(WhereTextTest, UnknownControlsAndMissingFormsAreErrors) {
  EXPECT_HOST_ERROR(Expanded(u"k = @txtOutro@", u""), errors::ControlNotFound);
  EXPECT_HOST_ERROR(Expanded(u"mail = 'a@b.com'", u""), errors::ControlNotFound);
  EXPECT_HOST_ERROR(mdlObjTxt::ExpandCondition(nullptr, u"@a@"), errors::ObjectNotSet);
  EXPECT_EQ(mdlObjTxt::ExpandCondition(nullptr, u"ativo = 1"), u"ativo = 1");
}

TEST_F(WhereTextTest, WithoutAConnectionValuesAreCheckedToo) {
  State().dbConexao = nullptr;
  EXPECT_EQ(Expanded(u"k = @txtPai@", Long{7}), u"k = 7");
  EXPECT_HOST_ERROR(Expanded(u"k = @txtPai@", u"0 or true"), errors::TypeMismatch);
}

struct Refusal {
  const char16_t* text;
  const char16_t* value;
  const char16_t* message;
};

TEST_F(WhereTextTest, ARefusalNamesTheValueAndTheReason) {
  const String badText =
      u"O texto contém um caractere nulo ou incompleto, que o banco de dados não aceita. Digite o "
      u"texto de novo.";
  const Refusal refusals[] = {
      {u"k = @txtPai@", u"0 or true",
       u"txtPai: o valor \"0 or true\" não é um número, e só um número é aceito aqui."},
      {u"k in (@txtPai@)", u"1,2",
       u"txtPai: o valor \"1,2\" é uma lista, e só um número é aceito aqui."},
      {u"k@txtPai@ = 1", u"1", u"txtPai: o valor \"1\" encosta em outra palavra da condição."},
      {u"[@txtPai@] = 1", u"a]b",
       u"txtPai: o valor \"a]b\" contém \"]\", que não é aceito entre colchetes."},
      {u"d = #@txtPai@#", u"1#2",
       u"txtPai: o valor \"1#2\" contém \"#\", que não é aceito em uma data entre \"#\"."},
      {u"k = 1 /* @txtPai@ */", u"1",
       u"txtPai: o valor \"1\" está onde a condição não aceita parâmetros (comentário ou texto "
       u"especial)."},
      {u"n = '@txtPai@'", u"a\xD800", badText.c_str()},
  };
  for (const auto& row : refusals) {
    const bool hasHash = InStr(row.text, u"#") != 0;
    const bool hasBracket = row.text[0] == u'[';
    connection->Dbms(hasHash ? u"ACCESS" : hasBracket ? u"Microsoft SQL Server" : u"PostgreSQL");
    EXPECT_THAT([&] { Expanded(row.text, row.value); },
                testing::Throws<HostError>(
                    testing::Property(&HostError::Description, testing::Eq(String(row.message)))))
        << ToUtf8(row.text);
  }
}

}  // namespace
}  // namespace tessaria::test
