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
bool AskAll(const std::vector<SearchEntry>& entries, const String& where, String& conditions) {
  for (const auto& entry : entries) {
    String clause;
    if (!tsMostraFormPesquisa(entry.Table, entry.Campo, entry.Tipo, entry.Like, entry.Caption,
                              entry.Width, entry.Completes, entry.Mascara, entry.MaxLength,
                              entry.PromptInclude, where, clause, entry.CampoPronto))
      return false;
    if (clause.empty()) return false;  // the error has been reported
    if (!conditions.empty()) conditions += u" And ";
    conditions += clause;
  }
  return true;
}

}  // namespace

void ExecutaPesquisa(const std::vector<SearchEntry>& entries, String& strCampos, String& strFrom,
                     const String& strWhere, const String& strOrderBy, const String& strGroupBy,
                     host::RecordsetPtr& dcBrowse, host::DataGrid& grdBrowse, Long lngHwnd) {
  if (entries.empty()) return;
  String conditions;
  if (!AskAll(entries, strWhere, conditions)) return;

  const SearchEntry& last = entries.back();
  String order = last.OrderBy.empty() ? strOrderBy : last.OrderBy;
  if (order.empty()) order = TiraAlias(last.Campo);
  if (strFrom.empty()) strFrom = last.Table;
  if (strCampos.empty()) strCampos = u"*";

  String statement = u"Select " + strCampos + u" From " + strFrom + u" Where (" + conditions + u")";
  if (!strWhere.empty()) statement += u" And " + strWhere;
  if (!strGroupBy.empty()) statement += u" " + strGroupBy;
  statement += u" Order by " + order;

  Catch(
      [&] {
        const BusyPointer busy;
        grdBrowse.DataSource(nullptr);
        auto rows = CurrentConnection()->Execute(statement);
        rows->Bof();  // rows that cannot be read fail here, not in the grid
        dcBrowse = rows;
        grdBrowse.DataSource(dcBrowse);
      },
      [&] {
        App().DoEvents();
        OfferStatement(statement, u"Deseja Copiar para Área de Transferencia ?",
                       mdlMsgBox::flag::YesNo + mdlMsgBox::flag::Information, lngHwnd);
      });
}

}  // namespace tessaria::mdlObjTxt
