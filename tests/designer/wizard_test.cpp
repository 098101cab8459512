// The SQL wizard, opened from the property page inside Designer.
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <QtDesigner/QDesignerTaskMenuExtension>
#include <QtDesigner/QExtensionManager>

#include "tests/designer/driver.h"

namespace tessaria::tests {
namespace {

/// The property page of a field. Nobody listens where the data sources lead.
class WizardInDesigner : public testing::Test {
 protected:
  WizardInDesigner() {
    select(form_, field_);
    auto* menu = qt_extension<QDesignerTaskMenuExtension*>(designer().extensionManager(), &field_);
    menu->taskActions().first()->trigger();
    waitFor([] { return window("tessariaPage") != nullptr; });
  }
  ~WizardInDesigner() override {
    if (auto* page = window("tessariaPage")) page->reject();
  }

  static QDialog* window(const char* name) {
    for (QWidget* each : QApplication::topLevelWidgets())
      if (each->objectName() == QLatin1String(name) && each->isVisible())
        return qobject_cast<QDialog*>(each);
    return nullptr;
  }
  /// Presses the page's button and works in the wizard that it opens; closes it by Escape.
  void work(const std::function<void(QDialog& wizard)>& script) {
    QDialog& page = *window("tessariaPage");
    page.findChild<QTabWidget*>(QStringLiteral("tabPropriedade"))->setCurrentIndex(1);
    QTimer::singleShot(0, &page, [&] {
      const bool isOpen = waitFor([] { return window("frmMontaSql") != nullptr; });
      ASSERT_TRUE(isOpen);
      QDialog& wizard = *window("frmMontaSql");
      script(wizard);
      QTest::keyClick(&wizard, Qt::Key_Escape);
    });
    QTest::mouseClick(page.findChild<QPushButton*>(QStringLiteral("btnSql")), Qt::LeftButton);
  }

  BoxWatch boxes_;
  QDesignerFormWindowInterface& form_ = *openForm(QStringLiteral("cliente.ui"));
  qt::TsText& field_ = *fieldOf(form_, QStringLiteral("txtNome"));
};

TEST_F(WizardInDesigner, OffersTheDataSourcesOfTheSystem) {
  bool wasOpen = false;
  work([&](QDialog& wizard) {
    wasOpen = true;
    const auto* sources = wizard.findChild<QComboBox*>(QStringLiteral("cmbSistema"));
    for (const char* name : {"compras", "vendas"})
      EXPECT_GE(sources->findText(QLatin1String(name)), 0) << name;
    EXPECT_EQ(QApplication::activeModalWidget(), &wizard);
  });
  EXPECT_TRUE(wasOpen);
  EXPECT_NE(window("tessariaPage"), nullptr);
  EXPECT_FALSE(form_.isDirty());
}

TEST_F(WizardInDesigner, ABoxTellsOfAConnectionThatFailsAndTheWizardGoesOn) {
  bool goesOn = false;
  work([&](QDialog& wizard) {
    auto* sources = wizard.findChild<QComboBox*>(QStringLiteral("cmbSistema"));
    sources->setCurrentIndex(sources->findText(QStringLiteral("vendas")));
    auto* connect = wizard.findChild<QPushButton*>(QStringLiteral("btnConectar"));
    QTest::mouseClick(connect, Qt::LeftButton);
    goesOn = wizard.isVisible() && connect->isEnabled();
  });
  EXPECT_TRUE(goesOn);
  const QStringList texts = boxes_.takeTexts();
  ASSERT_EQ(texts.size(), 1);
  EXPECT_TRUE(texts.first().contains(QStringLiteral("/nenhum"))) << texts.first().toStdString();
}

}  // namespace
}  // namespace tessaria::tests
