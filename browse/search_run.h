// A search over the rows of a lookup grid.
#pragma once

#include <vector>

#include "tessaria/host/dialog.h"

namespace tessaria::mdlObjTxt {

/// One entry of the chosen search, with the table that it searches in.
struct SearchEntry {
  String Tabela;
  String Campo;
  Long Tipo = 0;
  Long Like = 0;
  String Caption;
  Integer Width = 0;
  bool Completa = false;
  String Mascara;
  Integer MaxLength = 0;
  bool PromptInclude = false;
  bool CampoPronto = false;
  String OrderBy;
};

/// Asks for the value of each entry, in order, and shows the rows that match all of them. A
/// cancelled prompt, an answer that is refused (reported there) and no entry at all leave
/// everything as it was, and nothing is sent. Of table, field and order the last entry's count.
/// `strCampos` and `strFrom` are given values when they are empty.
///
/// A statement that the database refuses is shown to the operator, who may copy it; `grdBrowse`
/// then shows nothing and `dcBrowse` keeps the former rows.
void ExecutaPesquisa(const std::vector<SearchEntry>& entries, String& strCampos, String& strFrom,
                     const String& strWhere, const String& strOrderBy, const String& strGroupBy,
                     host::RecordsetPtr& dcBrowse, host::DataGrid& grdBrowse, Long lngHwnd);

}  // namespace tessaria::mdlObjTxt
