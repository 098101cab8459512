// The catalogue of the connection's database: tables, columns and keys. Names match exactly; an
// empty one stands for all, and the name of a database is not looked at.
#pragma once

#include <vector>

#include "hosts/postgres/wire.h"
#include "hosts/sql/driver/catalogue_facts.h"

namespace tessaria::postgres {

/// Tables and views, without those of the server itself and temporary ones.
std::vector<sql::TableFacts> ReadTables(Wire& wire, const host::SchemaRestrictions& restrictions);
/// Their columns. A column of a domain has the type below it.
std::vector<sql::ColumnFacts> ReadTableColumns(Wire& wire,
                                               const host::SchemaRestrictions& restrictions);
/// In the order of the key.
std::vector<sql::KeyPart> ReadPrimaryKey(Wire& wire, const sql::TablePlace& table);
/// Of indexes over all rows and plain columns.
std::vector<sql::KeyPart> ReadUniqueIndexes(Wire& wire, const sql::TablePlace& table);

}  // namespace tessaria::postgres
