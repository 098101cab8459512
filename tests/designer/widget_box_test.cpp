// A field from the widget box to the saved file, by mouse and keyboard.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QAbstractItemView>

#include "tests/designer/hands.h"

namespace tessaria::tests {
namespace {

using testing::HasSubstr;
using testing::Not;

class WidgetBox : public testing::Test {
 protected:
  WidgetBox() { select(form_, *form_.mainContainer()); }

  QDesignerFormWindowInterface& form_ = *openForm(QStringLiteral("vazio.ui"));
};

TEST_F(WidgetBox, ASecondCopyOfThePluginOffersNothing) {
  int fields = 0;
  for (const auto* view : designer().widgetBox()->findChildren<QAbstractItemView*>()) {
    const auto* model = view->model();
    for (int row = 0; row < model->rowCount(); ++row)
      fields += model->index(row, 0).data().toString() == QLatin1String("TsText") ? 1 : 0;
  }
  EXPECT_EQ(fields, 1);
}

TEST_F(WidgetBox, AFieldIsDroppedEditedUndoneRedoneAndSaved) {
  auto* field = qobject_cast<qt::TsText*>(drop(form_, QStringLiteral("TsText"), QPoint(150, 120)));
  ASSERT_NE(field, nullptr);
  EXPECT_TRUE(field->designMode());
  const QStringList dropped = field->settings();

  typeProperty(QStringLiteral("Mascara"), QStringLiteral("00/00"));
  EXPECT_EQ(field->mascara(), QStringLiteral("00/00"));
  const QStringList edited = field->settings();
  form_.commandHistory()->undo();
  EXPECT_EQ(field->settings(), dropped);
  form_.commandHistory()->redo();
  EXPECT_EQ(field->settings(), edited);
  save(form_);

  const QString saved = contentsOf(form_.fileName());
  EXPECT_THAT(saved.toStdString(), HasSubstr("<stringlist notr=\"true\">"));
  EXPECT_THAT(saved.toStdString(), HasSubstr("Mascara=String:00/00"));
  // A new field is bold, in whatever font its form has.
  EXPECT_EQ(saved.count(QLatin1String("Font=")),
            saved.count(QLatin1String("Font=Font:0 bold name=<")));
  EXPECT_THAT(saved.toStdString(), Not(HasSubstr("olor=")));

  const std::string source =
      outputOf(QStringLiteral(TESSARIA_UIC), {QStringLiteral("--no-protection"), form_.fileName()});
  EXPECT_THAT(source, HasSubstr("setSettings"));
  EXPECT_THAT(source.substr(source.find("void retranslateUi")), Not(HasSubstr("setSettings")));

  const std::string loaded = outputOf(QStringLiteral(TESSARIA_LOAD_FORM), {form_.fileName()});
  EXPECT_EQ(loaded,
            (QStringLiteral("tsText: ") + edited.join(QStringLiteral(" | ")) + QStringLiteral("\n"))
                .toStdString());
}

}  // namespace
}  // namespace tessaria::tests
