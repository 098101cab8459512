#include "browse/lookup_run.h"

#include "browse/grid_form.h"
#include "browse/row_criterion.h"
#include "lookup/dialect.h"
#include "lookup/field_types.h"
#include "lookup/literals.h"
#include "lookup/query_text.h"
#include "lookup/where_text.h"
#include "mask/exit_flag.h"
#include "services/busy_pointer.h"
#include "services/dialog_placement.h"
#include "services/message_box.h"
#include "services/trap.h"
#include "tessaria/conversion.h"
#include "tessaria/host/application.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"

namespace tessaria::mdlObjTxt {
namespace {

bool EhVazio(const Variant& valor) {
  const String* texto = valor.TryGet<String>();
  return valor.IsNull() || valor.IsEmpty() || (texto != nullptr && texto->empty());
}

String Lista(const String& campo, const String& irmao, const String& outros) {
  String campos = campo;
  if (!irmao.empty()) campos += u", " + irmao;
  if (!outros.empty()) campos += u", " + outros;
  return campos;
}

/// Joins a condition to a clause that is empty or begins with " Where ".
void Junta(String& clausula, const String& condicao) {
  clausula += (clausula.empty() ? u" Where " : u" And ") + condicao;
}

/// What begins with what the operator typed; the part that was completed does not count.
String PreFiltro(const host::TextBox& box, const String& campo) {
  const String texto = box.Text();
  const Long digitados = box.SelStart() == 0 ? Len(texto) : box.SelStart();
  return TiraAlias(campo) + u" " + mdlComum::TraduzSQL(fragmento::Like) + u" '" +
         ConteudoDePadrao(LeftWhole(texto, digitados)) + u"%'";
}

/// The whole clause, from " Where " on. `where` is expanded already.
String Clausula(const String& where, TipoControle tipo, const host::TextBox& box,
                const String& campo) {
  String clausula;
  if (!where.empty()) Junta(clausula, where);
  if (tipo == TipoControle::Descricao && !Trim(box.Text()).empty())
    Junta(clausula, PreFiltro(box, campo));
  Junta(clausula, TiraAlias(campo) + u" Is Not Null");
  return clausula;
}

void AvisaTabelaVazia(const String& mensagem, Long lngHwnd) {
  const bool propria = !Trim(mensagem).empty();
  mdlMsgBox::ExibeMensagem(
      lngHwnd, propria ? mensagem : u"Não Existem Dados na Tabela Pesquisada, Favor Cadastrar", 0);
}

/// One entry of the menu for each search; entries of one number share it.
void MontaMenu(host::ToolBar& bar, const Pesquisa* pesquisa) {
  Long anterior = 0;
  for (Long i = 1; pesquisa != nullptr && i <= pesquisa->Count(); ++i) {
    const auto item = pesquisa->Item(i);
    if (item->Indice() != anterior) {
      bar.AddMenu({item->Caption(), CStr(Variant(item->Indice()))});
    } else {
      auto ultima = bar.Menu(bar.MenuCount());
      ultima.Text += u" + " + item->Caption();
      bar.Menu(bar.MenuCount(), ultima);
    }
    anterior = item->Indice();
  }
  if (bar.MenuCount() == 0) {
    bar.ButtonEnabled(false);
    return;
  }
  bar.AddMenu({u"-", {}});
  bar.AddMenu({u"Traz Todos os Registros", {}});
}

host::Recordset& Linhas(const frmBrowse& form) {
  if (!form.dcBrowse) throw HostError(errors::ObjectNotSet);
  return *form.dcBrowse;
}

/// Goes to the row of the value, or to the first one.
void Posiciona(host::Recordset& linhas, Variant& valor) {
  if (EhVazio(valor)) valor = linhas.Fields().Item(0)->Value();
  const BusyPointer busy;
  if (const String* texto = valor.TryGet<String>()) {
    if (!texto->empty()) AchaInicio(linhas, *texto);
  } else {
    linhas.Find(CriterioDeIgualdade(linhas.Fields().Item(0)->Name(), valor));
  }
  if (linhas.Eof()) linhas.MoveFirst();
}

/// The key of a chosen description: the later lookups of its control are limited to it.
Variant LiteralDoIrmao(host::Recordset& linhas, const String& campoIrmao) {
  const auto campo = linhas.Fields().Item(NomeDeColuna(campoIrmao));
  const Variant valor = campo->Value();
  return EhTipoDeCampoNumerico(campo->Type()) ? valor : Variant(TextoSql(SqlText(valor)));
}

}  // namespace

String VerBrowse(float sngTop, float sngLeft, host::TextBox& txtBox, Variant& varValor,
                 const String& strTabela, const String& strCampo, const String& strCampoIrmao,
                 const String& strCampoOutros, const String& strGroupBy, const String& strLeftJoin,
                 const String& strWhere, const String& strTitulo, TipoControle intTipoControle,
                 const host::FormPtr& frmForm, ListaColunas& cgrColGrid,
                 std::shared_ptr<Pesquisa> objPesquisa, const String& strMsgBrowse, Long lngHwnd,
                 FimDaLista* fim) {
  String resultado;
  auto como = FimDaLista::Falhou;  // unless it ends otherwise
  Trap(u"mdlObjTxt", u"VerBrowse", [&] {
    const Variant antigo = varValor;
    // The definition may be gone when the list has closed.
    const String irmao = strCampoIrmao;  // NOLINT(performance-unnecessary-copy-initialization)
    frmBrowse form;
    form.lblTitulo().Caption(strTitulo.empty() ? strTabela : strTitulo);
    PlaceOnScreen(form.Window(), sngTop, sngLeft);

    const String campos = Lista(strCampo, strCampoIrmao, strCampoOutros);
    const String from = strLeftJoin.empty() ? strTabela : strLeftJoin;
    form.strWhere = frmForm ? ExpandeCondicao(frmForm, strWhere) : strWhere;
    CopiaColunas(cgrColGrid, form.cgrColGrid, false);

    // Two blanks stand in front of the order when there is no group clause.
    bool ok = false;
    form.ConectGrid(u"Select " + campos + u" From " + from +
                        Clausula(form.strWhere, intTipoControle, txtBox, strCampo) + u" " +
                        strGroupBy + u" Order by 1",
                    ok);
    if (!ok) return;
    if (Linhas(form).Bof()) {
      AvisaTabelaVazia(strMsgBrowse, lngHwnd);
      como = FimDaLista::Respondeu;
      return;
    }

    form.DesenhaGrid();
    form.strTabela = strTabela;
    form.strFrom = from;
    form.strCampos = campos;
    form.hWndMsgBox = lngHwnd;
    form.strGroupBy = strGroupBy;
    form.Pesquisa = objPesquisa;
    MontaMenu(form.barBrowse(), objPesquisa.get());
    Posiciona(Linhas(form), varValor);
    txtBox.Tag = exitIsSilenced;

    form.ShowModal();
    App().DoEvents();
    if (!form.lGravar) {
      resultado = antigo.IsNull() ? String() : CStr(antigo);
      como = FimDaLista::SemEscolha;
      return;
    }
    resultado = CStr(Linhas(form).Fields().Item(0)->Value());
    const bool temIrmao = !irmao.empty() && intTipoControle == TipoControle::Descricao;
    State().vntValorIrmao = temIrmao ? LiteralDoIrmao(Linhas(form), irmao) : Variant();
    como = FimDaLista::Respondeu;
  });
  if (fim) *fim = como;
  return resultado;
}

}  // namespace tessaria::mdlObjTxt
