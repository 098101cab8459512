// Runs a search that fills a lookup grid.
#pragma once

#include <vector>

#include "tessaria/host/dialog.h"

namespace tessaria::mdlObjTxt {

/// One entry of the chosen search, with the table that it searches.
struct SearchEntry {
  String Table;
  String Campo;
  Long Tipo = 0;
  Long Like = 0;
  String Caption;
  Integer Width = 0;
  bool Completes = false;
  String Mascara;
  Integer MaxLength = 0;
  bool PromptInclude = false;
  bool CampoPronto = false;
  String OrderBy;
};

/// Asks for the value of each entry, in order, and shows the rows that match all of them. When a
/// prompt is cancelled, an answer is refused (the prompt reports it) or there is no entry, nothing
/// is changed or sent. Table, field and order are those of the last entry. `strCampos` and
/// `strFrom` receive values when they are empty.
///
/// A statement that the database refuses is shown to the operator, who may copy it; `grdBrowse`
/// then shows no rows and `dcBrowse` keeps the former ones.
void ExecutaPesquisa(const std::vector<SearchEntry>& entries, String& strCampos, String& strFrom,
                     const String& strWhere, const String& strOrderBy, const String& strGroupBy,
                     host::RecordsetPtr& dcBrowse, host::DataGrid& grdBrowse, Long lngHwnd);

}  // namespace tessaria::mdlObjTxt
