#include "mask/form_helpers.h"

#include <gtest/gtest.h>

#include "tessaria/compare.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/memory/text_box.h"
#include "tessaria/text.h"
#include "tests/support/comma_locale.h"
#include "tests/support/printers.h"

namespace tessaria {
namespace {

using namespace mdlObjTxt;

/// A widget with only a position and a value.
template <class Base>
class Plain : public Base {
 public:
  explicit Plain(String typeName, host::WidgetPtr container = nullptr, Long left = 0, Long top = 0)
      : type_(std::move(typeName)), container_(std::move(container)), left_(left), top_(top) {}
  String Name() const override { return u"w"; }
  String TypeName() const override { return type_; }
  Long Left() const override { return left_; }
  Long Top() const override { return top_; }
  Long Height() const override { return 0; }
  host::WidgetPtr Container() const override { return container_; }
  Variant Get(const String& property) const override {
    if (!EqualNoCase(property, u"Value")) throw HostError(errors::NoSuchMember);
    return value;
  }
  void Let(const String&, const Variant&) override { throw HostError(errors::NoSuchMember); }

  Variant value;

 private:
  String type_;
  host::WidgetPtr container_;
  Long left_, top_;
};

using PlainWidget = Plain<host::Widget>;

class PlainStrip final : public Plain<host::TabStrip> {
 public:
  explicit PlainStrip(host::WidgetPtr container) : Plain(u"SSTab", std::move(container)) {}
  Integer Tab() const override { return tab; }
  void Tab(Integer number) override { tab = number; }
  bool TabVisible(Integer number) const override {
    if (number < 0 || number > 3) throw HostError(errors::InvalidPropertyValue);
    return number != hidden;
  }
  Integer tab = 0;
  Integer hidden = 3;
};

class PlainForm final : public Plain<host::Form> {
 public:
  PlainForm() : Plain(u"Form", nullptr, 1000, 2000) {}
  bool Visible() const override { return true; }
  host::WidgetPtr Controls(const String& name) const override {
    for (const auto& [key, widget] : controls) {
      if (EqualNoCase(key, name)) return widget;
    }
    throw HostError(errors::ControlNotFound);
  }
  std::vector<host::WidgetPtr> Controls() const override { return {}; }
  host::WidgetPtr ActiveControl() const override { return nullptr; }

  void Add(const String& name, const Variant& value) {
    auto widget = std::make_shared<PlainWidget>(u"tsText");
    widget->value = value;
    controls.emplace_back(name, std::move(widget));
  }
  std::vector<std::pair<String, host::WidgetPtr>> controls;
};

// --- PosicaoNoForm --------------------------------------------------------------------------

TEST(PosicaoNoForm, AddsThePositionsUpToTheScreen) {
  const auto form = std::make_shared<PlainForm>();
  const auto frame = std::make_shared<PlainWidget>(u"Frame", form, 100, 200);
  const auto field = std::make_shared<PlainWidget>(u"tsText", frame, 10, 20);
  for (const String& axis : {String(u"x"), String(u"X")}) {
    EXPECT_TRUE(Equal(PosicaoNoForm(field, axis), Long{1110}));
  }
  for (const String& axis : {String(u"y"), String(u"Y")}) {
    EXPECT_TRUE(Equal(PosicaoNoForm(field, axis), Long{2220}));
  }
  EXPECT_TRUE(Equal(PosicaoNoForm(form, u"x"), Long{1000}));
}

TEST(PosicaoNoForm, OtherAxesAreEmpty) {
  const auto form = std::make_shared<PlainForm>();
  for (const String& axis : {String(u""), String(u"z"), String(u"xy")}) {
    EXPECT_TRUE(PosicaoNoForm(form, axis).IsEmpty());
  }
}

TEST(PosicaoNoForm, NeedsAControl) {
  EXPECT_HOST_ERROR(PosicaoNoForm(nullptr, u"x"), errors::ObjectNotSet);
}

// --- MostraAba --------------------------------------------------------------------------------

class MostraAbaTest : public testing::Test {
 protected:
  void Run(const host::WidgetPtr& container, const String& number) {
    MostraAba(container, number, box);
  }
  /// Frames nested in one another.
  static host::WidgetPtr Frames(host::WidgetPtr inside, int count) {
    for (int i = 0; i < count; ++i) inside = std::make_shared<PlainWidget>(u"Frame", inside);
    return inside;
  }

