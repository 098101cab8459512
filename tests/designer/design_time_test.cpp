// Forms that are open in Designer: which form a field is on, what opening one does and stores.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QtDesigner/QDesignerPropertySheetExtension>
#include <QtDesigner/QExtensionManager>

#include <QApplication>
#include <QTest>
#include <QTranslator>

#include "tessaria/host/form.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/text.h"
#include "tessaria/tstext.h"
#include "tests/designer/driver.h"

namespace tessaria::tests {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::vector<std::string> namesOnFormOf(qt::TsText& field) {
  std::vector<std::string> names;
  for (const auto& control : field.control().FormDoControle()->Controls())
    names.push_back(qt::toQt(control->Name()).toStdString());
  return names;
}

class DesignTime : public testing::Test {
 protected:
  QDesignerFormWindowInterface& cliente_ = *openForm(QStringLiteral("cliente.ui"));
  QDesignerFormWindowInterface& pedido_ = *openForm(QStringLiteral("pedido.ui"));
};

TEST_F(DesignTime, AFieldIsOnTheFormUnderDesignAlone) {
  auto* code = fieldOf(cliente_, QStringLiteral("txtCodigo"));
  auto* number = fieldOf(pedido_, QStringLiteral("txtNumero"));
  ASSERT_TRUE(code && number);
  EXPECT_TRUE(code->designMode());
  EXPECT_THAT(namesOnFormOf(*code), ElementsAre("lblCodigo", "txtCodigo", "txtNome", "dados"));
  EXPECT_THAT(namesOnFormOf(*number), ElementsAre("lblCodigo", "txtNumero", "txtData"));
  EXPECT_EQ(qt::toQt(code->control().FormDoControle()->Name()), QStringLiteral("Cliente"));
}

TEST_F(DesignTime, AFormWithoutItsDatabaseOpensUnchangedAndKeepsWhatWentWrong) {
  auto* code = fieldOf(cliente_, QStringLiteral("txtCodigo"));
  auto* name = fieldOf(cliente_, QStringLiteral("txtNome"));
  auto* data = cliente_.mainContainer()->findChild<qt::Adodc*>();
  EXPECT_THAT(data->designError().toStdString(), HasSubstr("Data source name not found"));
  EXPECT_EQ(qt::toQt(code->control().DesignTimeError()), data->designError());
  EXPECT_EQ(qt::toQt(name->control().DesignTimeError()), data->designError());
  EXPECT_FALSE(cliente_.isDirty());
}

TEST_F(DesignTime, NobodyHasChosenAFontOrAColour) {
  for (const QString& line : fieldOf(pedido_, QStringLiteral("txtData"))->settings()) {
    EXPECT_FALSE(line.startsWith(QLatin1String("Font"))) << line.toStdString();
    EXPECT_FALSE(line.contains(QLatin1String("olor="))) << line.toStdString();
  }
}

TEST_F(DesignTime, ASelectionPrintsNothing) {
  takeMessages();
  select(pedido_, *fieldOf(pedido_, QStringLiteral("txtData")));
  select(cliente_, *fieldOf(cliente_, QStringLiteral("txtNome")));
  EXPECT_THAT(takeMessages(), IsEmpty());
}

TEST_F(DesignTime, ThePreviewTakesKeysThroughTheMask) {
  auto* designed = fieldOf(pedido_, QStringLiteral("txtData"));
  select(pedido_, *designed);
  edit(pedido_, QStringLiteral("Mascara"), QStringLiteral("00/00"));
  designer().formWindowManager()->showPreview();
  qt::TsText* field = nullptr;
  ASSERT_TRUE(waitFor([&] {
    for (QWidget* window : QApplication::topLevelWidgets())
      if (window->isVisible() && window->objectName() == QLatin1String("Pedido"))
        field = window->findChild<qt::TsText*>(QStringLiteral("txtData"));
    return field != nullptr;
  }));
  EXPECT_FALSE(field->designMode());
  EXPECT_TRUE(designed->designMode());
  field->window()->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(field->window()));
  field->setFocus();
  QTest::qWait(50);
  operate({QStringLiteral("key"), QStringLiteral("Home"), QStringLiteral("type"),
           QStringLiteral("1a2")});
  EXPECT_TRUE(waitFor([&] { return field->text().contains(u'2'); }));
  EXPECT_EQ(field->text(), QStringLiteral("12/__"));
  field->window()->close();
  pedido_.commandHistory()->undo();
}

TEST_F(DesignTime, SettingsThatCannotBeReadAreKeptAndCannotBeEdited) {
  auto& form = *openForm(QStringLiteral("futuro.ui"));
  auto* field = fieldOf(form, QStringLiteral("txtFuturo"));
  ASSERT_NE(field, nullptr);
  EXPECT_FALSE(field->designError().isEmpty());
  EXPECT_THAT(form.contents().toStdString(), HasSubstr("<string>tessaria 99</string>"));
  EXPECT_THAT(form.contents().toStdString(), HasSubstr("<string>Nova=Coisa:1</string>"));
  auto* sheet =
      qt_extension<QDesignerPropertySheetExtension*>(designer().extensionManager(), field);
  EXPECT_FALSE(sheet->isEnabled(sheet->indexOf(QStringLiteral("Mascara"))));
  EXPECT_TRUE(sheet->isEnabled(sheet->indexOf(QStringLiteral("geometry"))));
}

TEST_F(DesignTime, BrokenSettingsAreKeptAndUnknownNamesHarmNoOthers) {
  auto& form = *openForm(QStringLiteral("quebrado.ui"));
  auto* broken = fieldOf(form, QStringLiteral("txtQuebrado"));
  EXPECT_FALSE(broken->designError().isEmpty());
  EXPECT_THAT(form.contents().toStdString(),
              HasSubstr("<string>TipoControle=Long:muitos</string>"));
  auto* strange = fieldOf(form, QStringLiteral("txtEstranho"));
  EXPECT_EQ(strange->designError(), QString());
  EXPECT_EQ(strange->mascara(), QStringLiteral("00"));
  EXPECT_FALSE(form.isDirty());
}

TEST_F(DesignTime, DesignerKeepsItsOwnLanguage) {
  EXPECT_EQ(qApp->translate("QPlatformTheme", "Cancel"), QStringLiteral("Cancel"));
  for (const auto* translator : qApp->findChildren<QTranslator*>())
    EXPECT_FALSE(translator->language().startsWith(QLatin1String("pt")));
}

}  // namespace
}  // namespace tessaria::tests
