// Values made to change a lookup are typed into its field and sent to a real server: none finds a
// row other than its own, and none runs anything.
#include "browse/search_clause.h"
#include "lookup/description_lookup.h"
#include "lookup/relation_check.h"
#include "tessaria/memory/application.h"
#include "tessaria/memory/text_box.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"
#include "tests/sql/database_test.h"

namespace tessaria::sql::test {
namespace {

constexpr const char16_t* kHostile[] = {
    u"1 or '' = E'' --\n'\\''; drop table alvo; --",
    u"0 or true",
    u"1 or pg_sleep(1) is null",
    u"' or ''='",
    u"' or 1=1 --",
    u"\\' or 1=1 --",
    u"\\'; drop table alvo; --",
    u"1; drop table alvo",
    u"1--",
    u"1/**/",
    u"--1",
    u"- -1",
    u"$$",
    u"$$ or $$",
    u"E'\\'; drop table alvo; --",
    u"(select 1)",
    u"1) or (1=1",
    u"1::int",
    u"nosuch(1)",
    u"\"codigo\"",
    u"codigo",
    u"?",
    u"{fn now()}",
    u"0x1",
    u"1_0",
    u"C:\\",
    u"AC\\DC",
    u"\\\\servidor\\pasta",
    u"[a-z]",
    u"NaN",
    u"\uFF11",
    u"\u2019 or 1=1 --",
    u"1\u00A0or true",
};

class HostileValues : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    Run(u"create table alvo (codigo integer primary key, nome text)");
    Run(u"insert into alvo values (1, 'um'), (2, 'dois')");
    State().dbConexao = connection_;
    browse_.BrowseTable(u"alvo");
    browse_.BrwCampoIrmao(u"codigo");
  }
  void TearDown() override { State().dbConexao = nullptr; }

  bool Exists(const String& column, const String& typed) {
    String where;
    return mdlObjTxt::ChecaRelacao(u"alvo", column, typed, TipoControle::Browse, nullptr, false,
                                   true, false, where, {}, nullptr, 0, false);
  }
  Variant CodeOf(const String& column, const Variant& typed) {
    browse_.BrwCampo(column);
    return mdlObjTxt::AchaDescr(browse_, typed, u"txtCodigo", {}, 0);
  }
  void ExpectAllIsThere() { EXPECT_SAME(Scalar(u"select count(*)::integer from alvo"), Long{2}); }

  memory::Application app_;
  Browse browse_;
};

TEST_F(HostileValues, AnOrdinaryValueIsFound) {
  EXPECT_TRUE(Exists(u"codigo", u"1"));
  EXPECT_TRUE(Exists(u"codigo", u" 2 "));
  EXPECT_FALSE(Exists(u"codigo", u"3"));
  EXPECT_TRUE(Exists(u"nome", u"Dois"));
  EXPECT_SAME(CodeOf(u"nome", u"dois"), Long{2});
  EXPECT_SAME(CodeOf(u"codigo", Long{2}), Long{2});
}

TEST_F(HostileValues, NoneIsFoundAsACodeOfNumbers) {
  for (const char16_t* typed : kHostile) {
    EXPECT_FALSE(Exists(u"codigo", typed)) << ToUtf8(typed);
    EXPECT_EQ(app_.TakeBoxes().size(), 1u) << ToUtf8(typed);
    EXPECT_SAME(CodeOf(u"codigo", typed), Variant());
  }
  ExpectAllIsThere();
}

TEST_F(HostileValues, EachIsFoundAsATextByItself) {
  for (const bool backslashes : {false, true}) {
    Run(backslashes ? u"set standard_conforming_strings to off"
                    : u"set standard_conforming_strings to on");
    for (const char16_t* typed : kHostile) {
      SCOPED_TRACE(ToUtf8(typed));
      EXPECT_FALSE(Exists(u"nome", typed));
      EXPECT_SAME(CodeOf(u"nome", typed), Variant());
      const auto rows = Edit(u"select codigo, nome from alvo where codigo = 2");
      Set(rows, u"nome", typed);
      rows->Update();
      EXPECT_TRUE(Exists(u"nome", typed));
      EXPECT_SAME(CodeOf(u"nome", typed), Long{2});
      EXPECT_SAME(Scalar(u"select nome from alvo where codigo = 2"), typed);
      Run(u"update alvo set nome = 'dois' where codigo = 2");
    }
    EXPECT_TRUE(app_.TakeBoxes().empty());
  }
  ExpectAllIsThere();
}

TEST_F(HostileValues, EachMatchesTheTextThatBeginsWithItInAPattern) {
  for (const bool backslashes : {false, true}) {
    Run(backslashes ? u"set standard_conforming_strings to off"
                    : u"set standard_conforming_strings to on");
    for (const char16_t* typed : kHostile) {
      SCOPED_TRACE(ToUtf8(typed));
      const auto rows = Edit(u"select codigo, nome from alvo where codigo = 2");
      Set(rows, u"nome", String(typed) + u" e mais");
      rows->Update();
      memory::TextBox box;
      box.Text(typed);
      mdlObjTxt::CompletaDescr(box, u"alvo", u"nome", Integer{0}, false, {}, nullptr,
                               u"codigo = 2");
      EXPECT_EQ(box.Text(), String(typed) + u" e mais");
      EXPECT_SAME(Scalar(u"select codigo from alvo where " +
                         mdlObjTxt::SearchCondition(u"nome", 8, 3, typed) + u" and codigo = 2"),
                  Long{2});
    }
    EXPECT_TRUE(app_.TakeBoxes().empty());
  }
}

TEST_F(HostileValues, ATextThatWouldBeCutIsNeitherLookedUpNorStored) {
  const String cut(u"um\0 or true", 11);
  EXPECT_FALSE(Exists(u"nome", cut));
  EXPECT_SAME(CodeOf(u"nome", cut), Variant());
  EXPECT_EQ(app_.TakeBoxes().size(), 2u);
  const auto rows = Edit(u"select codigo, nome from alvo where codigo = 2");
  EXPECT_HOST_ERROR(Set(rows, u"nome", cut), errors::InvalidArgument);
  EXPECT_HOST_ERROR(Set(rows, u"nome", String(1, char16_t{0xD83D})), errors::InvalidArgument);
  rows->Update();
  EXPECT_SAME(Scalar(u"select nome from alvo where codigo = 2"), u"dois");
  Set(rows, u"nome", u"\U0001F600\U0010FFFF");
  rows->Update();
  EXPECT_SAME(Scalar(u"select nome from alvo where codigo = 2"), u"\U0001F600\U0010FFFF");
}

}  // namespace
}  // namespace tessaria::sql::test
