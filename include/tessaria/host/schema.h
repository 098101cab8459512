// The columns of the record sets that `Connection::OpenSchema` returns, the same in every host.
#pragma once

#include <vector>

#include "tessaria/export.h"
#include "tessaria/host/data.h"

namespace tessaria::host {

/// One column of a schema record set.
struct TESSARIA_CORE_API SchemaColumn {
  StringView Name;
  Long Type = type::VarWChar;
  Long DefinedSize = 128;
  bool Nullable = true;
};

/// In the order of the record set: callers rely on the ordinals.
inline std::vector<SchemaColumn> SchemaColumns(SchemaKind kind) {
  std::vector<SchemaColumn> columns = {
      {u"TABLE_CATALOG"}, {u"TABLE_SCHEMA"}, {u"TABLE_NAME", type::VarWChar, 128, false}};
  const auto add = [&](SchemaColumn column) { columns.push_back(column); };
  switch (kind) {
    case SchemaKind::Tables:
      add({u"TABLE_TYPE", type::VarWChar, 128, false});
      break;
    case SchemaKind::Columns:
      add({u"COLUMN_NAME", type::VarWChar, 128, false});
      add({u"ORDINAL_POSITION", type::Integer, 4, false});
      add({u"DATA_TYPE", type::Integer, 4, false});
      add({u"CHARACTER_MAXIMUM_LENGTH", type::Integer, 4, true});
      add({u"IS_NULLABLE", type::Boolean, 2, false});
      break;
    case SchemaKind::PrimaryKeys:
      add({u"COLUMN_NAME", type::VarWChar, 128, false});
      add({u"ORDINAL", type::Integer, 4, false});
      add({u"PK_NAME"});
      break;
  }
  return columns;
}

}  // namespace tessaria::host
