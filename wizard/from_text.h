// The text after From: the main table and the joins of the others.
#pragma once

#include <vector>

#include "tessaria/string.h"

namespace tessaria::wizard {

/// A selected table.
struct FromTable {
  String text;        ///< as the operator sees it: a table, or an alias
  String table = {};  ///< the table of an alias that is written with "as"; "" for the text alone
  bool isMain = false;
  String tag = {};  ///< of its row; behind " as " when it is joined
};

/// The text after From. A single table stands alone, whatever the links; otherwise the tables that
/// are not the main one are joined in their order, each with the link at its place, which is empty
/// when there are fewer links. Error 9 for more links than joined tables.
String FromText(const std::vector<FromTable>& tables, const std::vector<String>& links);

}  // namespace tessaria::wizard
