// Reads the tables, columns and keys of the database as rows.
#pragma once

#include "hosts/sql/session/session.h"
#include "hosts/sql/values/column_store.h"
#include "tessaria/host/data.h"

namespace tessaria::sql {

/// The columns of these rows.
Columns SchemaResultColumns(host::SchemaKind kind);

/// Asks the driver. Errors: 3001 when a key is asked for without a table; otherwise the driver's
/// own.
ColumnStore ReadSchema(Session& session, host::SchemaKind kind,
                       const host::SchemaRestrictions& restrictions);

/// Whether a row's name is the one asked for. Drivers whose patterns have no escape take "_" and
/// "%" in a name as wildcards, and some ignore case.
bool IsAskedFor(const std::optional<String>& name, const String& asked);

}  // namespace tessaria::sql
