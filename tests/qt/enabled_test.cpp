// A field's Enabled, switched by the program, by a connection by name, or by a plain widget call.
#include <QCheckBox>
#include <QGroupBox>

#include "tessaria/memory/connection.h"
#include "tests/qt/field_fixture.h"
#include "tests/qt/form_loader.h"

namespace tessaria::qt::tests {
namespace {

class Enabled : public FieldFixture {
 protected:
  /// Checks that everything that shows the flag agrees with it.
  void expectEnabled(bool enabled) {
    EXPECT_EQ(first_->isFieldEnabled(), enabled);
    EXPECT_EQ(first_->property("Enabled").toBool(), enabled);
    EXPECT_EQ(editOf(*first_)->isEnabled(), enabled);
    EXPECT_EQ(first_->isEnabled(), enabled);
  }
};

TEST_F(Enabled, ConnectionsByNameReachTheControl) {
  QCheckBox check;
  show();
  QObject::connect(&check, SIGNAL(toggled(bool)), first_, SLOT(setDisabled(bool)));
  check.setChecked(true);
  expectEnabled(false);
  check.setChecked(false);
  expectEnabled(true);
  check.disconnect();
  QObject::connect(&check, SIGNAL(toggled(bool)), first_, SLOT(setEnabled(bool)));
  check.setChecked(true);
  expectEnabled(true);
  check.setChecked(false);
  expectEnabled(false);
}

TEST_F(Enabled, SwitchingTheFieldAsAPlainWidgetSwitchesTheControl) {
  show();
  QWidget* const widget = first_;
  for (const bool enabled : {false, true, false}) {
    widget->setEnabled(enabled);
    expectEnabled(enabled);
  }
}

TEST_F(Enabled, APairIsSwitchedTogether) {
  window_->setProperty("dbForm",
                       QVariant::fromValue(host::ConnectionPtr(memory::Connection::CreateOpen())));
  first_->setTipoControle(TsText::Browse);
  first_->setTxtIrmao(QStringLiteral("txtSegundo"));
  second_->setTipoControle(TsText::Descricao);
  second_->setTxtIrmao(QStringLiteral("txtPrimeiro"));
  show();
  QWidget* const widget = first_;
  for (const bool enabled : {false, true}) {
    widget->setEnabled(enabled);
    EXPECT_EQ(second_->isFieldEnabled(), enabled);
    EXPECT_EQ(editOf(*second_)->isEnabled(), enabled);
  }
}

TEST_F(Enabled, BothWaysMayBeMixed) {
  show();
  QWidget* const widget = first_;
  first_->setEnabled(false);
  widget->setEnabled(true);
  expectEnabled(true);
  widget->setEnabled(false);
  first_->setEnabled(true);
  expectEnabled(true);
}

TEST_F(Enabled, DisabledSurroundingsDoNotChangeTheFlag) {
  show();
  window_->setEnabled(false);
  EXPECT_TRUE(first_->isFieldEnabled());
  first_->setEnabled(false);
  window_->setEnabled(true);
  expectEnabled(false);
}

TEST_F(Enabled, AFormFileMayConnectIt) {
  const auto form = loadForm(QStringLiteral(R"(<?xml version="1.0" encoding="UTF-8"?>
<ui version="4.0"><class>Form</class>
 <widget class="QWidget" name="Form"><layout class="QVBoxLayout">
  <item><widget class="QCheckBox" name="chkUsa"/></item>
  <item><widget class="tessaria::qt::TsText" name="txtCampo"/></item>
 </layout></widget>
 <connections><connection><sender>chkUsa</sender><signal>toggled(bool)</signal>
  <receiver>txtCampo</receiver><slot>setDisabled(bool)</slot></connection></connections>
</ui>)"));
  ASSERT_NE(form, nullptr);
  auto* field = form->findChild<TsText*>();
  ASSERT_NE(field, nullptr);
  form->findChild<QCheckBox*>()->setChecked(true);
  EXPECT_FALSE(field->isFieldEnabled());
  EXPECT_FALSE(editOf(*field)->isEnabled());
}

}  // namespace
}  // namespace tessaria::qt::tests