  std::shared_ptr<PlainForm> form = std::make_shared<PlainForm>();
  std::shared_ptr<PlainStrip> strip = std::make_shared<PlainStrip>(form);
  memory::TextBox box;
};

TEST_F(MostraAbaTest, BringsTheTabToTheFrontAndFocusesTheBox) {
  Run(strip, u"2");
  EXPECT_EQ(strip->tab, 2);
  EXPECT_TRUE(box.HasFocus());
}

TEST_F(MostraAbaTest, FindsTheStripAboveFrames) {
  Run(Frames(strip, 3), u"1");
  EXPECT_EQ(strip->tab, 1);
  Run(Frames(strip, 50), u"2");
  EXPECT_EQ(strip->tab, 2);
}

TEST_F(MostraAbaTest, DoesNothingForATabThatIsInFrontOrHidden) {
  Run(strip, u"0");
  EXPECT_FALSE(box.HasFocus());
  Run(strip, u"3");
  EXPECT_EQ(strip->tab, 0);
  EXPECT_FALSE(box.HasFocus());
}

TEST_F(MostraAbaTest, DoesNothingWithoutANumberOrAStrip) {
  Run(strip, u"");
  Run(form, u"1");
  Run(Frames(form, 2), u"1");
  Run(Frames(form, 1), u"abc");
  EXPECT_EQ(strip->tab, 0);
  EXPECT_FALSE(box.HasFocus());
}

TEST_F(MostraAbaTest, NumberMustBeOne) {
  EXPECT_HOST_ERROR(Run(strip, u"abc"), errors::TypeMismatch);
  EXPECT_HOST_ERROR(Run(strip, u"40000"), errors::Overflow);
  EXPECT_HOST_ERROR(Run(strip, u"9"), errors::InvalidPropertyValue);
}

TEST_F(MostraAbaTest, AfterFiftyLevelsUsesTheContainerReached) {
  EXPECT_HOST_ERROR(Run(Frames(strip, 51), u"1"), errors::NoSuchMember);
  EXPECT_HOST_ERROR(Run(Frames(form, 60), u"1"), errors::NoSuchMember);
}

TEST_F(MostraAbaTest, NeedsAContainer) {
  EXPECT_HOST_ERROR(Run(nullptr, u"1"), errors::ObjectNotSet);
  EXPECT_HOST_ERROR(Run(Frames(nullptr, 2), u"1"), errors::ObjectNotSet);
}

// --- ExpandeParametros ------------------------------------------------------------------------

class ExpandeParametrosTest : public testing::Test {
 protected:
  ExpandeParametrosTest() {
    form->Add(u"txtCidade", Long{15});
    form->Add(u"txtNome", u"São Paulo");
    form->Add(u"txtValor", 12.5);
    form->Add(u"txtNada", Variant::Null());
    form->Add(u"txtVazio", Variant());
    form->Add(u"txtData", FromCivil({2017, 12, 25, 0, 0, 0}));
  }
  std::shared_ptr<PlainForm> form = std::make_shared<PlainForm>();
};

TEST_F(ExpandeParametrosTest, ReplacesReferencesByValues) {
  struct Case {
    String text, expanded;
  };
  const Case kCases[] = {
      {u"", u""},
      {u"ativo = 1", u"ativo = 1"},
      {u"cidade = @txtCidade@", u"cidade = 15"},
      {u"cidade = @TXTCIDADE@", u"cidade = 15"},
      {u"nome = '@txtNome@' and cidade=@txtCidade@", u"nome = 'São Paulo' and cidade=15"},
      {u"@txtCidade@@txtCidade@", u"1515"},
      {u"valor > @txtValor@", u"valor > 12.5"},
      {u"x = '@txtNada@'", u"x = ''"},
      {u"x = '@txtVazio@'", u"x = ''"},
      {u"d = '@txtData@'", u"d = '25/12/2017'"},
  };
  for (const Case& row : kCases) EXPECT_EQ(ExpandeParametros(form, row.text), row.expanded);
}

TEST_F(ExpandeParametrosTest, ANumberHasAPointWhateverTheLocale) {
  const test::CommaLocale locale;
  const struct {
    Variant value;
    const char16_t* text;
  } kCases[] = {
      {true, u"-1"},
      {false, u"0"},
      {1234567.5, u"1234567.5"},
      {-0.25, u"-0.25"},
      {2.5F, u"2.5"},
      {Currency{12345678}, u"1234.5678"},
      {DecimalFromText(u"12345678901234567890.5"), u"12345678901234567890.5"},
      {u"1.234,5", u"1.234,5"},  // a text is not changed
  };
  for (const auto& row : kCases) {
    const auto own = std::make_shared<PlainForm>();
    own->Add(u"a", row.value);
    EXPECT_EQ(ExpandeParametros(own, u"k = @a@"), u"k = " + String(row.text));
  }
}

TEST_F(ExpandeParametrosTest, AnUnpairedMarkMakesTheRestAName) {
  EXPECT_HOST_ERROR(ExpandeParametros(form, u"mail = 'a@b.com'"), errors::ControlNotFound);
  EXPECT_EQ(ExpandeParametros(form, u"cidade = @txtCidade"), u"cidade = 15");
}

TEST_F(ExpandeParametrosTest, UnknownControlIsAnError) {
  EXPECT_HOST_ERROR(ExpandeParametros(form, u"@txtOutro@"), errors::ControlNotFound);
  EXPECT_HOST_ERROR(ExpandeParametros(form, u"a @@ b"), errors::ControlNotFound);
}

TEST_F(ExpandeParametrosTest, TextWithReferencesNeedsAForm) {
  EXPECT_EQ(ExpandeParametros(nullptr, u"ativo = 1"), u"ativo = 1");
  EXPECT_HOST_ERROR(ExpandeParametros(nullptr, u"@a@"), errors::ObjectNotSet);
}

}  // namespace
}  // namespace tessaria
