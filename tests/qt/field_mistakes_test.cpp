// Mistakes in a field's settings are told to the programmer, in the log.
#include <gmock/gmock.h>

#include "tessaria/field_settings.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

QStringList& warnings() {
  static QStringList texts;
  return texts;
}

class FieldMistakes : public FieldFixture {
 protected:
  FieldMistakes() {
    warnings().clear();
    before_ = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext& context, const QString& text) {
          if (QByteArray(context.category) == "tessaria.fields") warnings() << text;
        });
  }
  ~FieldMistakes() override { qInstallMessageHandler(before_); }
  static void load(TsText* field, const QStringList& lines) {
    field->setSettings(QStringList(QStringLiteral("tessaria 1")) + lines);
  }

 private:
  QtMessageHandler before_ = nullptr;
};

TEST_F(FieldMistakes, UnknownSettingsAreNamed) {
  load(first_, {QStringLiteral("PodeSerBrnaco=Boolean:False"),
                QStringLiteral("MaxLength=Integer:5"), QStringLiteral("Browse=Object:Browse"),
                QStringLiteral("Browse.BrowseTable=String:clientes"),
                QStringLiteral("Browse.BrwTitlo=String:Clientes"),
                QStringLiteral("Browse.Coluna1Campo=String:codigo"),
                QStringLiteral("Pesquisa=Object:Pesquisa"),
                QStringLiteral("Pesquisa.Pesquisa1Campo=String:nome"),
                QStringLiteral("Pesquisa.Pesquisa1Mask=String:000")});
  EXPECT_EQ(first_->maxLength(), 5);
  EXPECT_EQ(warnings(),
            QStringList({"field 'txtPrimeiro': there is no setting 'PodeSerBrnaco'",
                         "field 'txtPrimeiro': there is no setting 'Browse.BrwTitlo'",
                         "field 'txtPrimeiro': there is no setting 'Pesquisa.Pesquisa1Mask'"}));
}

TEST_F(FieldMistakes, WhatAFieldStoresItKnows) {
  const LookupSettings lookup{.title = u"Clientes",
                              .table = u"clientes",
                              .columns = {{.field = u"codigo"}, {.field = u"nome"}},
                              .searches = {{.caption = u"Nome", .field = u"nome"}},
                              .returnFields = {u"cidade"}};
  const FieldPair pair = MakePair(lookup, {.name = u"a", .mask = u"000"}, {.name = u"b"});
  load(first_, TsText(pair.code).settings().mid(1));
  EXPECT_EQ(warnings(), QStringList());
}

TEST_F(FieldMistakes, NamesWithoutTheirControlAreNamed) {
  load(first_, {QStringLiteral("ObjetoCancelar=String:btnCancela")});
  load(second_, {QStringLiteral("ObjetoCancelar=String:BTNGRAVAR")});
  show();
  EXPECT_EQ(warnings(),
            QStringList({"field 'txtPrimeiro': ObjetoCancelar 'btnCancela' is not on this form"}));
}

TEST_F(FieldMistakes, LettersAndDigitsInAMaskThatAreNoSlotsAreNamed) {
  load(first_,
       {QStringLiteral("Mascara=String:LL-9#"), QStringLiteral("ItensMascara=String:_L-9")});
  load(second_, {QStringLiteral("Mascara=String:(##) #####-####")});
  show();
  EXPECT_EQ(
      warnings(),
      QStringList({"field 'txtPrimeiro': mask 'LL-9#': 'L' is no slot but a literal, which is "
                   "removed from what is typed",
                   "field 'txtPrimeiro': mask 'LL-9#': '9' is no slot but a literal, which is "
                   "removed from what is typed"}));
}

TEST_F(FieldMistakes, ControlsOfAnotherKindAreNamed) {
  load(first_, {QStringLiteral("LabelAssociado=String:btnGravar"),
                QStringLiteral("TxtIrmao=String:lblPrimeiro")});
  show();
  EXPECT_THAT(
      warnings(),
      testing::UnorderedElementsAre(
          QStringLiteral(
              "field 'txtPrimeiro': LabelAssociado 'btnGravar' is a control of another kind"),
          QStringLiteral(
              "field 'txtPrimeiro': TxtIrmao 'lblPrimeiro' is a control of another kind")));
}

TEST_F(FieldMistakes, ALookupInTheOlderTextsAloneIsNamed) {
  load(first_,
       {QStringLiteral("TipoControle=Long:1"), QStringLiteral("BrowseTable=String:clientes"),
        QStringLiteral("BrwCampo=String:codigo")});
  show();
  EXPECT_THAT(warnings(),
              testing::Contains(QStringLiteral(
                  "field 'txtPrimeiro': BrowseTable 'clientes' is given in the flat text only, and "
                  "the lookup reads its definition")));
}

TEST_F(FieldMistakes, APairWhoseColumnsAreNotSwappedIsNamed) {
  const auto lookup = [](const char* kind, const char* sibling) {
    return QStringList{QStringLiteral("TipoControle=Long:%1").arg(QLatin1String(kind)),
                       QStringLiteral("TxtIrmao=String:%1").arg(QLatin1String(sibling)),
                       QStringLiteral("Browse=Object:Browse"),
                       QStringLiteral("Browse.BrowseTable=String:clientes"),
                       QStringLiteral("Browse.BrwCampo=String:codigo"),
                       QStringLiteral("Browse.BrwCampoIrmao=String:nome")};
  };
  load(first_, lookup("1", "txtSegundo"));
  load(second_, lookup("3", "txtPrimeiro"));
  show();
  EXPECT_THAT(warnings(),
              testing::Contains(QStringLiteral(
                  "field 'txtPrimeiro': its column 'codigo' is not the sibling column 'nome' of "
                  "'txtSegundo': the columns of a pair are swapped")));
}

TEST_F(FieldMistakes, UnreadableSettingsNameTheField) {
  first_->setSettings({QStringLiteral("tessaria 1"), QStringLiteral("MaxLength=Integer:muito")});
  ASSERT_EQ(boxes_.boxes().size(), 1u);
  EXPECT_THAT(boxes_.boxes()[0].text.toStdString(), testing::StartsWith("Campo \"txtPrimeiro\": "));
}

}  // namespace
}  // namespace tessaria::qt::tests
