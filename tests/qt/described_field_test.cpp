// Fields and data controls that are made from one value in code.
#include "tessaria/field_settings.h"

#include "tessaria/browse_definition.h"
#include "tessaria/pesquisa_definition.h"
#include "tessaria/qt/adodc.h"
#include "tests/qt/field_fixture.h"

namespace tessaria::qt::tests {
namespace {

class DescribedField : public FieldFixture {
 protected:
  TsText& add(const FieldSettings& settings) {
    auto* field = new TsText(settings, window_.get());
    window_->layout()->addWidget(field);
    return *field;
  }
};

TEST_F(DescribedField, IsLoadedAsFromAFile) {
  const TsText described({.name = u"data",
                          .kind = TipoControle::Calendario,
                          .mask = u"dd/mm/yyyy",
                          .mayBeBlank = false,
                          .label = u"lblQueNaoHa"});
  TsText loaded;
  loaded.setSettings(described.settings());
  EXPECT_EQ(loaded.settings(), described.settings());
  EXPECT_EQ(described.objectName(), QStringLiteral("data"));
  EXPECT_EQ(loaded.labelAssociado(), QStringLiteral("lblQueNaoHa"));
  EXPECT_TRUE(loaded.promptInclude());
  EXPECT_TRUE(boxes_.takeTexts().isEmpty());
}

TEST_F(DescribedField, APlaceholderIsNeitherTextNorValue) {
  TsText& field = add({.name = u"email", .placeholder = u"nome@exemplo.com.br"});
  show();
  EXPECT_EQ(field.placeholderText(), QStringLiteral("nome@exemplo.com.br"));
  EXPECT_EQ(editOf(field)->placeholderText(), field.placeholderText());
  EXPECT_EQ(field.text(), QString());
  EXPECT_EQ(field.texto(), QString());
  EXPECT_TRUE(field.value().isNull());
  field.setFocus();
  settleEvents();
  type(*editOf(field), QStringLiteral("a"));
  EXPECT_EQ(field.text(), QStringLiteral("a"));
  EXPECT_FALSE(field.settings().join(QString()).contains(QStringLiteral("exemplo")));
}

TEST_F(DescribedField, TakesKeysThroughItsMaskAndMarksItsCaption) {
  TsText& field = add({.name = u"nascimento",
                       .kind = TipoControle::Calendario,
                       .mask = u"dd/mm/yyyy",
                       .label = u"lblPrimeiro"});
  show();
  field.setFocus();
  settleEvents();
  type(*editOf(field), QStringLiteral("25122017"));
  EXPECT_EQ(field.text(), QStringLiteral("25/12/2017"));
  second_->setFocus(Qt::TabFocusReason);
  settleEvents();
  EXPECT_EQ(field.value(), QVariant(QDate(2017, 12, 25)));
  EXPECT_EQ(label_->buddy(), &field);
}

TEST_F(DescribedField, ALookupReplacesWhatAFieldHad) {
  const LookupSettings lookup{.table = u"cidades",
                              .columns = {{.field = u"codigo"}, {.field = u"nome"}},
                              .searches = {{.caption = u"Nome", .field = u"nome"}}};
  first_->setBrowseTable(QStringLiteral("estados"));
  first_->setLookup(lookup);
  EXPECT_EQ(first_->browseDefinition()->BrowseTable(), u"cidades");
  EXPECT_EQ(first_->pesquisaDefinition()->Count(), 1);
  first_->setLookup(ForDescription(lookup));
  EXPECT_EQ(first_->browseDefinition()->BrwCampo(), u"nome");
  EXPECT_EQ(first_->pesquisaDefinition()->Count(), 0);
}

TEST_F(DescribedField, ADataControlHasItsSettings) {
  const Adodc rows({.name = u"linhas",
                    .recordSource = u"clientes",
                    .connectionString = u"DSN=loja",
                    .caption = u"Clientes",
                    .navigationKeys = false,
                    .refreshesForm = false});
  EXPECT_EQ(rows.objectName(), QStringLiteral("linhas"));
  EXPECT_EQ(rows.recordSource(), QStringLiteral("clientes"));
  EXPECT_EQ(rows.connectionString(), QStringLiteral("DSN=loja"));
  EXPECT_EQ(rows.caption(), QStringLiteral("Clientes"));
  EXPECT_FALSE(rows.navigationKeys());
  EXPECT_FALSE(rows.refreshesForm());
}

}  // namespace
}  // namespace tessaria::qt::tests
