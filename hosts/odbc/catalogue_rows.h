// What a driver's catalogue calls tell of tables, columns and keys.
#pragma once

#include <optional>
#include <vector>

#include "hosts/sql/driver/catalogue_facts.h"

namespace tessaria::odbc {

class OdbcLink;

// As the members of `sql::Link`.
std::vector<sql::TableFacts> ReadTables(OdbcLink& link, const host::SchemaRestrictions& asked);
std::vector<sql::ColumnFacts> ReadTableColumns(OdbcLink& link,
                                               const host::SchemaRestrictions& asked);
std::optional<std::vector<sql::KeyPart>> ReadPrimaryKey(OdbcLink& link,
                                                        const sql::TablePlace& table);
std::vector<sql::KeyPart> ReadUniqueIndexes(OdbcLink& link, const sql::TablePlace& table);

}  // namespace tessaria::odbc
