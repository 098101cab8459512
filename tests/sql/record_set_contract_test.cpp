// Runs the contracts of record sets on rows of a real database.
#include "tests/ports/record_set_contract.h"
#include "tests/ports/case_count.h"
#include "tests/ports/record_set_doubt_contract.h"
#include "tests/ports/record_set_edit_contract.h"
#include "tests/ports/record_set_recovery_contract.h"
#include "tests/sql/database_test.h"
#include "tests/support/cutting_proxy.h"

namespace tessaria::contract {
namespace {

const bool counted = CountCases(test::DriverName());

class DatabaseData final : public DataDriver {
 public:
  DatabaseData() {
    const auto& cluster = test::PostgresCluster::Shared();
    connection_->ConnectionString(cluster.ConnectionString(proxy_.Port()));
    other_->ConnectionString(cluster.ConnectionString());
    for (host::Connection* connection : {connection_.get(), other_.get()}) connection->Open();
    other_->Execute(u"drop table if exists contrato");
    other_->Execute(
        u"create table contrato (\"Codigo\" integer primary key, \"Nome\" varchar(20) not null, "
        u"\"Valor\" numeric(10,2), \"Data\" date)");
    other_->Execute(
        u"insert into contrato values (1, 'Ana', 10.50, '2021-03-15'), (2, 'Bruno', null, null), "
        u"(3, 'Carla', 7, '2020-02-01')");
  }

  host::ConnectionPtr Connection() override { return connection_; }
  host::RecordsetPtr Open(host::LockType lock) override {
    return Rows(u"select * from contrato order by \"Codigo\"", lock);
  }
  host::RecordsetPtr OpenEmpty() override {
    return Rows(u"select * from contrato where 1 = 2", host::LockType::ReadOnly);
  }
  void ChangeName(Long code, const String& name) override { other_->Execute(Renaming(code, name)); }
  void DeleteRow(Long code) override {
    other_->Execute(u"delete from contrato where \"Codigo\" = " + CStr(Variant(code)));
  }
  void LoseNextAnswer(bool stored) override {
    using Side = test::CuttingProxy::Side;
    if (stored) {
      proxy_.CutAt(Side::Server, {"INSERT 0 1", "UPDATE 1", "DELETE 1"});
    } else {
      proxy_.CutAt(Side::Client, {"INSERT INTO", "UPDATE ", "DELETE FROM"});
    }
  }
  String Renaming(Long code, const String& name) override {
    return u"UPDATE contrato SET \"Nome\" = '" + Replace(name, u"'", u"''") +
           u"' where \"Codigo\" = " + CStr(Variant(code));
  }
  void StoreNamesInCapitals() override {
    other_->Execute(
        u"create or replace function capitais() returns trigger language plpgsql as "
        u"'begin new.\"Nome\" = upper(new.\"Nome\"); return new; end'");
    other_->Execute(
        u"create trigger capitais before insert or update on contrato for each row execute "
        u"function capitais()");
  }
  std::vector<String> StoredNames() override {
    std::vector<String> names;
    const auto rows = other_->Execute(u"select \"Nome\" from contrato order by \"Codigo\"");
    for (; !rows->Eof(); rows->MoveNext()) names.push_back(CStr(rows->Fields().Item(0)->Value()));
    return names;
  }

 private:
  host::RecordsetPtr Rows(const String& statement, host::LockType lock) {
    return connection_->OpenRecordset(statement, host::CursorType::Static, lock);
  }

  test::CuttingProxy proxy_{test::PostgresCluster::Shared().Socket()};
  host::ConnectionPtr connection_ = test::NewConnectionOfTheDriver();
  host::ConnectionPtr other_ = test::NewConnectionOfTheDriver();
};

const DataHost kDatabase{test::DriverName(), [] { return std::make_unique<DatabaseData>(); }};
INSTANTIATE_TEST_SUITE_P(Database, RecordSetContract, testing::Values(kDatabase));
INSTANTIATE_TEST_SUITE_P(Database, WriteInDoubtContract, testing::Values(kDatabase));
INSTANTIATE_TEST_SUITE_P(Database, RowRecoveryContract, testing::Values(kDatabase));

}  // namespace
}  // namespace tessaria::contract
