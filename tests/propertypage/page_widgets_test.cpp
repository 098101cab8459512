// What the property page is made of: names, kinds, captions and where each widget stands.
#include <map>

#include "propertypage/page_widgets.h"
#include "tests/propertypage/page_fixture.h"

namespace tessaria::test {
namespace {

using Kind = host::WidgetKind;

const host::WidgetDescription* Find(StringView name) {
  for (const auto& widget : tsTextProperty::Description().Widgets)
    if (widget.Name == name) return &widget;
  return nullptr;
}

struct Expected {
  const char16_t* name;
  Kind kind;
  const char16_t* caption;
  const char16_t* container;
  Integer page;
};

void ExpectAll(std::initializer_list<Expected> widgets) {
  for (const Expected& widget : widgets) {
    SCOPED_TRACE(ToUtf8(widget.name));
    const auto* found = Find(widget.name);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->Kind, widget.kind);
    EXPECT_EQ(String(found->Caption), widget.caption);
    EXPECT_EQ(String(found->Container), widget.container);
    EXPECT_EQ(found->Page, widget.page);
  }
}

TEST(PageWidgets, TheFrameHasTheCaptionOfThePage) {
  EXPECT_EQ(String(tsTextProperty::Description().Name), u"tsTextProperty");
  EXPECT_EQ(String(tsTextProperty::Description().Caption), u"Conexão");
}

TEST(PageWidgets, ThereAreThreeTabs) {
  const auto rows = Find(u"tabPropriedade")->Rows;
  EXPECT_EQ((std::vector<String>(rows.begin(), rows.end())),
            (std::vector<String>{u"Principal", u"Browse", u"Pesquisa"}));
}

TEST(PageWidgets, OfTheTabPrincipal) {
  ExpectAll({{u"txtNome", Kind::Display, u"Nome", u"", -1},
             {u"txtTipoControle", Kind::DropDownList, u"Tipo de Controle", u"tabPropriedade", 0},
             {u"txtMascara", Kind::TextBox, u"Máscara", u"tabPropriedade", 0},
             {u"chkPodeSerBranco", Kind::CheckBox, u"Pode Ser Branco", u"tabPropriedade", 0},
             {u"chkeSocial", Kind::CheckBox, u"Destacar captions - eSocial", u"tabPropriedade", 0},
             {u"txtTxtIrmao", Kind::DropDownList, u"Controle Irmão", u"tabPropriedade", 0},
             {u"txtLabel", Kind::DropDownList, u"Label Associado", u"tabPropriedade", 0},
             {u"txtObjetoCancelar", Kind::DropDownList, u"Objeto Cancelar", u"tabPropriedade", 0},
             {u"fraCampo", Kind::Frame, u"Origem do Campo", u"tabPropriedade", 0},
             {u"txtDataSource", Kind::DropDownList, u"DataSource", u"fraCampo", -1},
             {u"txtDataField", Kind::TextBox, u"DataField", u"fraCampo", -1}});
  const auto rows = Find(u"txtTipoControle")->Rows;
  EXPECT_EQ((std::vector<String>(rows.begin(), rows.end())),
            (std::vector<String>{u"0 - Normal", u"1 - Browse", u"2 - Calendario", u"3 - Descrição",
                                 u"4 - Diretório", u"5 - Calculadora"}));
}

TEST(PageWidgets, OfTheTabBrowse) {
  const std::map<String, String> captions = {{u"BrwTitulo", u"BrwCaption"},
                                             {u"BrowseTable", u"BrowseTable"},
                                             {u"BrwCampo", u"BrwCampo"},
                                             {u"BrwCampoIrmao", u"BrwCampoIrmao"},
                                             {u"BrwCampoOutros", u"BrwCampoOutros"},
                                             {u"BrwGroupBy", u"BrwGroupBy"},
                                             {u"BrwLeftJoin", u"BrwLeftJoin"},
                                             {u"BrwWhere", u"BrwWhere"}};
  for (const auto& [field, caption] : captions) {
    const String box = u"txt" + field;
    const String label = u"lbl" + field;
    ExpectAll({{box.c_str(), Kind::TextBox, caption.c_str(), u"tabPropriedade", 1},
               {label.c_str(), Kind::Label, caption.c_str(), u"tabPropriedade", 1}});
  }
  ExpectAll({{u"btnSql", Kind::CommandButton, u"SQL Wizard", u"tabPropriedade", 1},
             {u"btnGrid", Kind::CommandButton, u"Grid", u"tabPropriedade", 1},
             {u"btnLimpar", Kind::CommandButton, u"Limpar", u"tabPropriedade", 1}});
}

TEST(PageWidgets, OfTheTabPesquisa) {
  ExpectAll({{u"fraPesquisa", Kind::Frame, u"", u"tabPropriedade", 2},
             {u"txtPesqCaption", Kind::TextBox, u"Caption", u"fraPesquisa", -1},
             {u"txtPesqCampo", Kind::TextBox, u"Campo", u"fraPesquisa", -1},
             {u"txtPesqMascara", Kind::TextBox, u"Mascara", u"fraPesquisa", -1},
             {u"txtPesqWidth", Kind::TextBox, u"Width", u"fraPesquisa", -1},
             {u"txtPesqMaxLength", Kind::TextBox, u"MaxLength", u"fraPesquisa", -1},
             {u"chkPesqCompletaTexto", Kind::CheckBox, u"Usa CompletaDescr", u"fraPesquisa", -1},
             {u"chkPesqPromptInclude", Kind::CheckBox, u"PromptInclude", u"fraPesquisa", -1},
             {u"fraPesqTipoDado", Kind::Frame, u"Tipo de Dado", u"fraPesquisa", -1},
             {u"optPesqNumerico", Kind::OptionButton, u"Numérico", u"fraPesqTipoDado", -1},
             {u"optPesqString", Kind::OptionButton, u"String", u"fraPesqTipoDado", -1},
             {u"optPesqData", Kind::OptionButton, u"Data", u"fraPesqTipoDado", -1},
             {u"fraPesqTipoBusca", Kind::Frame, u"Tipo de Busca", u"fraPesquisa", -1},
             {u"optPesqIgualCampo", Kind::OptionButton, u"Igual Campo", u"fraPesqTipoBusca", -1},
             {u"optPesqInicioCampo", Kind::OptionButton, u"Início Campo", u"fraPesqTipoBusca", -1},
             {u"optPesqFinalCampo", Kind::OptionButton, u"Final Campo", u"fraPesqTipoBusca", -1},
             {u"optPesqEntreCampo", Kind::OptionButton, u"Entre Campo", u"fraPesqTipoBusca", -1},
             {u"btnAnterior", Kind::CommandButton, u"Anterior", u"fraPesquisa", -1},
             {u"btnProximo", Kind::CommandButton, u"Próximo", u"fraPesquisa", -1},
             {u"btnIncluir", Kind::CommandButton, u"Incluir", u"fraPesquisa", -1},
             {u"btnExcluir", Kind::CommandButton, u"Excluir", u"fraPesquisa", -1}});
}

}  // namespace
}  // namespace tessaria::test
