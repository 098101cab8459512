// A database whose catalogue and answers a test supplies.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "tessaria/host/schema.h"
#include "tessaria/memory/connection.h"
#include "tests/support/passing_connection.h"

namespace tessaria::test {

/// A relation as the catalogue has it.
struct Relation {
  String schema;
  String name;
  String type = u"TABLE";
};

/// One connection. A statement "Select * From <name> Where 1 = Null" gives the fields that `fields`
/// has for that name, and any other one whatever `answer` says. What neither knows is refused, as
/// an unknown name is.
class ScriptedDatabase final : public PassingConnection {
 public:
  ScriptedDatabase() : PassingConnection(memory::Connection::Create()) {
    Memory().OnStatement = [this](const String& statement) { return Reply(statement); };
  }

  host::RecordsetPtr OpenSchema(host::SchemaKind kind,
                                const host::SchemaRestrictions& restrictions) override {
    if (kind != host::SchemaKind::Tables) return PassingConnection::OpenSchema(kind, restrictions);
    if (State() == host::state::Closed) throw HostError(errors::InvalidConnection);
    if (catalogueFault) throw HostError(*catalogueFault);
    return Catalogue();
  }

  Variant Properties(const String& name) const override {
    if (propertyFault) throw HostError(*propertyFault);
    return PassingConnection::Properties(name);
  }

  memory::Connection& Memory() { return static_cast<memory::Connection&>(*real_); }

  static memory::Rows Columns(const std::vector<String>& names,
                              std::vector<memory::Row> cells = {}) {
    memory::Rows rows;
    for (const String& name : names) rows.Columns.push_back({.Name = name});
    rows.Cells = std::move(cells);
    return rows;
  }

  std::vector<Relation> relations;
  /// By the name that a statement uses.
  std::map<String, std::vector<String>> fields;
  std::function<std::optional<memory::Rows>(const String& statement)> answer;
  /// What SQL Server says of the user.
  Variant defaultSchema = u"dbo";
  /// Makes the catalogue fail.
  std::optional<HostError> catalogueFault;
  /// Makes the database tell nothing of itself.
  std::optional<HostError> propertyFault;

 private:
  std::optional<memory::Rows> Reply(const String& statement) const {
    if (statement == u"Select SCHEMA_NAME()") return Columns({u"schema"}, {{defaultSchema}});
    const String start = u"Select * From ";
    const String end = u" Where 1 = Null";
    if (statement.starts_with(start) && statement.ends_with(end)) {
      const auto table =
          fields.find(statement.substr(start.size(), statement.size() - start.size() - end.size()));
      if (table != fields.end()) return Columns(table->second);
    }
    return answer ? answer(statement) : std::nullopt;
  }

  host::RecordsetPtr Catalogue() const {
    memory::Rows rows;
    for (const auto& column : host::SchemaColumns(host::SchemaKind::Tables))
      rows.Columns.push_back({.Name = String(column.Name), .DefinedSize = column.DefinedSize});
    for (const Relation& relation : relations) {
      const Variant schema = relation.schema.empty() ? Variant::Null() : Variant(relation.schema);
      rows.Cells.push_back({Variant::Null(), schema, relation.name, relation.type});
    }
    const auto catalogue = memory::Connection::CreateOpen();
    catalogue->Answer(u"Catalogue", rows);
    return catalogue->Execute(u"Catalogue");
  }
};

}  // namespace tessaria::test
