#include "browse/search_run.h"

#include "browse/refused_statement.h"
#include "browse/search_prompt.h"
#include "lookup/query_text.h"
#include "lookup/sql_family.h"
#include "services/busy_pointer.h"
#include "services/message_box.h"
#include "services/trap.h"
#include "tessaria/host/application.h"
#include "tessaria/thread_state.h"

namespace tessaria::mdlObjTxt {
namespace {

/// The conditions of all entries; false when a prompt was cancelled or its answer refused.
bool PerguntaTodas(const std::vector<EntradaPesquisa>& entradas, const String& where,
                   String& condicoes) {
  for (const auto& entrada : entradas) {
    String clausula;
    if (!tsMostraFormPesquisa(entrada.Tabela, entrada.Campo, entrada.Tipo, entrada.Like,
                              entrada.Caption, entrada.Width, entrada.Completa, entrada.Mascara,
                              entrada.MaxLength, entrada.PromptInclude, where, clausula,
                              entrada.CampoPronto))
      return false;
    if (clausula.empty()) return false;  // the operator has been told why
    if (!condicoes.empty()) condicoes += u" And ";
    condicoes += clausula;
  }
  return true;
}

}  // namespace

void ExecutaPesquisa(const std::vector<EntradaPesquisa>& entradas, String& strCampos,
                     String& strFrom, const String& strWhere, const String& strOrderBy,
                     const String& strGroupBy, host::RecordsetPtr& dcBrowse,
                     host::DataGrid& grdBrowse, Long lngHwnd) {
  if (entradas.empty()) return;
  String condicoes;
  if (!PerguntaTodas(entradas, strWhere, condicoes)) return;

  const EntradaPesquisa& ultima = entradas.back();
  String ordem = ultima.OrderBy.empty() ? strOrderBy : ultima.OrderBy;
  if (ordem.empty()) ordem = TiraAlias(ultima.Campo);
  if (strFrom.empty()) strFrom = ultima.Tabela;
  if (strCampos.empty()) strCampos = u"*";

  String instrucao = u"Select " + strCampos + u" From " + strFrom + u" Where (" + condicoes + u")";
  if (!strWhere.empty()) instrucao += u" And " + strWhere;
  if (!strGroupBy.empty()) instrucao += u" " + strGroupBy;
  instrucao += u" Order by " + ordem;

  Catch(
      [&] {
        const BusyPointer busy;
        grdBrowse.DataSource(nullptr);
        auto linhas = ConexaoAtual()->Execute(instrucao);
        linhas->Bof();  // rows that cannot be read are refused here and not in the grid
        dcBrowse = linhas;
        grdBrowse.DataSource(dcBrowse);
      },
      [&] {
        App().DoEvents();
        OfereceInstrucao(instrucao, u"Deseja Copiar para Área de Transferencia ?",
                         mdlMsgBox::flag::YesNo + mdlMsgBox::flag::Information, lngHwnd);
      });
}

}  // namespace tessaria::mdlObjTxt
