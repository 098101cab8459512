#include "wizard/wizard_widgets.h"

namespace tessaria::wizard {
namespace {

using host::WidgetDescription;
using Kind = host::WidgetKind;

constexpr StringView kTabRows[] = {u"Passo 1: Tabelas", u"2: Links",     u"3: Campos",
                                   u"4: Grid",          u"5: Ordem",     u"6: Where",
                                   u"7: Retorno",       u"8: Sql Pronta"};
constexpr StringView kComparisons[] = {u"=", u"<>", u">=", u"<="};
constexpr StringView kDataTypes[] = {u"Numerico", u"String", u"Data"};
constexpr StringView kPieceHeadings[] = {u"Texto"};
constexpr StringView kSearchHeadings[] = {u"Campo", u"Comparação", u"Objeto", u"Tipo de Dado"};

constexpr StringView kPages = u"tabWizard";
constexpr StringView kNoTip = {};

constexpr WidgetDescription OnTab(Tab tab, StringView name, Kind kind, StringView caption,
                                  StringView toolTip = kNoTip,
                                  std::span<const StringView> rows = {}) {
  return {.Name = name,
          .Kind = kind,
          .Caption = caption,
          .ToolTip = toolTip,
          .Container = kPages,
          .Page = static_cast<Integer>(tab),
          .Rows = rows};
}

constexpr WidgetDescription InFrame(StringView frame, StringView name, Kind kind,
                                    StringView caption, StringView toolTip = kNoTip,
                                    std::span<const StringView> rows = {}) {
  return {.Name = name,
          .Kind = kind,
          .Caption = caption,
          .ToolTip = toolTip,
          .Container = frame,
          .Rows = rows};
}

/// A button with a sign in the place of words: `spoken` is what a screen reader says.
constexpr WidgetDescription Sign(WidgetDescription place, StringView spoken) {
  place.Kind = Kind::CommandButton;
  place.AccessibleName = spoken;
  return place;
}
constexpr WidgetDescription SignOnTab(Tab tab, StringView name, StringView sign, StringView spoken,
                                      StringView toolTip) {
  return Sign(OnTab(tab, name, Kind::CommandButton, sign, toolTip), spoken);
}
constexpr WidgetDescription SignInFrame(StringView frame, StringView name, StringView sign,
                                        StringView spoken, StringView toolTip) {
  return Sign(InFrame(frame, name, Kind::CommandButton, sign, toolTip), spoken);
}

constexpr StringView kAdd = u">";
constexpr StringView kAddAll = u">>";
constexpr StringView kTakeOff = u"<";
constexpr StringView kTakeAllOff = u"<<";
constexpr StringView kUp = u"↑";
constexpr StringView kDown = u"↓";
constexpr StringView kDelete = u"×";

constexpr StringView kDeleteTip = u"Excluir Item";
// On all lists but the pieces of a concatenated field the tips of the two buttons are crossed.
constexpr StringView kUpTip = u"Descer Item";
constexpr StringView kDownTip = u"Sobir Item";

constexpr StringView kSource = u"frameConectar";
constexpr StringView kTables = u"frameTabelas";
constexpr StringView kLink = u"frame2Link";
constexpr StringView kPieces = u"frame3Concatena";
constexpr StringView kColumn = u"frame4Grid";
constexpr StringView kSearch = u"frame6Cmp";
constexpr StringView kReturn = u"frame7CamposRetorno";

// In tab order; a label stands before its box.
constexpr WidgetDescription kWidgets[] = {
    {.Name = kPages, .Kind = Kind::TabStrip, .Caption = u"Passos", .Rows = kTabRows},

    OnTab(Tab::Tabelas, kSource, Kind::Frame, u"ODBC"),
    InFrame(kSource, u"lblSistema", Kind::Label, u"Sistema"),
    InFrame(kSource, u"cmbSistema", Kind::DropDownList, u"Sistema"),
    InFrame(kSource, u"btnConectar", Kind::CommandButton, u"Conectar", u"Conectar ao Banco"),
    InFrame(kSource, u"chkAceitaApelidos", Kind::CheckBox, u"Aceitar nomes com _ e apelidos"),
    OnTab(Tab::Tabelas, kTables, Kind::Frame, u""),
    InFrame(kTables, u"lblTabTodas", Kind::Label, u"Disponíveis no Banco de Dados"),
    InFrame(kTables, u"lst1TabTodas", Kind::ListView, u"Disponíveis no Banco de Dados"),
    SignInFrame(kTables, u"btn1Inc", kAdd, u"Acrescentar tabela", u"Acrescentar Tabela"),
    SignInFrame(kTables, u"btn1IncTodos", kAddAll, u"Acrescentar todas as tabelas",
                u"Acrescentar Todas Tabelas"),
    SignInFrame(kTables, u"btn1Exc", kTakeOff, u"Remover tabela", u"Remover Tabela"),
    SignInFrame(kTables, u"btn1ExcTodos", kTakeAllOff, u"Remover todas as tabelas",
                u"Remover Todas as Tabelas"),
    InFrame(kTables, u"lblTabSel", Kind::Label, u"Tabelas Selecionadas"),
    InFrame(kTables, u"lst1TabSel", Kind::CheckList, u"Tabelas Selecionadas",
            u"Marque a Tabela Que Será a Principal"),

    OnTab(Tab::Links, kLink, Kind::Frame, u""),
    InFrame(kLink, u"lbl2LnkPai", Kind::Label, u"Link Pai"),
    InFrame(kLink, u"cmb2TabPai", Kind::DropDownList, u"Link Pai"),
    InFrame(kLink, u"lst2CmpPai", Kind::ListView, u"Campos do link pai"),
    InFrame(kLink, u"lbl2LnkFilho", Kind::Label, u"Link Filho"),
    InFrame(kLink, u"cmb2TabFilho", Kind::DropDownList, u"Link Filho"),
    InFrame(kLink, u"lst2CmpFilho", Kind::ListView, u"Campos do link filho"),
    OnTab(Tab::Links, u"btn2LnkAdiciona", Kind::CommandButton, u"Adiciona", u"Adicionar Link"),
    OnTab(Tab::Links, u"btn2LnkRemove", Kind::CommandButton, u"Remove", u"Remover Link"),
    OnTab(Tab::Links, u"lst2Links", Kind::ListView, u"Links"),

    OnTab(Tab::Campos, u"cmb3Tab", Kind::DropDownList, u"Tabela"),
    OnTab(Tab::Campos, u"lst3Cmp", Kind::ListView, u"Campos da tabela"),
    SignOnTab(Tab::Campos, u"btn3Inclui", kAdd, u"Adicionar campo", u"Adicionar Campo Direto"),
    // A single "&" would mark a letter.
    SignOnTab(Tab::Campos, u"btn3Concatena", u"&&", u"Adicionar campo para concatenar",
              u"Adicionar Campo Para Concatenar"),
    OnTab(Tab::Campos, u"lst3CmpSel", Kind::ListView, u"Campos selecionados"),
    SignOnTab(Tab::Campos, u"btn3CmpSelExclui", kDelete, u"Excluir campo", kDeleteTip),
    SignOnTab(Tab::Campos, u"btn3CmpSelSobe", kUp, u"Subir campo", kUpTip),
    SignOnTab(Tab::Campos, u"btn3CmpSelDesce", kDown, u"Descer campo", kDownTip),
    OnTab(Tab::Campos, kPieces, Kind::Frame, u"Concatenados"),
    InFrame(kPieces, u"lbl3ConcNome", Kind::Label, u"Nome do Campo"),
    InFrame(kPieces, u"txt3ConcNome", Kind::TextBox, u"Nome do Campo"),
    InFrame(kPieces, u"lbl3ConcMascara", Kind::Label, u"Mascara"),
    InFrame(kPieces, u"txt3ConcMascara", Kind::TextBox, u"Mascara"),
    InFrame(kPieces, u"lst3Concatena", Kind::CheckList, u"Partes do campo",
            u"Marque os Campos Que São Numericos", kPieceHeadings),
    SignInFrame(kPieces, u"btn3ConcIncluir", u"+", u"Incluir texto", u"Incluir Novo Texto"),
    SignInFrame(kPieces, u"btn3ConcExclui", kDelete, u"Excluir parte", kDeleteTip),
    SignInFrame(kPieces, u"btn3ConcSobe", kUp, u"Subir parte", u"Subir Item"),
    SignInFrame(kPieces, u"btn3ConcDesce", kDown, u"Descer parte", u"Descer Item"),
    SignOnTab(Tab::Campos, u"btn3CriaConcatena", kAdd, u"Criar campo concatenado",
              u"Criar Campo Concatenado"),

    OnTab(Tab::Grid, u"lbl4Caption", Kind::Label, u"Caption da Browse"),
    OnTab(Tab::Grid, u"txt4Caption", Kind::TextBox, u"Caption da Browse"),
    OnTab(Tab::Grid, u"btn4Retrieve", Kind::CommandButton, u"Retrieve Fields"),
    OnTab(Tab::Grid, u"grdWizard", Kind::ColumnPreview, u"Colunas"),
    OnTab(Tab::Grid, kColumn, Kind::Frame, u""),
    InFrame(kColumn, u"lbl4Coluna", Kind::Label, u"Coluna"),
    InFrame(kColumn, u"cmb4Coluna", Kind::DropDownList, u"Coluna"),
    InFrame(kColumn, u"lbl4GrdCaption", Kind::Label, u"Caption"),
    InFrame(kColumn, u"txt4GrdCaption", Kind::TextBox, u"Caption"),
    InFrame(kColumn, u"lbl4GrdMascara", Kind::Label, u"Mascara"),
    InFrame(kColumn, u"txt4GrdMascara", Kind::TextBox, u"Mascara"),
    InFrame(kColumn, u"lbl4GrdWidth", Kind::Label, u"Width"),
    InFrame(kColumn, u"txt4GrdWidth", Kind::TextBox, u"Width"),
    InFrame(kColumn, u"chk4GrdVisible", Kind::CheckBox, u"Visible"),

    OnTab(Tab::Ordem, u"lst5CmpTodos", Kind::ListView, u"Campos disponíveis"),
    SignOnTab(Tab::Ordem, u"btn5Inc", kAdd, u"Acrescentar campo", u"Acrescentar Tabela"),
    SignOnTab(Tab::Ordem, u"btn5IncTodos", kAddAll, u"Acrescentar todos os campos",
              u"Acrescentar Todas Tabelas"),
    SignOnTab(Tab::Ordem, u"Btn5Exc", kTakeOff, u"Remover campo", u"Remover Tabela"),
    SignOnTab(Tab::Ordem, u"btn5ExcTodos", kTakeAllOff, u"Remover todos os campos",
              u"Remover Todas as Tabelas"),
    OnTab(Tab::Ordem, u"lst5CmpSel", Kind::ListView, u"Campos da ordem"),
    SignOnTab(Tab::Ordem, u"btn5CmpSobe", kUp, u"Subir campo", kUpTip),
    SignOnTab(Tab::Ordem, u"btn5CmpDesce", kDown, u"Descer campo", kDownTip),

    OnTab(Tab::Where, u"cmb6Tab", Kind::DropDownList, u"Tabela"),
    OnTab(Tab::Where, u"lst6Cmp", Kind::ListView, u"Campos da tabela"),
    SignOnTab(Tab::Where, u"btn6CmpInc", kAdd, u"Adicionar campo", u"Criar Campo Concatenado"),
    OnTab(Tab::Where, kSearch, Kind::Frame, u""),
    InFrame(kSearch, u"lst6CmpSel", Kind::ListView, u"Campos pesquisados", kNoTip, kSearchHeadings),
    InFrame(kSearch, u"cmb6TipoBusca", Kind::DropDownList, u"Comparação", kNoTip, kComparisons),
    InFrame(kSearch, u"cmb6Objeto", Kind::DropDownList, u"Objeto"),
    InFrame(kSearch, u"cmb6TipoDado", Kind::DropDownList, u"Tipo de Dado", kNoTip, kDataTypes),
    SignInFrame(kSearch, u"btn6CmpExc", kDelete, u"Excluir campo", kDeleteTip),
    SignInFrame(kSearch, u"btn6CmpSobe", kUp, u"Subir campo", kUpTip),
    SignInFrame(kSearch, u"btn6CmpDesce", kDown, u"Descer campo", kDownTip),

    OnTab(Tab::Retorno, u"lbl7Cmp", Kind::Label, u"Campos Disponíveis"),
    OnTab(Tab::Retorno, u"lst7Cmp", Kind::ListView, u"Campos Disponíveis"),
    SignOnTab(Tab::Retorno, u"btn7CmpChaveInc", kAdd, u"Definir CampoChave",
              u"Definir Retorno Para CampoChave"),
    OnTab(Tab::Retorno, u"lbl7CampoChave", Kind::Label, u"CampoChave"),
    OnTab(Tab::Retorno, u"txt7CampoChave", Kind::TextBox, u"CampoChave"),
    SignOnTab(Tab::Retorno, u"btn7CmpIrmaoInc", kAdd, u"Definir CampoIrmao",
              u"Definir Retorno Para CampoIrmao"),
    OnTab(Tab::Retorno, u"lbl7CampoIrmao", Kind::Label, u"CampoIrmao"),
    OnTab(Tab::Retorno, u"txt7CampoIrmao", Kind::TextBox, u"CampoIrmao"),
    OnTab(Tab::Retorno, kReturn, Kind::Frame, u"CamposRetorno"),
    SignInFrame(kReturn, u"btn7CmpRetInc", kAdd, u"Adicionar campo de retorno",
                u"Definir Retorno Para Outros Campos"),
    InFrame(kReturn, u"lst7CmpRet", Kind::ListView, u"CamposRetorno"),
    SignInFrame(kReturn, u"btn7CmpRetExc", kDelete, u"Excluir campo", kDeleteTip),
    SignInFrame(kReturn, u"btn7CmpRetSobe", kUp, u"Subir campo", kUpTip),
    SignInFrame(kReturn, u"btn7CmpRetDesce", kDown, u"Descer campo", kDownTip),

    OnTab(Tab::SqlPronta, u"txt8Sql", Kind::MultiLineText, u"Sql Pronta"),
    OnTab(Tab::SqlPronta, u"lstSel", Kind::ListView, u""),

    {.Name = u"lblEstado", .Kind = Kind::Label},
    {.Name = u"lblCampoOutros",
     .Kind = Kind::Label,
     .Caption = u"Ao confirmar, a propriedade BrwCampoOutros fica vazia."},
    {.Name = u"btnConfirma", .Kind = Kind::CommandButton, .Caption = u"&Confirmar"},
    {.Name = u"btnVoltar", .Kind = Kind::CommandButton, .Caption = u"&Voltar"},
};

}  // namespace

const host::DialogDescription& Description() {
  static const host::DialogDescription description{u"frmMontaSql", u"Tessaria SQL Wizard",
                                                   kWidgets};
  return description;
}

}  // namespace tessaria::wizard
