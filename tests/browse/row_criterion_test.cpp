// The criteria with which the list finds a row.
#include "browse/row_criterion.h"

#include <gtest/gtest.h>

#include "tessaria/conversion.h"
#include "tests/support/printers.h"

namespace tessaria::test {
namespace {

using mdlObjTxt::EqualityCriterion;
using mdlObjTxt::StartCriterion;

TEST(RowCriterion, ANumberHasEnoughDigitsToIdentifyIt) {
  const struct {
    Variant Value;
    StringView Text;
  } cases[] = {
      {Long{-15}, u"-15"},
      {7.0, u"7"},
      {0.3, u"0,3"},
      {0.1 + 0.2, u"0,30000000000000004"},
      {9007199254740993.0, u"9007199254740992"},  // as a Double stores it
      {1e22, u"1E+22"},
      {0.3F, u"0,3"},
      {0.30000004F, u"0,30000004172325134"},
      {DecimalFromText(u"9007199254740993"), u"9007199254740993"},
      {DecimalFromText(u"79228162514264337593543950335"), u"79228162514264337593543950335"},
      {DecimalFromText(u"0.0000000000000000000000000002"), u"0,0000000000000000000000000002"},
      {CCur(Variant(u"922337203685477,5807")), u"922337203685477,5807"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(EqualityCriterion(u"codigo", c.Value), u"codigo = " + String(c.Text));
}

TEST(RowCriterion, DatesAndBooleansAreWrittenAsTheirTexts) {
  EXPECT_EQ(EqualityCriterion(u"dia", FromCivil({2016, 5, 3})), u"dia = 03/05/2016");
  EXPECT_EQ(EqualityCriterion(u"dia", FromCivil({2016, 5, 3, 10, 20, 31})),
            u"dia = 03/05/2016 10:20:31");
  EXPECT_EQ(EqualityCriterion(u"ativo", true), u"ativo = Verdadeiro");
  EXPECT_EQ(EqualityCriterion(u"ativo", false), u"ativo = Falso");
}

TEST(RowCriterion, ANameThatWouldEndTooEarlyIsInBrackets) {
  const struct {
    StringView Name, Written;
  } names[] = {{u"codigo", u"codigo"},
               {u"código", u"código"},
               {u"a\"b", u"a\"b"},
               {u"a'b", u"a'b"},
               {u"a]b", u"a]b"},
               {u"a.b", u"a.b"},
               {u"o código", u"[o código]"},
               {u"a=b", u"[a=b]"},
               {u"a<b", u"[a<b]"},
               {u"a>b", u"[a>b]"},
               {u"[codigo", u"[[codigo]"},
               {u"a ]b", u"[a ]]b]"}};
  for (const auto& name : names) {
    EXPECT_EQ(StartCriterion(String(name.Name), u"D'A"), String(name.Written) + u" like 'D''A%'");
    EXPECT_EQ(EqualityCriterion(String(name.Name), Long{1}), String(name.Written) + u" = 1");
  }
}

}  // namespace
}  // namespace tessaria::test
