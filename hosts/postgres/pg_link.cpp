#include "hosts/postgres/pg_link.h"

#include <string>
#include <utility>

#include "hosts/postgres/connection_text.h"
#include "hosts/postgres/lent_connection.h"
#include "hosts/postgres/pg_catalogue.h"
#include "hosts/postgres/pg_statement.h"
#include "tessaria/utf8.h"

namespace tessaria::postgres {
namespace {

// "15.18" of 150018, and "9.5.3" of 90503.
String VersionText(int number) {
  const auto part = [](int value) { return FromUtf8(std::to_string(value)); };
  const String major = part(number / 10000);
  if (number >= 100000) return major + u"." + part(number % 10000);
  return major + u"." + part(number / 100 % 100) + u"." + part(number % 100);
}

}  // namespace

PgLink::PgLink(const String& connectionString, Long timeout, sql::SettingsScope scope)
    : wire_(std::make_shared<Wire>(OptionsOf(connectionString), timeout, scope)) {}

PgLink::PgLink(PGconn* lent, std::function<bool()> isThere)
    : wire_(std::make_shared<Wire>(lent, std::move(isThere))) {}

sql::Standing PgLink::ProgramStanding() {
  wire_->RequireFree();
  return StandingOf(wire_->Get());
}

sql::ServerFacts PgLink::Facts() {
  return {u"PostgreSQL", VersionText(PQserverVersion(wire_->Get())), u"\""};
}

sql::StatementPtr PgLink::NewStatement() { return std::make_shared<PgStatement>(wire_); }

// The failure of results that have not been read yet belongs to their reader.
Result PgLink::End(const char* command) {
  try {
    wire_->Settle();
  } catch (const DriverError&) {
    if (IsLost()) throw;
  }
  return wire_->Ask(command);
}

void PgLink::Commit() {
  const Result result = End("COMMIT");
  if (std::string_view(PQcmdStatus(result.get())) == "COMMIT") return;
  throw DriverError("25P02", u"O servidor desfez a transação, porque um comando dela falhou.");
}

std::vector<sql::TableFacts> PgLink::Tables(const host::SchemaRestrictions& asked) {
  return ReadTables(*wire_, asked);
}

std::vector<sql::ColumnFacts> PgLink::TableColumns(const host::SchemaRestrictions& asked) {
  return ReadTableColumns(*wire_, asked);
}

std::optional<std::vector<sql::KeyPart>> PgLink::PrimaryKey(const sql::TablePlace& table) {
  return ReadPrimaryKey(*wire_, table);
}

std::vector<sql::KeyPart> PgLink::UniqueIndexes(const sql::TablePlace& table) {
  return ReadUniqueIndexes(*wire_, table);
}

}  // namespace tessaria::postgres
