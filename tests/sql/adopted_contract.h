// Contract of connections that belong to the program: what its own statements and those of this
// library see of each other, and what is left behind.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "hosts/sql/errors/driver_error.h"
#include "tessaria/host/data.h"
#include "tessaria/host/waiting.h"
#include "tessaria/thread_state.h"
#include "tests/support/database_driver.h"
#include "tests/support/postgres_cluster.h"
#include "tests/support/printers.h"

namespace tessaria::contract {

/// A connection that a program has opened by means of its own. Failures raise an exception.
class Program {
 public:
  Program() = default;
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;
  virtual ~Program() = default;

  virtual host::ConnectionPtr Adopt() = 0;
  virtual void Run(const std::string& statement) = 0;
  /// The first cell of the answer.
  virtual std::string Ask(const std::string& question) = 0;
  /// As programs of this kind do it.
  virtual void Begin() { Run("BEGIN"); }
  virtual void Commit() { Run("COMMIT"); }
  virtual void Rollback() { Run("ROLLBACK"); }
};

struct ProgramHost {
  const char* name;
  std::function<std::unique_ptr<Program>()> make;
  friend void PrintTo(const ProgramHost& host, std::ostream* out) { *out << host.name; }
};

class AdoptedContract : public testing::TestWithParam<ProgramHost> {
 protected:
  void SetUp() override {
    const std::string missing = test::PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    Cluster().EnsureRunning();
    other_ = test::NewConnectionOfTheDriver();
    other_->ConnectionString(Cluster().ConnectionString());
    other_->Open();
    other_->Execute(u"drop table if exists t cascade");
    other_->Execute(u"create table t (k int primary key, nome varchar(20) not null, data date)");
    other_->Execute(u"insert into t values (1, 'Ana', '2021-03-15'), (2, 'Bia', null)");
    program_ = GetParam().make();
    adopted_ = program_->Adopt();
  }

  static test::PostgresCluster& Cluster() { return test::PostgresCluster::Shared(); }
  host::RecordsetPtr Edit(const String& statement) {
    return adopted_->OpenRecordset(statement, host::CursorType::Static, host::LockType::Optimistic);
  }
  Variant Scalar(const String& statement) {
    return adopted_->Execute(statement)->Fields().Item(0)->Value();
  }
  static void Set(const host::RecordsetPtr& rows, const String& name, const Variant& value) {
    rows->Fields().Item(name)->Value(value);
  }
  static Variant Get(const host::RecordsetPtr& rows, const String& name) {
    return rows->Fields().Item(name)->Value();
  }
  /// The names as another session sees them, in the order of their keys.
  std::string Committed() {
    return ToUtf8(CStr(other_->Execute(u"select string_agg(nome, ',' order by k) from t")
                           ->Fields()
                           .Item(0)
                           ->Value()));
  }
  std::string Names() { return program_->Ask("select string_agg(nome, ',' order by k) from t"); }
  std::string AllSettings() {
    return program_->Ask(
        "select md5(string_agg(name || '=' || setting, ',' order by name)) from pg_settings");
  }
  /// Changes the name of the current row and stores a new one, which is current then.
  static void RenameAndAdd(const host::RecordsetPtr& rows, const String& name, Long key,
                           const String& nameOfNew) {
    Set(rows, u"nome", name);
    rows->Update();
    rows->AddNew();
    Set(rows, u"k", key);
    Set(rows, u"nome", nameOfNew);
    rows->Update();
  }
  /// Everything that this library does, once.
  void UseAll() {
    Scalar(u"Select nome From t Where k = 1 Limit 1");
    EXPECT_EQ(Edit(u"select * from t order by k")->RecordCount(), 2);
    const auto rows = Edit(u"select * from t order by k");
    RenameAndAdd(rows, u"Eva", 9, u"Nova");
    rows->Delete();
    EXPECT_ANY_THROW(adopted_->Execute(u"selec"));
    EXPECT_ANY_THROW(adopted_->Execute(u"insert into t values (1, 'x')"));
    EXPECT_EQ(
        adopted_->OpenSchema(host::SchemaKind::PrimaryKeys, {{}, u"public", u"t"})->RecordCount(),
        1);
  }
  /// What another session sees of the program's: "idle", "idle in transaction", ...
  std::string StateSeen(const std::string& process) {
    return ToUtf8(
        CStr(other_->Execute(u"select state from pg_stat_activity where pid = " + FromUtf8(process))
                 ->Fields()
                 .Item(0)
                 ->Value()));
  }
  std::string Process() { return program_->Ask("select pg_backend_pid()"); }

