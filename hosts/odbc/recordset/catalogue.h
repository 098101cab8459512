// What the database says of its tables, columns and keys, as rows.
#pragma once

#include "hosts/odbc/session/session.h"
#include "hosts/odbc/values/column_store.h"
#include "tessaria/host/data.h"

namespace tessaria::odbc {

/// The columns of such rows.
Columns SchemaResultColumns(host::SchemaKind kind);

/// Asks the driver. Errors: 3001 for the key of no table, the driver's own for the rest.
ColumnStore ReadSchema(Session& session, host::SchemaKind kind,
                       const host::SchemaRestrictions& restrictions);

/// Whether a row's name is the one asked for. Drivers whose patterns know no escape take "_" and
/// "%" in a name for more than they are, and some know no capitals.
bool IsAskedFor(const std::optional<String>& name, const String& asked);

}  // namespace tessaria::odbc
