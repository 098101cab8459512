// A control in a form file: its settings, read without side effects, through Qt's form loader.
#include "tessaria/browse_definition.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/text.h"
#include "tessaria/tstext.h"
#include "tests/qt/field_fixture.h"
#include "tests/qt/form_loader.h"

namespace tessaria::qt::tests {
namespace {

const QStringList kStored = {
    QStringLiteral("tessaria 1"),
    QStringLiteral("Mascara=String:000.000.000-00"),
    QStringLiteral("ItensMascara=String:_.-"),
    QStringLiteral("LabelAssociado=String:lblCPF"),
    QStringLiteral("PodeSerBranco=Boolean:False"),
    QStringLiteral("UsaChecaRelacao=Boolean:False"),
    QStringLiteral("MaxLength=Long:14"),
};

QString formWith(const QStringList& settings) {
  return QStringLiteral(R"(<?xml version="1.0" encoding="UTF-8"?>
<ui version="4.0">
 <class>Form</class>
 <widget class="QWidget" name="frmCliente">
  <layout class="QVBoxLayout">
   <item>
    <widget class="QLabel" name="lblCPF">
     <property name="text"><string>&amp;CPF</string></property>
    </widget>
   </item>
   <item>
    <widget class="tessaria::qt::TsText" name="txtCPF">
     <property name="settings"><stringlist><string>%1</string></stringlist></property>
    </widget>
   </item>
   <item>
    <widget class="tessaria::qt::Adodc" name="dcCliente">
     <property name="RecordSource"><string>Cliente</string></property>
    </widget>
   </item>
  </layout>
 </widget>
</ui>)")
      .arg(settings.join(QStringLiteral("</string><string>")));
}

class Settings : public FieldFixture {
 protected:
  static bool holds(const TsText& field, const QString& key) {
    for (const QString& line : field.settings())
      if (line.startsWith(key + QLatin1Char('='))) return true;
    return false;
  }
};

TEST_F(Settings, AreReadableVersionedLines) {
  first_->setMascara(QStringLiteral("00000"));
  first_->setPodeSerBranco(false);
  const QStringList lines = first_->settings();
  EXPECT_EQ(lines.front(), QStringLiteral("tessaria 1"));
  EXPECT_TRUE(lines.contains(QStringLiteral("Mascara=String:00000")));
  EXPECT_FALSE(holds(*first_, QStringLiteral("TipoControle")));  // the default is not stored
}

TEST_F(Settings, CanBeCopiedToAnotherControl) {
  first_->setMascara(QStringLiteral("$$$$.$$"));
  first_->setTipoControle(TsText::Browse);
  first_->setBrowseTable(QStringLiteral("Cidade"));
  first_->setMaxLength(9);
  first_->setBackColor(QColor(1, 2, 3));
  second_->setSettings(first_->settings());
  EXPECT_EQ(second_->settings(), first_->settings());
  EXPECT_EQ(second_->browseTable(), QStringLiteral("Cidade"));
  EXPECT_EQ(second_->control().Browse()->BrowseTable(), u"Cidade");
  EXPECT_EQ(second_->backColor(), QColor(1, 2, 3));
}

TEST_F(Settings, AreReadWithoutSideEffects) {
  QStringList told;
  QObject::connect(second_, &TsText::propertyChanged, [&](const QString& name) { told << name; });
  QObject::connect(second_, &TsText::changed, [&] { told << QStringLiteral("changed"); });
  second_->setSettings({"tessaria 1", "Mascara=String:00", "TipoControle=Long:5", "Text=String:9"});
  EXPECT_EQ(told, QStringList());
  EXPECT_EQ(second_->text(), QStringLiteral("9"));
  EXPECT_FALSE(second_->promptInclude());  // assigning type 5 would have set it
}

TEST_F(Settings, AnEmptyListGivesTheStateOfANewControl) {
  first_->setSettings({});
  EXPECT_TRUE(first_->fieldFont().bold());
}

TEST_F(Settings, AnInvalidListReportsWhatIsWrong) {
  first_->setMascara(QStringLiteral("00"));
  first_->setSettings({"tessaria 1", "Mascara"});
  ASSERT_EQ(boxes_.boxes().size(), 1u);
  EXPECT_EQ(first_->mascara(), QStringLiteral("00"));
  first_->setSettings({"tessaria 1", "MaxLength=Long:abc"});
  EXPECT_EQ(boxes_.boxes().size(), 2u);
}

TEST_F(Settings, AFormFileMakesTheControl) {
  const auto form = loadForm(formWith(kStored));
  ASSERT_NE(form, nullptr);
  auto* field = form->findChild<TsText*>(QStringLiteral("txtCPF"));
  ASSERT_NE(field, nullptr);
  EXPECT_EQ(field->mascara(), QStringLiteral("000.000.000-00"));
  EXPECT_FALSE(field->podeSerBranco());
  EXPECT_FALSE(field->designMode());
  auto* data = form->findChild<Adodc*>(QStringLiteral("dcCliente"));
  ASSERT_NE(data, nullptr);
  EXPECT_EQ(data->recordSource(), QStringLiteral("Cliente"));

  showActive(*form);
  field->setFocus();
  settleEvents();
  type(*form, QStringLiteral("12345678909"));
  EXPECT_EQ(field->text(), QStringLiteral("123.456.789-09"));
  EXPECT_EQ(editOf(*field)->accessibleName(), QStringLiteral("CPF"));
}

TEST_F(Settings, AFormFileNeedsOnlyTheSettings) {
  const auto form = loadForm(formWith(kStored));
  ASSERT_NE(form, nullptr);
  auto* field = form->findChild<TsText*>(QStringLiteral("txtCPF"));
  ASSERT_NE(field, nullptr);
  field->setMsgBrowse(QStringLiteral("Nada achado"));
  const auto again = loadForm(formWith(field->settings()));
  ASSERT_NE(again, nullptr);
  EXPECT_EQ(again->findChild<TsText*>(QStringLiteral("txtCPF"))->msgBrowse(),
            QStringLiteral("Nada achado"));
}

}  // namespace
}  // namespace tessaria::qt::tests
