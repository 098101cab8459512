// What the database reports about its tables: the contract of schemas, and what is specific to this
// host.
#include "hosts/sql/recordset/catalogue.h"
#include "hosts/sql/session/key_columns.h"
#include "tests/ports/schema_contract.h"
#include "tests/sql/database_test.h"

namespace tessaria {
namespace contract {
namespace {

using test::PostgresCluster;

host::ConnectionPtr OpenDatabase() {
  if (!PostgresCluster::Missing().empty()) return nullptr;
  PostgresCluster::Shared().EnsureRunning();
  auto connection = test::NewConnectionOfTheDriver();
  connection->ConnectionString(PostgresCluster::Shared().ConnectionString());
  connection->Open();
  const StringView cliente =
      u"create table cliente (codigo int primary key, nome varchar(20) not null,"
      u" valor numeric(10,2))";
  for (const StringView statement :
       {StringView(u"drop schema public cascade"), StringView(u"create schema public"), cliente,
        StringView(
            u"create table item_1 (pedido int, item int, qtde int, primary key (item, pedido))"),
        StringView(u"create table itemx1 (outra int)"),
        StringView(u"create view ativos as select codigo from cliente")}) {
    connection->Execute(String(statement));
  }
  return connection;
}

INSTANTIATE_TEST_SUITE_P(Database, SchemaContract,
                         testing::Values(SchemaHost{test::DriverName(), OpenDatabase}));

}  // namespace
}  // namespace contract

namespace sql::test {
namespace {

using host::SchemaKind;

class SchemaTest : public DatabaseTest {
 protected:
  host::RecordsetPtr Schema(SchemaKind kind, const String& table, const String& schema = {}) {
    return connection_->OpenSchema(kind, {{}, schema, table});
  }
};

struct TypeCase {
  StringView declared;
  Long type;
};

constexpr TypeCase kTypes[] = {
    {u"bool", host::type::Boolean},     {u"money", host::type::Currency},
    {u"uuid", host::type::VarWChar},    {u"bigint", host::type::Numeric},
    {u"text", host::type::VarWChar},    {u"char(5)", host::type::WChar},
    {u"date", host::type::DBDate},      {u"timestamp", host::type::DBTimeStamp},
    {u"bytea", host::type::Binary},     {u"double precision", host::type::Double},
    {u"smallint", host::type::SmallInt}};

// The schema reports a column with the type and size that its field has.
TEST_F(SchemaTest, TypesAndSizesAreThoseOfTheFields) {
  for (const TypeCase& c : kTypes) {
    SCOPED_TRACE(ToUtf8(c.declared));
    Run(u"drop table if exists t");
    Run(u"create table t (a " + String(c.declared) + u")");
    const auto column = Schema(SchemaKind::Columns, u"t", u"public");
    const auto rows = Read(u"select a from t");
    const auto field = rows->Fields().Item(0);
    EXPECT_SAME(Get(column, u"DATA_TYPE"), c.type);
    EXPECT_EQ(field->Type(), c.type);
    const Variant size = Get(column, u"CHARACTER_MAXIMUM_LENGTH");
    if (!size.IsNull()) {
      EXPECT_SAME(size, field->DefinedSize());
    }
  }
}

TEST_F(SchemaTest, ReportsDatabaseAndSchema) {
  Run(u"create table t (a int constraint chave primary key)");
  const auto table = Schema(SchemaKind::Tables, u"t");
  EXPECT_SAME(Get(table, u"TABLE_CATALOG"), u"postgres");
  EXPECT_SAME(Get(table, u"TABLE_SCHEMA"), u"public");
  const auto key = Schema(SchemaKind::PrimaryKeys, u"t", u"public");
  EXPECT_SAME(Get(key, u"PK_NAME"), u"chave");
  EXPECT_SAME(Get(key, u"TABLE_SCHEMA"), u"public");
  EXPECT_TRUE(connection_->OpenSchema(SchemaKind::Tables, {u"outro", {}, u"t"})->Eof());
}

TEST_F(SchemaTest, CanBeReadWhileRowsStillArrive) {
  Run(u"create table t (a int primary key)");
  const auto rows = Read(u"select * from generate_series(1, 20000)");
  EXPECT_EQ(Schema(SchemaKind::PrimaryKeys, u"t")->RecordCount(), 1);
  EXPECT_EQ(rows->RecordCount(), 20000);
}

TEST(Catalogue, NameMatchesExactly) {
  EXPECT_TRUE(IsAskedFor(u"a_b", u"a_b"));
  EXPECT_FALSE(IsAskedFor(u"axb", u"a_b"));
  EXPECT_FALSE(IsAskedFor(u"A_B", u"a_b"));
  EXPECT_FALSE(IsAskedFor(std::nullopt, u"a_b"));
  EXPECT_TRUE(IsAskedFor(std::nullopt, u""));
}

// --- Keys of drivers that cannot report primary keys --------------------------------------------

KeyPart Part(const String& index, const String& column) {
  return {{{}, {}, u"t"}, column, 1, index};
}

Columns Result(const std::vector<std::pair<String, bool>>& namesAndNulls) {
  Columns columns;
  for (const auto& [name, nullable] : namesAndNulls) {
    columns.emplace_back();
    columns.back().baseColumn = name;
    columns.back().nullable = nullable;
  }
  return columns;
}

TEST(UniqueIndex, IsTakenAsTheKeyWhenItIsCompleteAndNeverNull) {
  using Names = std::vector<String>;
  const std::vector<KeyPart> parts = {Part(u"IxCpf", u"cpf"), Part(u"IxPedido", u"pedido"),
                                      Part(u"IxPedido", u"item"), Part(u"PrimaryKey", u"codigo")};
  EXPECT_EQ(ChooseUniqueIndex(parts, Result({{u"codigo", false}, {u"cpf", false}})),
            (Names{u"codigo"}));
  EXPECT_EQ(ChooseUniqueIndex(parts, Result({{u"cpf", false}})), (Names{u"cpf"}));
  EXPECT_EQ(ChooseUniqueIndex(parts, Result({{u"cpf", true}})), (Names{}));
  EXPECT_EQ(ChooseUniqueIndex(parts, Result({{u"pedido", false}})), (Names{}));
  EXPECT_EQ(ChooseUniqueIndex(parts, Result({{u"item", false}, {u"pedido", false}})),
            (Names{u"pedido", u"item"}));
  EXPECT_EQ(ChooseUniqueIndex({}, Result({{u"codigo", false}})), (Names{}));
}

TEST(Diagnostics, KnowsWhatADriverDoesNotSupport) {
  for (const char* state : {"IM001", "HYC00", "HY091", "HY092"}) {
    EXPECT_TRUE(DriverError(state, u"").IsNotSupported()) << state;
  }
  for (const char* state : {"HY000", "08S01", "42000"}) {
    EXPECT_FALSE(DriverError(state, u"").IsNotSupported()) << state;
  }
}

}  // namespace
}  // namespace sql::test
}  // namespace tessaria
