// The table of the record set's contract, over a connection that belongs to the program.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "tests/ports/record_set_contract.h"
#include "tests/ports/record_set_edit_contract.h"
#include "tests/sql/adopted_contract.h"

namespace tessaria::contract {

class AdoptedData final : public DataDriver {
 public:
  explicit AdoptedData(std::unique_ptr<Program> program) : program_(std::move(program)) {
    for (const char* statement :
         {"drop table if exists contrato",
          "create table contrato (\"Codigo\" integer primary key, \"Nome\" varchar(20) not null, "
          "\"Valor\" numeric(10,2), \"Data\" date)",
          "insert into contrato values (1, 'Ana', 10.50, '2021-03-15'), (2, 'Bruno', null, null), "
          "(3, 'Carla', 7, '2020-02-01')"}) {
      program_->Run(statement);
    }
    connection_ = program_->Adopt();
  }

  host::ConnectionPtr Connection() override { return connection_; }
  host::RecordsetPtr Open(host::LockType lock) override {
    return connection_->OpenRecordset(u"select * from contrato order by \"Codigo\"",
                                      host::CursorType::Static, lock);
  }
  host::RecordsetPtr OpenEmpty() override {
    return connection_->Execute(u"select * from contrato where 1 = 2");
  }
  void ChangeName(Long code, const String& name) override {
    program_->Run(ToUtf8(Renaming(code, name)));
  }
  void DeleteRow(Long code) override {
    program_->Run("delete from contrato where \"Codigo\" = " + std::to_string(code));
  }
  /// Losses have tests of their own: the connection is not opened again here.
  void LoseNextAnswer(bool) override { std::abort(); }
  String Renaming(Long code, const String& name) override {
    return u"UPDATE contrato SET \"Nome\" = '" + Replace(name, u"'", u"''") +
           u"' where \"Codigo\" = " + CStr(Variant(code));
  }
  void StoreNamesInCapitals() override {
    program_->Run(
        "create or replace function capitais() returns trigger language plpgsql as "
        "'begin new.\"Nome\" = upper(new.\"Nome\"); return new; end'");
    program_->Run(
        "create trigger capitais before insert or update on contrato for each row execute "
        "function capitais()");
  }
  std::vector<String> StoredNames() override {
    std::vector<String> names;
    const auto rows = connection_->Execute(u"select \"Nome\" from contrato order by \"Codigo\"");
    for (; !rows->Eof(); rows->MoveNext()) names.push_back(CStr(rows->Fields().Item(0)->Value()));
    return names;
  }

 private:
  std::unique_ptr<Program> program_;
  host::ConnectionPtr connection_;
};

}  // namespace tessaria::contract
