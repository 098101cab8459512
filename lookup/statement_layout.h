// A statement as readable lines, with the search terms and the order of the wizard.
#pragma once

#include <vector>

#include "tessaria/string.h"

namespace tessaria::mdlObjTxt {

/// One row of a list: its text and its sub-items, the first of which is sub-item 1.
struct ListRow {
  String Text;
  std::vector<String> SubItems;
};
using ListRows = std::vector<ListRow>;

/// The condition that a search row stands for: its text, the operator (sub-item 1) and the
/// control of sub-item 2 as a parameter, quoted by the kind in sub-item 3. "" for a row that
/// has not exactly 3 sub-items.
String SearchTerm(const ListRow& row);

/// Lays out a one-line statement for reading, without its "Where 1 = Null". Keywords are found
/// in exact case, also inside names. `lstWhere` and `lstOrderBy` may be null; an empty list
/// writes no keyword.
String MontaSqlPronta(const String& strSql, const ListRows* lstWhere = nullptr,
                      const ListRows* lstOrderBy = nullptr);

}  // namespace tessaria::mdlObjTxt
