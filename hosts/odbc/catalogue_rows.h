// What a driver's catalogue calls report about tables, columns and keys.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "hosts/sql/driver/catalogue_facts.h"

namespace tessaria::odbc {

class Line;

// As the members of `sql::Link`.
std::vector<sql::TableFacts> ReadTables(const std::shared_ptr<Line>& line,
                                        const host::SchemaRestrictions& asked);
std::vector<sql::ColumnFacts> ReadTableColumns(const std::shared_ptr<Line>& line,
                                               const host::SchemaRestrictions& asked);
std::optional<std::vector<sql::KeyPart>> ReadPrimaryKey(const std::shared_ptr<Line>& line,
                                                        const sql::TablePlace& table);
std::vector<sql::KeyPart> ReadUniqueIndexes(const std::shared_ptr<Line>& line,
                                            const sql::TablePlace& table);

}  // namespace tessaria::odbc
