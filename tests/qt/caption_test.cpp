// The text of labels in messages and for late-bound programs, and fields that are not on a form.
#include "tessaria/qt/form.h"
#include "tessaria/qt/text.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

struct Caption {
  const char* text;
  Qt::TextFormat format;
  const char* caption;
};
void PrintTo(const Caption& row, std::ostream* out) { *out << row.text; }

class Captions : public FieldFixture, public testing::WithParamInterface<Caption> {};

TEST_P(Captions, HaveNeitherMnemonicNorMarkup) {
  label_->setTextFormat(GetParam().format);
  label_->setText(QString::fromUtf8(GetParam().text));
  const QString expected = QString::fromUtf8(GetParam().caption);
  const auto port = std::dynamic_pointer_cast<host::Label>(makeWidget(*label_));
  EXPECT_EQ(toQt(port->Caption()), expected);
  EXPECT_EQ(toQt(*port->Get(u"Caption").TryGet<String>()), expected);
}

INSTANTIATE_TEST_SUITE_P(Labels, Captions,
                         testing::Values(Caption{"&Nome", Qt::AutoText, "Nome"},
                                         Caption{"Compra && venda", Qt::AutoText, "Compra & venda"},
                                         Caption{"<b>&amp;Nome</b> do cliente", Qt::AutoText,
                                                 "Nome do cliente"},
                                         Caption{"<b>Nome</b>", Qt::PlainText, "<b>Nome</b>"},
                                         Caption{"**Nome**", Qt::MarkdownText, "Nome"}));

TEST_F(Captions, StandInMessages) {
  label_->setText(QStringLiteral("<i>Da&ta</i>"));
  label_->setTextFormat(Qt::RichText);
  first_->setDesignMode(true);
  first_->setLabelAssociado(QStringLiteral("lblPrimeiro"));
  first_->setDesignMode(false);
  first_->setMascara(QStringLiteral("dd/mm/yyyy"));
  show();
  type(*window_, QStringLiteral("31022017"));
  leave();
  EXPECT_EQ(boxes_.takeTexts(), QStringList({"Data Invalido(a), Corrija Por Favor"}));
}

TEST_F(Captions, AMissingLabelIsReportedWithItsName) {
  first_->setDesignMode(true);
  first_->setLabelAssociado(QStringLiteral("lblNada"));
  first_->setDesignMode(false);
  show();
  EXPECT_EQ(boxes_.takeTexts(),
            QStringList(QStringLiteral("Controle não encontrado: 'lblNada', em LabelAssociado de "
                                       "'txtPrimeiro'")));
}

class Alone : public FieldFixture {};

TEST_F(Alone, AFieldWithoutAParentAcceptsItsSettingsWithoutMessages) {
  TsText field;
  for (const auto kind : {TsText::Normal, TsText::Browse, TsText::Calendario, TsText::Descricao,
                          TsText::Diretorio, TsText::Calculadora})
    field.setTipoControle(kind);
  field.setMascara(QStringLiteral("00/00/0000"));
  field.setEnabled(false);
  field.setEnabled(true);
  field.setValue(QStringLiteral("1"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

TEST_F(Alone, AnUnknownKindIsKeptAndBehavesAsNormal) {
  EXPECT_TRUE(first_->setProperty("TipoControle", 99));
  EXPECT_EQ(first_->property("TipoControle").toInt(), 99);
  first_->setSettings({QStringLiteral("tessaria 1"), QStringLiteral("TipoControle=Long:-7")});
  EXPECT_EQ(int(first_->tipoControle()), -7);
  show();
  type(*window_, QStringLiteral("a"));
  EXPECT_EQ(first_->text(), QStringLiteral("a"));
  EXPECT_EQ(boxes_.takeTexts(), QStringList());
}

}  // namespace
}  // namespace tessaria::qt::tests
