// Oddities of the guide that are the outcome of several rules together.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tessaria/conversion.h"
#include "tessaria/field_settings.h"
#include "tessaria/memory/application.h"
#include "tessaria/memory/form.h"
#include "tessaria/memory/ts_text.h"
#include "tessaria/tstext.h"
#include "tessaria/utf8.h"

namespace tessaria::tests {
namespace {

class Oddities : public testing::Test {
 protected:
  /// Types into a field of these settings and leaves it.
  tsText& Typed(const FieldSettings& settings, StringView keys) {
    const auto field = form_->Add<memory::TsText>(settings);
    form_->Add<memory::TsText>(String(u"outro"));
    form_->Show();
    form_->Focus(settings.name);
    form_->Type(keys);
    form_->Press(memory::Key::Tab);
    return **field;
  }

  memory::Application application_;
  std::shared_ptr<memory::Form> form_ = memory::Form::Create(u"frmOddities");
};

TEST_F(Oddities, ATwoDigitYearIsCutAfterItIsCompleted) {
  const auto& field =
      Typed({.name = u"dia", .mask = u"dd/mm/yy", .promptInclude = true}, u"150839");
  EXPECT_EQ(ToUtf8(field.Text()), "15/08/20");
  EXPECT_TRUE(application_.Boxes().empty());
}

TEST_F(Oddities, ALiteralDigitIsMissingFromTheValue) {
  const auto& field = Typed({.name = u"fone", .mask = u"+55 (00) 0000"}, u"115678");
  EXPECT_EQ(ToUtf8(field.Texto()), "11678");
}

TEST_F(Oddities, ALongSuffixIsRepeated) {
  const auto& field = Typed({.name = u"peso", .mask = u"$$$ kg", .maxLength = 6}, u"12");
  EXPECT_EQ(ToUtf8(field.Text()), "12 kgkgg");
}

TEST_F(Oddities, ANumberLosesItsDecimalsUnderAMaskWithAComma) {
  const auto& field = Typed({.name = u"valor", .mask = u"$$$,$$", .maxLength = 8}, u"12,50");
  EXPECT_EQ(ToUtf8(field.Text()), "13");
  EXPECT_EQ(ToUtf8(CStr(field.Value())), "13");
}

TEST_F(Oddities, LettersInANumberAreAnErrorAndEmptyTheBox) {
  FieldSettings number{.name = u"valor", .mask = u"$$$$", .maxLength = 5, .type = DataType::Number};
  EXPECT_EQ(ToUtf8(Typed(number, u"1km").Text()), "");
  EXPECT_EQ(application_.Boxes().size(), 1U);
}

TEST_F(Oddities, LettersInANumberAreTheValueOfATextField) {
  const auto& field = Typed({.name = u"valor", .mask = u"$$$$", .maxLength = 5}, u"1km");
  EXPECT_EQ(ToUtf8(CStr(field.Value())), "1km");
  EXPECT_TRUE(application_.Boxes().empty());
}

TEST_F(Oddities, ALeapDayOf1900IsRefusedOnlyWhereItBecomesADate) {
  FieldSettings day{.name = u"dia", .mask = u"dd/mm/yyyy", .promptInclude = true};
  EXPECT_EQ(ToUtf8(CStr(Typed(day, u"29021900").Value())), "29/02/1900");
  EXPECT_TRUE(application_.Boxes().empty());
}

TEST_F(Oddities, ALeapDayOf1900IsNoDateOfADateField) {
  FieldSettings day{
      .name = u"dia", .mask = u"dd/mm/yyyy", .type = DataType::Date, .promptInclude = true};
  EXPECT_EQ(Typed(day, u"29021900").Value().Type(), Variant::Kind::Empty);
  EXPECT_EQ(application_.Boxes().size(), 1U);
}

}  // namespace
}  // namespace tessaria::tests
