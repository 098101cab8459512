// Lays out a statement in readable lines, with search terms and order.
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

/// The condition of a search row: its text, the operator (sub-item 1) and the control of sub-item 2
/// as a parameter, quoted by the kind in sub-item 3. "" for a row that does not have exactly 3
/// sub-items.
String SearchTerm(const ListRow& row);

/// Lays out a one-line statement for reading, without its "Where 1 = Null". Keywords are found
/// in exact case, also inside names. `lstWhere` and `lstOrderBy` may be null; no keyword is written
/// for an empty list.
String MontaSqlPronta(const String& strSql, const ListRows* lstWhere = nullptr,
                      const ListRows* lstOrderBy = nullptr);

}  // namespace tessaria::mdlObjTxt
