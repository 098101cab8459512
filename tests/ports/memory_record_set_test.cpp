// Runs the contracts of record sets on the record sets of the memory host.
#include "tessaria/memory/connection.h"
#include "tests/ports/record_set_contract.h"
#include "tests/ports/record_set_doubt_contract.h"
#include "tests/ports/record_set_edit_contract.h"
#include "tests/ports/record_set_recovery_contract.h"
#include "tests/support/printers.h"

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
    connection_->SetPrimaryKey(u"Cliente", {u"Codigo"});
    connection_->Answer(u"Select * From Cliente Where 1 = 2", {columns, {}});
  }

  host::ConnectionPtr Connection() override { return connection_; }
  host::RecordsetPtr Open(host::LockType lock) override {
    return connection_->OpenRecordset(u"Cliente", host::CursorType::Static, lock);
  }
  host::RecordsetPtr OpenEmpty() override {
    return connection_->Execute(u"Select * From Cliente Where 1 = 2");
  }
  void ChangeName(Long code, const String& name) override {
    table_->Change(RowOf(code), u"Nome", name);
  }
  void DeleteRow(Long code) override { table_->Remove(RowOf(code)); }
  void LoseNextAnswer(bool stored) override { connection_->LoseNextAnswer(stored); }
  String Renaming(Long code, const String& name) override {
    const String statement = u"Update Cliente Set Nome = '" + name + u"'";
    connection_->OnStatement = [=, this](const String& sent) -> std::optional<memory::Rows> {
      if (sent != statement) return std::nullopt;
      ChangeName(code, name);
      return memory::Rows{};
    };
    return statement;
  }
  void StoreNamesInCapitals() override {
    table_->ChangeWhatIsWritten([](memory::Row& row) { row[1] = UCase(CStr(row[1])); });
  }
  std::vector<String> StoredNames() override {
    std::vector<String> names;
    for (const auto& row : table_->Rows()) names.push_back(CStr(row.Cells[1]));
    return names;
  }

 private:
  std::size_t RowOf(Long code) const {
    std::size_t row = 0;
    while (CLng(table_->Rows().at(row).Cells[0]) != code) ++row;
    return row;
  }

  std::shared_ptr<memory::Connection> connection_ = memory::Connection::CreateOpen();
  memory::TablePtr table_;
};

// Specific to this host: a field of a database keeps its rows alive.
TEST_P(RecordSetContract, AFieldThatOutlivesItsSetRaises3704) {
  auto rows = ReadOnly();
  const auto field = Field(rows, u"Nome");
  rows.reset();
  EXPECT_EQ(ErrorOf([&] { field->Value(); }), errors::ObjectClosed);
}

const DataHost kMemoryRows{"memory", [] { return std::make_unique<MemoryData>(); }};
INSTANTIATE_TEST_SUITE_P(Memory, RecordSetContract, testing::Values(kMemoryRows));
INSTANTIATE_TEST_SUITE_P(Memory, WriteInDoubtContract, testing::Values(kMemoryRows));
INSTANTIATE_TEST_SUITE_P(Memory, RowRecoveryContract, testing::Values(kMemoryRows));

// A database shows a value that its kind cannot hold in this way.
TEST(MemoryRecordset, AKeptTextIsShownAndStaysAndIsNoEditWhenAssignedAgain) {
  const auto connection = memory::Connection::CreateOpen();
  const auto table = connection->AddTable(
      u"Nota", {{.Name = u"Data", .Type = host::type::DBDate}, {.Name = u"Texto"}}, {{}});
  table->KeepText(0, u"Data", u"infinity");
  const auto rows =
      connection->OpenRecordset(u"Nota", host::CursorType::Static, host::LockType::Optimistic);
  const auto date = rows->Fields().Item(0);
  EXPECT_SAME(date->Value(), u"infinity");
  date->Value(date->Value());
  EXPECT_EQ(rows->EditMode(), host::EditMode::None);
  EXPECT_HOST_ERROR(date->Value(u"-infinity"), errors::TypeMismatch);
  rows->Fields().Item(1)->Value(u"um");
  rows->Update();
  EXPECT_SAME(table->Rows()[0].Cells[0], u"infinity");
  rows->Find(u"Data = 01/01/2020");
  EXPECT_TRUE(rows->Eof());
}

TEST(MemoryRecordset, ASingleRefusesWhatItCannotHold) {
  const auto connection = memory::Connection::CreateOpen();
  connection->AddTable(u"Medida", {{.Name = u"Valor", .Type = host::type::Single}}, {{1.5}});
  const auto rows =
      connection->OpenRecordset(u"Medida", host::CursorType::Static, host::LockType::Optimistic);
  const auto field = rows->Fields().Item(u"Valor");
  EXPECT_HOST_ERROR(field->Value(1e39), errors::Overflow);
  EXPECT_SAME(field->Value(), 1.5F);
}

// The database generates the key of a table that names none.
TEST(MemoryRecordset, ANewRowWithoutAKeyIsWrittenAgainOnlyWhenTheRowsWereReadAgain) {
  const auto connection = memory::Connection::CreateOpen();
  const auto table = connection->AddTable(u"Nota", {{.Name = u"Texto"}});
  const auto rows =
      connection->OpenRecordset(u"Nota", host::CursorType::Static, host::LockType::Optimistic);
  rows->AddNew();
  rows->Fields().Item(0)->Value(u"um");
  connection->LoseNextAnswer(false);
  EXPECT_HOST_ERROR(rows->Update(), errors::WriteInDoubt);
  connection->Open();
  EXPECT_HOST_ERROR(rows->Update(), errors::WriteInDoubt);
  rows->Requery();
  EXPECT_EQ(rows->RecordCount(), 0);
  rows->Update();
  EXPECT_EQ(table->Rows().size(), 1U);
}

}  // namespace
}  // namespace tessaria::contract