  host::ConnectionPtr other_;
  std::unique_ptr<Program> program_;
  host::ConnectionPtr adopted_;
};

namespace sql_errors = sql::errors;

TEST_P(AdoptedContract, IsOpenAndNamesItsServer) {
  EXPECT_EQ(adopted_->State(), host::state::Open);
  EXPECT_FALSE(adopted_->ConnectionString().empty());  // lookups take an empty one for none
  EXPECT_SAME(adopted_->Properties(u"DBMS Name"), u"PostgreSQL");
  EXPECT_SAME(adopted_->Properties(u"Backslash Escapes"), false);
  EXPECT_SAME(Scalar(u"Select nome From t Where k = 2 Limit 1"), u"Bia");
}

TEST_P(AdoptedContract, SeesWhatTheProgramHasWrittenInItsTransaction) {
  program_->Begin();
  program_->Run("insert into t values (3, 'Carla')");
  EXPECT_SAME(Scalar(u"Select nome From t Where k = 3 Limit 1"), u"Carla");
  EXPECT_EQ(Edit(u"select * from t")->RecordCount(), 3);
  program_->Rollback();
  EXPECT_EQ(adopted_->Execute(u"Select nome From t Where k = 3 Limit 1")->RecordCount(), 0);
}

TEST_P(AdoptedContract, WhatIsWrittenVanishesWithTheProgramsRollbackAndStaysWithItsCommit) {
  const auto rows = Edit(u"select * from t order by k");
  program_->Begin();
  Set(rows, u"nome", u"Eva");
  rows->Update();
  EXPECT_EQ(Names(), "Eva,Bia");
  program_->Rollback();
  EXPECT_EQ(Committed(), "Ana,Bia");
  program_->Begin();
  const auto again = Edit(u"select * from t order by k");
  RenameAndAdd(again, u"Iva", 3, u"Carla");
  EXPECT_EQ(Committed(), "Ana,Bia");
  program_->Commit();
  EXPECT_EQ(Committed(), "Iva,Bia,Carla");
}

TEST_P(AdoptedContract, OutsideATransactionEachWriteIsStored) {
  UseAll();
  EXPECT_EQ(Committed(), "Eva,Bia");
  EXPECT_EQ(StateSeen(Process()), "idle");
}

TEST_P(AdoptedContract, FailedStatementLeavesTheProgramsTransactionUsable) {
  program_->Begin();
  program_->Run("insert into t values (3, 'Carla')");
  for (const StringView failing :
       {u"selec 1", u"select nada from t", u"insert into t values (1, 'x')",
        u"Select k From t Where k = abc Limit 1", u"Select k From t Where 1 / (k - 2) < 9",
        u"Select nome, data From t Where 1 / (k - 1) < 9 Limit 1", u"Select k From t Where ("}) {
    SCOPED_TRACE(ToUtf8(failing));
    EXPECT_ANY_THROW(adopted_->Execute(String(failing)));
    EXPECT_EQ(Names(), "Ana,Bia,Carla");
  }
  program_->Commit();
  EXPECT_EQ(Committed(), "Ana,Bia,Carla");
}

TEST_P(AdoptedContract, RefusedWriteKeepsTheEditAndTheTransaction) {
  program_->Begin();
  program_->Run("insert into t values (3, 'Carla')");
  const auto rows = Edit(u"select * from t order by k");
  Set(rows, u"k", Long{2});
  EXPECT_HOST_ERROR(rows->Update(), sql_errors::IntegrityViolation);
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  Set(rows, u"k", Long{7});
  rows->Update();
  program_->Commit();
  EXPECT_EQ(Committed(), "Bia,Carla,Ana");
}

TEST_P(AdoptedContract, PendingEditOutlivesTheEndOfTheProgramsTransaction) {
  for (const bool isKept : {false, true}) {
    program_->Begin();
    const auto rows = Edit(u"select * from t order by k");
    Set(rows, u"nome", isKept ? u"Iva" : u"Eva");
    isKept ? program_->Commit() : program_->Rollback();
    EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
    rows->Update();
    EXPECT_EQ(Committed(), isKept ? "Iva,Bia" : "Eva,Bia");
  }
}

TEST_P(AdoptedContract, SettingsOfTheProgramStayAsTheyAre) {
  program_->Run("set statement_timeout = '77s'");
  program_->Run("set datestyle = 'ISO, DMY'");
  const std::string before = AllSettings();
  UseAll();
  EXPECT_EQ(AllSettings(), before);
  program_->Begin();
  program_->Run("set local lock_timeout = '3s'");
  program_->Run("set local bytea_output = 'escape'");
  const std::string inside = AllSettings();
  EXPECT_NE(inside, before);
  Edit(u"select * from t")->RecordCount();
  EXPECT_ANY_THROW(adopted_->Execute(u"selec"));
  adopted_->Execute(u"update t set nome = 'Eva' where k = 1");
  EXPECT_EQ(AllSettings(), inside);
  program_->Commit();
  EXPECT_EQ(AllSettings(), before);
}

TEST_P(AdoptedContract, OwnStatementsRunUnderOwnTimeOuts) {
  adopted_->LockTimeout(3);
  EXPECT_SAME(Scalar(u"show lock_timeout"), u"3s");
  program_->Begin();
  EXPECT_SAME(Scalar(u"show statement_timeout"), u"30s");
  adopted_->CommandTimeout(0);
  EXPECT_SAME(Scalar(u"show statement_timeout"), u"0");
  EXPECT_NE(program_->Ask("show lock_timeout"), "3s");
  program_->Rollback();
}

TEST_P(AdoptedContract, LockedRowIsGivenUpInsideAndOutsideATransaction) {
  adopted_->LockTimeout(1);
  const auto rows = Edit(u"select * from t order by k");
  Set(rows, u"nome", u"Eva");
  other_->BeginTrans();
  other_->Execute(u"update t set nome = 'Outro' where k = 1");
  EXPECT_HOST_ERROR(rows->Update(), errors::TimeOut);
  program_->Begin();
  program_->Run("update t set nome = 'Bruna' where k = 2");
  EXPECT_HOST_ERROR(rows->Update(), errors::TimeOut);
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  other_->RollbackTrans();
  rows->Update();
  program_->Commit();
  EXPECT_EQ(Committed(), "Eva,Bruna");
}

TEST_P(AdoptedContract, TransactionsCanBeControlledByTheConnection) {
  adopted_->BeginTrans();
  adopted_->Execute(u"insert into t values (3, 'Carla')");
  program_->Run("insert into t values (4, 'Davi')");
  EXPECT_HOST_ERROR(adopted_->BeginTrans(), errors::ProviderError);
  adopted_->RollbackTrans();
  EXPECT_EQ(Names(), "Ana,Bia");
  adopted_->Execute(u"begin isolation level serializable");
  EXPECT_SAME(Scalar(u"show transaction_isolation"), u"serializable");
  program_->Run("insert into t values (5, 'Ester')");
  EXPECT_ANY_THROW(adopted_->Execute(u"selec"));
  adopted_->CommitTrans();
  EXPECT_EQ(Committed(), "Ana,Bia,Ester");
  EXPECT_HOST_ERROR(adopted_->CommitTrans(), errors::ProviderError);
  EXPECT_HOST_ERROR(adopted_->RollbackTrans(), errors::ProviderError);
}

TEST_P(AdoptedContract, ATransactionOfTheProgramIsNeverEnded) {
  program_->Begin();
  program_->Run("insert into t values (3, 'Carla')");
  EXPECT_HOST_ERROR(adopted_->BeginTrans(), errors::ProviderError);
  EXPECT_HOST_ERROR(adopted_->CommitTrans(), errors::ProviderError);
  EXPECT_HOST_ERROR(adopted_->Execute(u"rollback"), errors::ProviderError);
  EXPECT_EQ(Names(), "Ana,Bia,Carla");
  program_->Rollback();
  adopted_->BeginTrans();
  program_->Run("ROLLBACK");
  EXPECT_HOST_ERROR(adopted_->CommitTrans(), errors::ProviderError);
  adopted_->BeginTrans();
  program_->Run("ROLLBACK");
  program_->Begin();  // another one
  program_->Run("insert into t values (4, 'Davi')");
  EXPECT_HOST_ERROR(adopted_->CommitTrans(), errors::ProviderError);
  EXPECT_HOST_ERROR(adopted_->RollbackTrans(), errors::ProviderError);
  adopted_.reset();
  program_->Commit();
  EXPECT_EQ(Committed(), "Ana,Bia,Davi");
}

TEST_P(AdoptedContract, ConnectionThatIsLetGoLeavesTheProgramsTransactionAndUndoesItsOwn) {
  program_->Begin();
  const auto rows = Edit(u"select * from t order by k");
  adopted_->Execute(u"insert into t values (3, 'Carla')");
  adopted_.reset();
  Set(rows, u"nome", u"Eva");
  rows->Update();  // record sets keep what they need
  program_->Commit();
  EXPECT_EQ(Committed(), "Eva,Bia,Carla");
  adopted_ = program_->Adopt();
  adopted_->BeginTrans();
  adopted_->Execute(u"delete from t");
  adopted_.reset();
  EXPECT_EQ(Names(), "Eva,Bia,Carla");
  EXPECT_EQ(StateSeen(Process()), "idle");
}

TEST_P(AdoptedContract, CloseLeavesTheProgramsConnectionOpen) {
  adopted_->Close();
  EXPECT_EQ(adopted_->State(), host::state::Closed);
  EXPECT_HOST_ERROR(adopted_->Execute(u"select 1"), errors::InvalidConnection);
  EXPECT_HOST_ERROR(adopted_->Open(), errors::InvalidConnection);
  EXPECT_EQ(Names(), "Ana,Bia");
  EXPECT_EQ(program_->Adopt()->State(), host::state::Open);
}

TEST_P(AdoptedContract, CanBeAdoptedTwice) {
  const auto second = program_->Adopt();
  program_->Begin();
  adopted_->Execute(u"insert into t values (3, 'Carla')");
  EXPECT_EQ(second->Execute(u"select * from t")->RecordCount(), 3);
  EXPECT_HOST_ERROR(second->RollbackTrans(), errors::ProviderError);
  program_->Rollback();
  adopted_->BeginTrans();
  EXPECT_HOST_ERROR(second->CommitTrans(), errors::ProviderError);
  adopted_->CommitTrans();
}

TEST_P(AdoptedContract, RowsAreReadWholeAndNothingStaysOpen) {
  const String many =
      u"select n as k, date '2020-02-29' + n as dia, 'x' || n as nome from "
      u"generate_series(1, 30000) n order by n";
  for (const bool inTransaction : {false, true}) {
    if (inTransaction) program_->Begin();
    const auto rows = adopted_->Execute(many);
    EXPECT_TRUE(rows->Complete());
    EXPECT_EQ(program_->Ask("select count(*) from pg_cursors where name = 'tessaria_rows'"), "0");
    if (!inTransaction) {
      EXPECT_EQ(StateSeen(Process()), "idle");
    }
    EXPECT_EQ(rows->RecordCount(), 30000);
    EXPECT_SAME(rows->ValueAt(30000, 2), u"x30000");
    if (inTransaction) program_->Commit();
  }
}

TEST_P(AdoptedContract, QueryThatFailsAmongItsRowsIsAnErrorAndLeavesNothing) {
  for (const bool inTransaction : {false, true}) {
    if (inTransaction) program_->Begin();
    EXPECT_HOST_ERROR(adopted_->Execute(u"select 1 / (n - 25000) from generate_series(1, 30000) n"),
                      sql_errors::ValueRefused);
    EXPECT_EQ(Names(), "Ana,Bia");
    if (inTransaction) program_->Commit();
  }
  EXPECT_EQ(StateSeen(Process()), "idle");
}

TEST_P(AdoptedContract, RefusedEndOfAWriteIsItsError) {
  adopted_->Execute(u"alter table t add p int references t deferrable initially deferred");
  EXPECT_HOST_ERROR(adopted_->Execute(u"insert into t values (3, 'x', null, 99)"),
                    sql_errors::IntegrityViolation);
  const auto rows = Edit(u"select * from t order by k");
  Set(rows, u"p", Long{99});
  EXPECT_HOST_ERROR(rows->Update(), sql_errors::IntegrityViolation);
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  EXPECT_EQ(StateSeen(Process()), "idle");
}

TEST_P(AdoptedContract, StatementThatCannotRunInATransactionRunsAlone) {
  EXPECT_NO_THROW(adopted_->Execute(u"vacuum t"));
  program_->Begin();
  EXPECT_ANY_THROW(adopted_->Execute(u"vacuum t"));
  EXPECT_EQ(Names(), "Ana,Bia");
  program_->Commit();
}

TEST_P(AdoptedContract, SavepointsOfTheProgramStayItsOwn) {
  program_->Begin();
  program_->Run("savepoint meu");
  adopted_->Execute(u"insert into t values (3, 'Carla')");
  adopted_->Execute(u"savepoint outro");
  adopted_->Execute(u"insert into t values (4, 'Davi')");
  EXPECT_ANY_THROW(adopted_->Execute(u"rollback to savepoint nenhum"));
  adopted_->Execute(u"rollback to savepoint outro");
  EXPECT_EQ(Names(), "Ana,Bia,Carla");
  program_->Run("rollback to savepoint meu");
  EXPECT_EQ(Names(), "Ana,Bia");
  program_->Commit();
}

TEST_P(AdoptedContract, StatementIsPassedInTheViewOfTheThreadAndCanBeGivenUp) {
  class Impatient final : public host::WaitView {
   public:
    Impatient() { State().waiting = this; }
    ~Impatient() override { State().waiting = nullptr; }
    bool Pass(const host::Wait& wait) override {
      return wait.Elapsed > std::chrono::milliseconds(300);
    }
    void Over() override {}
  };
  const auto start = std::chrono::steady_clock::now();
  for (const bool inTransaction : {false, true}) {
    if (inTransaction) program_->Begin();
    {
      const Impatient operatorGivesUp;
      EXPECT_HOST_ERROR(Scalar(u"select pg_sleep(20)"), errors::Cancelled);
    }
    EXPECT_EQ(Names(), "Ana,Bia");
    if (inTransaction) program_->Commit();
  }
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
}

TEST_P(AdoptedContract, LossIsAnErrorAndNothingIsReopened) {
  const auto rows = Edit(u"select * from t order by k");
  Set(rows, u"nome", u"Eva");
  other_->Execute(u"select pg_terminate_backend(" + FromUtf8(Process()) + u", 5000)");
  EXPECT_ANY_THROW(adopted_->Execute(u"select 1"));
  EXPECT_EQ(adopted_->State(), host::state::Closed);
  EXPECT_HOST_ERROR(adopted_->Execute(u"select 1"), errors::InvalidConnection);
  EXPECT_HOST_ERROR(adopted_->Open(), errors::InvalidConnection);
  EXPECT_HOST_ERROR(rows->Update(), errors::InvalidConnection);
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
}

}  // namespace tessaria::contract
