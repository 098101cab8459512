// Check boxes and option buttons as the fields of a form see them.
#include <QCheckBox>
#include <QRadioButton>

#include "mask/form_helpers.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/qt/form.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

class CheckBox : public FieldFixture {
 protected:
  CheckBox() {
    check_->setObjectName(QStringLiteral("chkAtivo"));
    option_->setObjectName(QStringLiteral("optFisica"));
    for (QWidget* widget : std::initializer_list<QWidget*>{check_, option_})
      window_->layout()->addWidget(widget);
    form_ = makeForm(*window_);
  }
  String expanded(const String& text) { return mdlObjTxt::ExpandeParametros(form_, text); }

  QCheckBox* check_ = new QCheckBox;
  QRadioButton* option_ = new QRadioButton;
  host::FormPtr form_;
};

TEST_F(CheckBox, TypesHaveTheNamesOfTheirKind) {
  EXPECT_EQ(form_->Controls(u"chkAtivo")->TypeName(), u"CheckBox");
  EXPECT_EQ(form_->Controls(u"optFisica")->TypeName(), u"OptionButton");
}

TEST_F(CheckBox, ItsValueIsANumberInAStatement) {
  EXPECT_EQ(expanded(u"ativo = @chkAtivo@"), u"ativo = 0");
  check_->setChecked(true);
  EXPECT_EQ(expanded(u"ativo = @chkAtivo@"), u"ativo = 1");
  check_->setCheckState(Qt::PartiallyChecked);
  EXPECT_EQ(expanded(u"ativo = @chkAtivo@"), u"ativo = 2");
}

TEST_F(CheckBox, ItsValueIsAssignedAsANumber) {
  const auto box = form_->Controls(u"chkAtivo");
  const std::pair<Variant, Qt::CheckState> rows[] = {{Long{1}, Qt::Checked},
                                                     {Long{0}, Qt::Unchecked},
                                                     {u"2", Qt::PartiallyChecked},
                                                     {true, Qt::Checked},
                                                     {false, Qt::Unchecked}};
  for (const auto& [value, state] : rows) {
    box->Let(u"Value", value);
    EXPECT_EQ(check_->checkState(), state);
  }
  for (const Long number : {-1, 3}) EXPECT_THROW(box->Let(u"Value", number), HostError);
}

TEST_F(CheckBox, AnOptionButtonIsABoolean) {
  const auto option = form_->Controls(u"optFisica");
  EXPECT_TRUE(option->Get(u"Value").TryGet<bool>());
  option->Let(u"Value", true);
  EXPECT_TRUE(option_->isChecked());
  EXPECT_EQ(CStr(option->Get(u"Value")), CStr(Variant(true)));
}

// They are not command buttons: a required field lets the focus pass to them.
TEST_F(CheckBox, ARequiredBlankAllowsTheFocusOnThem) {
  first_->setPodeSerBranco(false);
  show();
  for (QWidget* widget : std::initializer_list<QWidget*>{check_, option_}) {
    first_->setFocus();
    settleEvents();
    widget->setFocus(Qt::TabFocusReason);
    settleEvents();
    EXPECT_EQ(boxes_.takeTexts(), QStringList());
    EXPECT_EQ(window_->focusWidget(), widget);
  }
  first_->setFocus();
  settleEvents();
  button_->setFocus(Qt::TabFocusReason);
  settleEvents();
  EXPECT_EQ(boxes_.takeTexts().size(), 1);
}

}  // namespace
}  // namespace tessaria::qt::tests
