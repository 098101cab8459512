// Runs the contract of schemas on the database of the memory host.
#include "tessaria/memory/connection.h"
#include "tests/ports/schema_contract.h"

namespace tessaria::contract {
namespace {

using memory::Column;

Column Number(const String& name, bool nullable = true) {
  return {.Name = name, .Type = host::type::Integer, .DefinedSize = 4, .Nullable = nullable};
}

std::shared_ptr<memory::Connection> OpenMemory() {
  auto connection = memory::Connection::CreateOpen();
  connection->AddTable(u"ativos", {Number(u"codigo")});
  connection->SetTableType(u"ativos", u"VIEW");
  connection->AddTable(u"cliente", {Number(u"codigo", false),
                                    {.Name = u"nome", .DefinedSize = 20, .Nullable = false},
                                    {.Name = u"valor",
                                     .Type = host::type::Numeric,
                                     .DefinedSize = 19,
                                     .Precision = 10,
                                     .NumericScale = 2}});
  connection->SetPrimaryKey(u"cliente", {u"codigo"});
  connection->AddTable(u"item_1",
                       {Number(u"pedido", false), Number(u"item", false), Number(u"qtde")});
  connection->SetPrimaryKey(u"item_1", {u"item", u"pedido"});
  connection->AddTable(u"itemx1", {Number(u"outra")});
  return connection;
}

INSTANTIATE_TEST_SUITE_P(Memory, SchemaContract, testing::Values(SchemaHost{"memory", OpenMemory}));

TEST(MemorySchema, FaultIsRaisedByTheNextCall) {
  const auto connection = OpenMemory();
  connection->FailNext(HostError(errors::ProviderError, u"fora do ar"));
  EXPECT_HOST_ERROR(connection->OpenSchema(host::SchemaKind::Tables), errors::ProviderError);
  EXPECT_EQ(connection->OpenSchema(host::SchemaKind::Tables)->RecordCount(), 4);
}

TEST(MemorySchema, FactsAboutAnUnknownTableAreRefused) {
  const auto connection = memory::Connection::CreateOpen();
  EXPECT_HOST_ERROR(connection->SetTableType(u"nenhuma", u"VIEW"), errors::ItemNotFound);
  EXPECT_HOST_ERROR(connection->SetPrimaryKey(u"nenhuma", {u"a"}), errors::ItemNotFound);
}

}  // namespace
}  // namespace tessaria::contract
