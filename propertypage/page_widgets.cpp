#include "propertypage/page_widgets.h"

namespace tessaria::propertypage {
namespace {

using host::WidgetDescription;
using Kind = host::WidgetKind;

constexpr StringView kTabRows[] = {u"Principal", u"Browse", u"Pesquisa"};
// The first character is the value.
constexpr StringView kTypeRows[] = {u"0 - Normal",    u"1 - Browse",    u"2 - Calendario",
                                    u"3 - Descrição", u"4 - Diretório", u"5 - Calculadora"};

constexpr StringView kPages = u"tabPropriedade";

constexpr WidgetDescription OnTab(Tab tab, StringView name, Kind kind, StringView caption,
                                  std::span<const StringView> rows = {}) {
  return {.Name = name,
          .Kind = kind,
          .Caption = caption,
          .Container = kPages,
          .Page = static_cast<Integer>(tab),
          .Rows = rows};
}

constexpr WidgetDescription InFrame(StringView frame, StringView name, Kind kind,
                                    StringView caption) {
  return {.Name = name, .Kind = kind, .Caption = caption, .Container = frame};
}

constexpr StringView kSourceFrame = u"fraCampo";
constexpr StringView kSearchFrame = u"fraPesquisa";
constexpr StringView kDataFrame = u"fraPesqTipoDado";
constexpr StringView kLikeFrame = u"fraPesqTipoBusca";

// In tab order; a label stands before its box.
constexpr WidgetDescription kWidgets[] = {
    {.Name = u"lblNome", .Kind = Kind::Label, .Caption = u"Nome"},
    {.Name = u"txtNome", .Kind = Kind::Display, .Caption = u"Nome"},
    {.Name = kPages, .Kind = Kind::TabStrip, .Caption = u"Propriedades", .Rows = kTabRows},

    OnTab(Tab::Principal, u"lblTipoControle", Kind::Label, u"Tipo de Controle"),
    OnTab(Tab::Principal, u"txtTipoControle", Kind::DropDownList, u"Tipo de Controle", kTypeRows),
    OnTab(Tab::Principal, u"lblMascara", Kind::Label, u"Máscara"),
    OnTab(Tab::Principal, u"txtMascara", Kind::TextBox, u"Máscara"),
    OnTab(Tab::Principal, u"chkPodeSerBranco", Kind::CheckBox, u"Pode Ser Branco"),
    OnTab(Tab::Principal, u"chkeSocial", Kind::CheckBox, u"Destacar captions - eSocial"),
    OnTab(Tab::Principal, u"lblTxtIrmao", Kind::Label, u"Controle Irmão"),
    OnTab(Tab::Principal, u"txtTxtIrmao", Kind::DropDownList, u"Controle Irmão"),
    OnTab(Tab::Principal, u"lblLabel", Kind::Label, u"Label Associado"),
    OnTab(Tab::Principal, u"txtLabel", Kind::DropDownList, u"Label Associado"),
    OnTab(Tab::Principal, u"lblObjetoCancelar", Kind::Label, u"Objeto Cancelar"),
    OnTab(Tab::Principal, u"txtObjetoCancelar", Kind::DropDownList, u"Objeto Cancelar"),
    OnTab(Tab::Principal, kSourceFrame, Kind::Frame, u"Origem do Campo"),
    InFrame(kSourceFrame, u"lblDataSource", Kind::Label, u"DataSource"),
    InFrame(kSourceFrame, u"txtDataSource", Kind::DropDownList, u"DataSource"),
    InFrame(kSourceFrame, u"lblDataField", Kind::Label, u"DataField"),
    InFrame(kSourceFrame, u"txtDataField", Kind::TextBox, u"DataField"),
    OnTab(Tab::Principal, u"lblEstado", Kind::Label, u""),

    OnTab(Tab::Browse, u"lblBrwTitulo", Kind::Label, u"BrwCaption"),
    OnTab(Tab::Browse, u"txtBrwTitulo", Kind::TextBox, u"BrwCaption"),
    OnTab(Tab::Browse, u"lblBrowseTable", Kind::Label, u"BrowseTable"),
    OnTab(Tab::Browse, u"txtBrowseTable", Kind::TextBox, u"BrowseTable"),
    OnTab(Tab::Browse, u"lblBrwCampo", Kind::Label, u"BrwCampo"),
    OnTab(Tab::Browse, u"txtBrwCampo", Kind::TextBox, u"BrwCampo"),
    OnTab(Tab::Browse, u"lblBrwCampoIrmao", Kind::Label, u"BrwCampoIrmao"),
    OnTab(Tab::Browse, u"txtBrwCampoIrmao", Kind::TextBox, u"BrwCampoIrmao"),
    OnTab(Tab::Browse, u"lblBrwCampoOutros", Kind::Label, u"BrwCampoOutros"),
    OnTab(Tab::Browse, u"txtBrwCampoOutros", Kind::TextBox, u"BrwCampoOutros"),
    OnTab(Tab::Browse, u"lblBrwGroupBy", Kind::Label, u"BrwGroupBy"),
    OnTab(Tab::Browse, u"txtBrwGroupBy", Kind::TextBox, u"BrwGroupBy"),
    OnTab(Tab::Browse, u"lblBrwLeftJoin", Kind::Label, u"BrwLeftJoin"),
    OnTab(Tab::Browse, u"txtBrwLeftJoin", Kind::TextBox, u"BrwLeftJoin"),
    OnTab(Tab::Browse, u"lblBrwWhere", Kind::Label, u"BrwWhere"),
    OnTab(Tab::Browse, u"txtBrwWhere", Kind::TextBox, u"BrwWhere"),
    OnTab(Tab::Browse, u"btnSql", Kind::CommandButton, u"SQL Wizard"),
    OnTab(Tab::Browse, u"btnGrid", Kind::CommandButton, u"Grid"),
    OnTab(Tab::Browse, u"btnLimpar", Kind::CommandButton, u"Limpar"),

    OnTab(Tab::Pesquisa, kSearchFrame, Kind::Frame, u""),
    InFrame(kSearchFrame, u"lblPesqCaption", Kind::Label, u"Caption"),
    InFrame(kSearchFrame, u"txtPesqCaption", Kind::TextBox, u"Caption"),
    InFrame(kSearchFrame, u"lblPesqCampo", Kind::Label, u"Campo"),
    InFrame(kSearchFrame, u"txtPesqCampo", Kind::TextBox, u"Campo"),
    InFrame(kSearchFrame, u"lblPesqMascara", Kind::Label, u"Mascara"),
    InFrame(kSearchFrame, u"txtPesqMascara", Kind::TextBox, u"Mascara"),
    InFrame(kSearchFrame, u"lblPesqWidth", Kind::Label, u"Width"),
    InFrame(kSearchFrame, u"txtPesqWidth", Kind::TextBox, u"Width"),
    InFrame(kSearchFrame, u"lblPesqMaxLength", Kind::Label, u"MaxLength"),
    InFrame(kSearchFrame, u"txtPesqMaxLength", Kind::TextBox, u"MaxLength"),
    InFrame(kSearchFrame, u"chkPesqCompletaTexto", Kind::CheckBox, u"Usa CompletaDescr"),
    InFrame(kSearchFrame, u"chkPesqPromptInclude", Kind::CheckBox, u"PromptInclude"),
    InFrame(kSearchFrame, kDataFrame, Kind::Frame, u"Tipo de Dado"),
    InFrame(kDataFrame, u"optPesqNumerico", Kind::OptionButton, u"Numérico"),
    InFrame(kDataFrame, u"optPesqString", Kind::OptionButton, u"String"),
    InFrame(kDataFrame, u"optPesqData", Kind::OptionButton, u"Data"),
    InFrame(kSearchFrame, kLikeFrame, Kind::Frame, u"Tipo de Busca"),
    InFrame(kLikeFrame, u"optPesqIgualCampo", Kind::OptionButton, u"Igual Campo"),
    InFrame(kLikeFrame, u"optPesqInicioCampo", Kind::OptionButton, u"Início Campo"),
    InFrame(kLikeFrame, u"optPesqFinalCampo", Kind::OptionButton, u"Final Campo"),
    InFrame(kLikeFrame, u"optPesqEntreCampo", Kind::OptionButton, u"Entre Campo"),
    InFrame(kSearchFrame, u"btnAnterior", Kind::CommandButton, u"Anterior"),
    InFrame(kSearchFrame, u"btnProximo", Kind::CommandButton, u"Próximo"),
    InFrame(kSearchFrame, u"btnIncluir", Kind::CommandButton, u"Incluir"),
    InFrame(kSearchFrame, u"btnExcluir", Kind::CommandButton, u"Excluir"),
};

}  // namespace

const host::DialogDescription& Description() {
  static const host::DialogDescription description{u"tsTextProperty", u"Conexão", kWidgets};
  return description;
}

}  // namespace tessaria::propertypage
