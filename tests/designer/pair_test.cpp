// From an empty form to a working pair of a key and its description, as a developer makes it.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QRadioButton>
#include <QRegularExpression>
#include <QTest>

#include "tessaria/browse_definition.h"
#include "tessaria/pesquisa_definition.h"
#include "tessaria/qt/adodc.h"
#include "tests/designer/hands.h"

namespace tessaria::tests {
namespace {

using testing::HasSubstr;

constexpr char kLookedUp[] =
    "bound: 1 Ana\n"
    "typed: 2 Bruno\n"
    "completed: 2 Bruno\n"
    "chosen: 3 Carla\n";

struct Text {
  const char* box;
  QString text;
};

const QList<Text> kLookup{
    {"txtBrwTitulo", QStringLiteral("Clientes")},
    {"txtBrowseTable", QStringLiteral("clientes")},
    {"txtBrwCampo", QStringLiteral("codigo")},
    {"txtBrwCampoIrmao", QStringLiteral("nome")},
    {"txtBrwCampoOutros", QStringLiteral("uf")},
    {"txtBrwGroupBy", QStringLiteral("Group By codigo, nome, uf")},
    {"txtBrwLeftJoin", QStringLiteral("clientes left join cidades on cidade = sigla")},
    {"txtBrwWhere", QStringLiteral("ativo")},
};

const QList<Text> kByName{
    {"txtPesqCaption", QStringLiteral("Nome que contem")},
    {"txtPesqCampo", QStringLiteral("nome")},
    {"txtPesqMascara", QStringLiteral(">")},
    {"txtPesqWidth", QStringLiteral("3600")},
    {"txtPesqMaxLength", QStringLiteral("40")},
};

const QList<Text> kByCode{
    {"txtPesqCaption", QStringLiteral("Codigo")}, {"txtPesqCampo", QStringLiteral("codigo")},
    {"txtPesqMascara", QStringLiteral("####")},   {"txtPesqWidth", QStringLiteral("1200")},
    {"txtPesqMaxLength", QStringLiteral("4")},
};

void fillAll(const QList<Text>& texts) {
  for (const Text& row : texts) fill(row.box, row.text);
}

void expectAll(const QList<Text>& texts) {
  for (const Text& row : texts) EXPECT_EQ(textOf(row.box), row.text) << row.box;
}

/// A saved form without the places of its widgets, which depend on the desktop's fonts.
QString withoutPlaces(QString form) {
  static const QRegularExpression place(QStringLiteral("<rect>.*?</rect>"),
                                        QRegularExpression::DotMatchesEverythingOption);
  return form.remove(place);
}

class Pair : public testing::Test {
 protected:
  Pair() { select(form_, *form_.mainContainer()); }
  ~Pair() override {
    if (pageDialog()) pageDialog()->reject();
  }

  QUndoStack& history() { return *form_.commandHistory(); }

  QWidget* add(const char* item, const QPoint& place, const char* name) {
    QWidget* widget = drop(form_, QLatin1String(item), place);
    if (!widget) throw std::runtime_error(item);
    typeProperty(QStringLiteral("objectName"), QLatin1String(name));
    EXPECT_EQ(widget->objectName(), QLatin1String(name));
    return widget;
  }
  qt::TsText& addField(const QPoint& place, const char* name) {
    return *qobject_cast<qt::TsText*>(add("TsText", place, name));
  }

  void dropAll() {
    add("Label", {60, 40}, "lblCodigo");
    add("Label", {60, 110}, "lblNome");
    codigo_ = &addField({160, 60}, "txtCodigo");
    nome_ = &addField({160, 130}, "txtNome");
    add("Push Button", {400, 60}, "btnCancelar");
    add("Adodc", {180, 250}, "dados");
    typeProperty(QStringLiteral("ConnectionString"), QStringLiteral("DSN=loja"));
    typeProperty(QStringLiteral("RecordSource"), QStringLiteral("pedidos"));
    addColumns();
  }
  /// The page has no editor for columns.
  void addColumns() {
    const QStringList before = codigo_->settings();
    auto& columns = codigo_->browseDefinition()->cgrColGrid();
    columns.Add(u"codigo", u"Codigo", u"", 900, true);
    columns.Add(u"nome", u"Nome", u"", 3600, true);
    const QStringList after = codigo_->settings();
    codigo_->setSettings(before);
    select(form_, *codigo_);
    form_.cursor()->setWidgetProperty(codigo_, QStringLiteral("settings"), after);
  }

  /// "OK" is one step, which the keys of the undo take back and repeat exactly.
  void accept(const qt::TsText& field, const QStringList& before, int steps) {
    clickOn(*dialogButton(QStringLiteral("OK")));
    EXPECT_TRUE(waitFor([] { return pageDialog() == nullptr; }));
    EXPECT_TRUE(QTest::qWaitForWindowActive(form_.window()));
    EXPECT_EQ(history().index(), steps + 1);
    const QStringList after = field.settings();
    EXPECT_NE(after, before);
    press({QStringLiteral("ctrl+z")});
    EXPECT_TRUE(waitFor([&] { return history().index() == steps; }));
    EXPECT_EQ(field.settings(), before);
    press({QStringLiteral("ctrl+shift+z")});
    EXPECT_TRUE(waitFor([&] { return history().index() == steps + 1; }));
    EXPECT_EQ(field.settings(), after);
  }

  void fillKey();
  void fillSearches();
  void fillDescription();
  void expectDefinitions();

