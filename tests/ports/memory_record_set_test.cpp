// The record sets of the memory host under the contract of record sets.
#include "hosts/memory/connection.h"
#include "tests/ports/record_set_contract.h"
#include "tests/ports/record_set_edit_contract.h"

namespace tessaria::contract {
namespace {

class MemoryData final : public DataDriver {
 public:
  MemoryData() {
    const std::vector<memory::Column> columns = {
        {.Name = u"Codigo", .Type = host::type::Integer, .DefinedSize = 4, .Nullable = false},
        {.Name = u"Nome", .DefinedSize = 20, .Nullable = false},
        {.Name = u"Valor",
         .Type = host::type::Numeric,
         .DefinedSize = 19,
         .Precision = 10,
         .NumericScale = 2},
        {.Name = u"Data", .Type = host::type::DBTimeStamp, .DefinedSize = 16},
    };
    table_ = connection_->AddTable(u"Cliente", columns,
                                   {{1, u"Ana", 10.5, u"15/03/2021"},
                                    {2, u"Bruno", Variant::Null(), Variant::Null()},
                                    {3, u"Carla", 7, u"01/02/2020"}});
    connection_->Answer(u"Select * From Cliente Where 1 = 2", {columns, {}});
  }

  host::ConnectionPtr Connection() override { return connection_; }
  host::RecordsetPtr Open(host::LockType lock) override {
    return connection_->OpenRecordset(u"Cliente", host::CursorType::Static, lock);
  }
  host::RecordsetPtr OpenEmpty() override {
    return connection_->Execute(u"Select * From Cliente Where 1 = 2");
  }
  void ChangeNome(Long codigo, const String& nome) override {
    table_->Change(RowOf(codigo), u"Nome", nome);
  }
  void DeleteRow(Long codigo) override { table_->Remove(RowOf(codigo)); }
  std::vector<String> StoredNames() override {
    std::vector<String> names;
    for (const auto& row : table_->Rows()) names.push_back(CStr(row.Cells[1]));
    return names;
  }

 private:
  std::size_t RowOf(Long codigo) const {
    std::size_t row = 0;
    while (CLng(table_->Rows().at(row).Cells[0]) != codigo) ++row;
    return row;
  }

  std::shared_ptr<memory::Connection> connection_ = memory::Connection::CreateOpen();
  memory::TablePtr table_;
};

// This host's own: a database's field keeps its rows.
TEST_P(RecordSetContract, AFieldThatOutlivesItsSetSays3704) {
  auto rows = ReadOnly();
  const auto field = Field(rows, u"Nome");
  rows.reset();
  EXPECT_EQ(ErrorOf([&] { field->Value(); }), errors::ObjectClosed);
}

INSTANTIATE_TEST_SUITE_P(Memory, RecordSetContract,
                         testing::Values(DataHost{"memory",
                                                  [] { return std::make_unique<MemoryData>(); }}));

}  // namespace
}  // namespace tessaria::contract