  QDesignerFormWindowInterface& form_ = *openForm(QStringLiteral("par.ui"));
  qt::TsText* codigo_ = nullptr;
  qt::TsText* nome_ = nullptr;
};

void Pair::fillKey() {
  const int steps = history().index();
  const QStringList before = codigo_->settings();
  openPage(*codigo_);
  choose("txtTipoControle", QStringLiteral("1 - Browse"));
  EXPECT_TRUE(waitFor([this] { return codigo_->tipoControle() == qt::TsText::Browse; }));
  fill("txtMascara", QStringLiteral("####"));
  EXPECT_TRUE(waitFor([this] { return codigo_->mascara() == QLatin1String("####"); }));
  clickMark("chkPodeSerBranco");
  clickMark("chkeSocial");
  choose("txtTxtIrmao", QStringLiteral("txtNome"));
  choose("txtLabel", QStringLiteral("lblCodigo"));
  choose("txtObjetoCancelar", QStringLiteral("btnCancelar"));
  choose("txtDataSource", QStringLiteral("dados"));
  fill("txtDataField", QStringLiteral("cliente"));
  clickTab(Tab::Browse);
  EXPECT_TRUE(inFront<QPushButton>("btnGrid").isEnabled());
  EXPECT_TRUE(inFront<QPushButton>("btnSql").isEnabled());
  fillAll(kLookup);
  EXPECT_FALSE(inFront<QPushButton>("btnSql").isEnabled());
  fillSearches();
  EXPECT_EQ(history().index(), steps);
  accept(*codigo_, before, steps);
}

void Pair::fillSearches() {
  clickTab(Tab::Pesquisa);
  EXPECT_FALSE(inFront<QLineEdit>("txtPesqCaption").isEnabled());
  clickButton("btnIncluir");
  EXPECT_TRUE(inFront<QLineEdit>("txtPesqCaption").hasFocus());
  fillAll(kByName);
  clickMark("chkPesqCompletaTexto");
  clickMark("optPesqString");
  clickMark("optPesqEntreCampo");
  clickButton("btnIncluir");
  EXPECT_EQ(textOf("txtPesqCaption"), QString());
  fillAll(kByCode);
  clickMark("chkPesqPromptInclude");
  clickMark("optPesqNumerico");
  clickMark("optPesqIgualCampo");
  EXPECT_FALSE(inFront<QPushButton>("btnProximo").isEnabled());
  clickButton("btnAnterior");
  expectAll(kByName);
  EXPECT_TRUE(inFront<QRadioButton>("optPesqEntreCampo").isChecked());
  clickButton("btnProximo");
  expectAll(kByCode);
  EXPECT_TRUE(inFront<QRadioButton>("optPesqNumerico").isChecked());
}

void Pair::fillDescription() {
  const int steps = history().index();
  const QStringList before = nome_->settings();
  openPage(*nome_);
  choose("txtTipoControle", QStringLiteral("3 - Descrição"));
  choose("txtTxtIrmao", QStringLiteral("txtCodigo"));
  choose("txtLabel", QStringLiteral("lblNome"));
  clickTab(Tab::Browse);
  QList<Text> exchanged = kLookup;
  std::swap(exchanged[2].text, exchanged[3].text);
  expectAll(exchanged);
  EXPECT_TRUE(inFront<QPushButton>("btnGrid").isEnabled());
  accept(*nome_, before, steps);
}

void Pair::expectDefinitions() {
  const auto& columns = nome_->browseDefinition()->cgrColGrid();
  ASSERT_EQ(columns.Count(), 2);
  EXPECT_EQ(columns.Item(1)->Campo(), u"nome");
  EXPECT_EQ(columns.Item(1)->Width(), 3600);
  EXPECT_EQ(columns.Item(2)->Campo(), u"codigo");
  EXPECT_EQ(codigo_->browseDefinition()->cgrColGrid().Item(1)->Campo(), u"codigo");
  const auto searches = codigo_->pesquisaDefinition();
  ASSERT_EQ(searches->Count(), 2);
  EXPECT_EQ(searches->Item(1)->Caption(), u"Nome que contem");
  EXPECT_EQ(searches->Item(1)->Tipo(), 8);
  EXPECT_EQ(searches->Item(1)->Like(), 3);
  EXPECT_TRUE(searches->Item(1)->CompletaDescr());
  EXPECT_FALSE(searches->Item(1)->PromptInclude());
  EXPECT_EQ(searches->Item(2)->Tipo(), 2);
  EXPECT_EQ(searches->Item(2)->Like(), 0);
  EXPECT_EQ(searches->Item(2)->MaxLength(), 4);
  EXPECT_TRUE(searches->Item(2)->PromptInclude());
}

TEST_F(Pair, IsMadeFromAnEmptyFormSavedAndLooksUp) {
  dropAll();
  fillKey();
  fillDescription();
  expectDefinitions();
  save(form_);
  EXPECT_EQ(withoutPlaces(contentsOf(form_.fileName())).toStdString(),
            withoutPlaces(contentsOf(QStringLiteral(TESSARIA_SAVED_PAIR))).toStdString());
  EXPECT_EQ(outputOf(QStringLiteral(TESSARIA_LOADED_PAIR), {form_.fileName()}), kLookedUp);
  EXPECT_EQ(outputOf(QStringLiteral(TESSARIA_COMPILED_PAIR), {}), kLookedUp);
}

}  // namespace
}  // namespace tessaria::tests
