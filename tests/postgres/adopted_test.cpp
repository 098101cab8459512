// Connections of a program that speaks to PostgreSQL by its client library.
#include <libpq-fe.h>

#include <functional>
#include <stdexcept>

#include "hosts/postgres/pg_link.h"
#include "hosts/sql/sql_connection.h"
#include "tessaria/postgres/connection.h"
#include "tests/ports/case_count.h"
#include "tests/sql/adopted_data.h"
#include "tests/sql/counting_driver.h"

namespace tessaria::contract {
namespace {

class LibraryProgram : public Program {
 public:
  explicit LibraryProgram(const std::string& more = {})
      : connection_(PQconnectdb(("host=" + test::PostgresCluster::Shared().Folder() +
                                 " dbname=postgres user=postgres client_encoding=UTF8 " + more)
                                    .c_str())) {
    PQsetNoticeProcessor(
        connection_, [](void*, const char*) {}, nullptr);
  }
  ~LibraryProgram() override { PQfinish(connection_); }

  PGconn* Get() const { return connection_; }
  host::ConnectionPtr Adopt() override { return postgres::AdoptConnection(connection_); }
  void Run(const std::string& statement) override { Ask(statement); }
  std::string Ask(const std::string& question) override {
    const std::unique_ptr<PGresult, void (*)(PGresult*)> result(
        PQexec(connection_, question.c_str()), PQclear);
    if (PQresultStatus(result.get()) > PGRES_TUPLES_OK)
      throw std::runtime_error(PQerrorMessage(connection_));
    return PQntuples(result.get()) > 0 ? PQgetvalue(result.get(), 0, 0) : "";
  }

 private:
  PGconn* connection_;
};

const bool counted = CountCases("libpq");
const ProgramHost kLibrary{"libpq", [] { return std::make_unique<LibraryProgram>(); }};
INSTANTIATE_TEST_SUITE_P(Libpq, AdoptedContract, testing::Values(kLibrary));
const DataHost kAdopted{
    "libpq", [] { return std::make_unique<AdoptedData>(std::make_unique<LibraryProgram>()); }};
INSTANTIATE_TEST_SUITE_P(Libpq, RecordSetContract, testing::Values(kAdopted));

class AdoptedLibraryTest : public testing::Test {
 protected:
  void SetUp() override {
    const std::string missing = test::PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    test::PostgresCluster::Shared().EnsureRunning();
  }
  static String TextOf(const std::function<void()>& call) {
    try {
      call();
    } catch (const HostError& error) {
      return error.Description();
    }
    return {};
  }
};

TEST_F(AdoptedLibraryTest, AConnectionThatIsNotThereIsRefused) {
  EXPECT_HOST_ERROR(postgres::AdoptConnection(nullptr), errors::InvalidConnection);
  LibraryProgram unreachable("port=1");
  EXPECT_HOST_ERROR(unreachable.Adopt(), errors::InvalidConnection);
  LibraryProgram program;
  EXPECT_HOST_ERROR(postgres::AdoptConnection(program.Get(), [] { return false; }),
                    errors::InvalidConnection);
}

/// Fails behind the BEGIN of a transaction, as when the operator gives up just then.
class BeginFails final : public sql::test::CountingStatement {
 public:
  using CountingStatement::CountingStatement;
  void Run(const String& text) override {
    const bool begins = text.find(u"tessaria_transaction") != String::npos;
    CountingStatement::Run(begins ? String(u"BEGIN; SELECT 1/0") : text);
  }
};

class BeginFailsLink final : public sql::test::CountingLink {
 public:
  explicit BeginFailsLink(PGconn* connection)
      : CountingLink(std::make_shared<postgres::PgLink>(connection, nullptr), Unused()) {}
  sql::StatementPtr NewStatement() override {
    return std::make_shared<BeginFails>(CountingLink::NewStatement(), Unused());
  }

 private:
  static std::shared_ptr<sql::test::Work> Unused() { return std::make_shared<sql::test::Work>(); }
};

TEST_F(AdoptedLibraryTest, ABeginThatFailsHalfwayLeavesTheProgramNoTransaction) {
  LibraryProgram program;
  const auto adopted = sql::AdoptConnection(std::make_shared<BeginFailsLink>(program.Get()));
  EXPECT_THROW(adopted->BeginTrans(), HostError);
  EXPECT_EQ(PQtransactionStatus(program.Get()), PQTRANS_IDLE);
  EXPECT_EQ(adopted->Execute(u"select 1")->RecordCount(), 1);
  program.Run("select 1");
}

TEST_F(AdoptedLibraryTest, AConnectionThatTheProgramNoLongerHasIsNotTouched) {
  auto program = std::make_unique<LibraryProgram>();
  const auto adopted =
      postgres::AdoptConnection(program->Get(), [&] { return program != nullptr; });
  adopted->BeginTrans();
  program.reset();
  EXPECT_EQ(adopted->State(), host::state::Closed);
  EXPECT_HOST_ERROR(adopted->Execute(u"select 1"), errors::InvalidConnection);
  adopted->Close();
}

TEST_F(AdoptedLibraryTest, ModesThatCannotBeWorkedWithAreNamed) {
  LibraryProgram program;
  const auto adopted = program.Adopt();
  program.Run("set client_encoding = LATIN1");
  EXPECT_GT(InStr(TextOf([&] { program.Adopt(); }), u"client_encoding"), 0);
  EXPECT_HOST_ERROR(adopted->Execute(u"select 1"), errors::InvalidConnection);
  program.Run("set client_encoding = UTF8");
  PQsetnonblocking(program.Get(), 1);
  EXPECT_GT(InStr(TextOf([&] { program.Adopt(); }), u"PQsetnonblocking"), 0);
  PQsetnonblocking(program.Get(), 0);
  PQenterPipelineMode(program.Get());
  EXPECT_GT(InStr(TextOf([&] { program.Adopt(); }), u"PQenterPipelineMode"), 0);
  PQexitPipelineMode(program.Get());
  EXPECT_EQ(adopted->Execute(u"select 1")->RecordCount(), 1);
}

TEST_F(AdoptedLibraryTest, AStatementThatTheProgramReadsKeepsItsRows) {
  LibraryProgram program;
  const auto adopted = program.Adopt();
  PQsendQuery(program.Get(), "select generate_series(1, 3)");
  PQsetSingleRowMode(program.Get());
  int rows = 0;
  while (PGresult* const result = PQgetResult(program.Get())) {
    rows += PQntuples(result);
    PQclear(result);
    if (rows < 3) {
      EXPECT_HOST_ERROR(adopted->Execute(u"select 1"), errors::StillExecuting);
    }
  }
  EXPECT_EQ(rows, 3);
  EXPECT_EQ(adopted->Execute(u"select 1")->RecordCount(), 1);
}

TEST_F(AdoptedLibraryTest, ATransferOfTheProgramIsNotDisturbed) {
  LibraryProgram program;
  const auto adopted = program.Adopt();
  program.Run("create temp table c (a int)");
  PQclear(PQexec(program.Get(), "copy c from stdin"));
  EXPECT_HOST_ERROR(adopted->Execute(u"select 1"), errors::StillExecuting);
  EXPECT_EQ(PQputCopyData(program.Get(), "7\n", 2), 1);
  EXPECT_EQ(PQputCopyEnd(program.Get(), nullptr), 1);
  while (PGresult* const result = PQgetResult(program.Get())) PQclear(result);
  EXPECT_EQ(program.Ask("select a from c"), "7");
}

TEST_F(AdoptedLibraryTest, AFailedTransactionOfTheProgramIsNamedAndLeftAlone) {
  LibraryProgram program;
  const auto adopted = program.Adopt();
  program.Run("begin");
  program.Run("savepoint meu");
  EXPECT_THROW(program.Run("selec"), std::runtime_error);
  EXPECT_GT(InStr(TextOf([&] { adopted->Execute(u"select 1"); }), u"ROLLBACK"), 0);
  EXPECT_GT(InStr(TextOf([&] { program.Adopt(); }), u"ROLLBACK"), 0);
  EXPECT_HOST_ERROR(adopted->RollbackTrans(), errors::ProviderError);
  program.Run("rollback to savepoint meu");
  EXPECT_EQ(adopted->Execute(u"select 1")->RecordCount(), 1);
  program.Run("rollback");
}

TEST_F(AdoptedLibraryTest, AnOwnTransactionThatTheProgramMadeFailCanBeUndone) {
  LibraryProgram program;
  const auto adopted = program.Adopt();
  adopted->BeginTrans();
  EXPECT_THROW(program.Run("selec"), std::runtime_error);
  EXPECT_HOST_ERROR(adopted->CommitTrans(), errors::ProviderError);
  adopted->RollbackTrans();
  EXPECT_EQ(PQtransactionStatus(program.Get()), PQTRANS_IDLE);
}

TEST_F(AdoptedLibraryTest, ATransactionThatFailsAfterAnOwnStatementIsLeftToTheProgram) {
  LibraryProgram program;
  program.Run("create temp table c (a int primary key)");
  auto adopted = program.Adopt();
  program.Run("begin");
  adopted->Execute(u"insert into c values (1)");
  program.Run("savepoint meu");
  const auto rows = adopted->OpenRecordset(u"select * from c", host::CursorType::Static,
                                           host::LockType::Optimistic);
  adopted->Execute(u"insert into c values (2)");
  EXPECT_THROW(program.Run("selec"), std::runtime_error);
  rows->Fields().Item(0)->Value(Long{7});
  const std::function<void()> calls[] = {[&] { adopted->Execute(u"select 1"); },
                                         [&] { adopted->Execute(u"insert into c values (3)"); },
                                         [&] { adopted->Execute(u"savepoint outro"); },
                                         [&] { adopted->Execute(u"rollback to savepoint meu"); },
                                         [&] { adopted->OpenSchema(host::SchemaKind::Tables); },
                                         [&] { adopted->BeginTrans(); },
                                         [&] { adopted->CommitTrans(); },
                                         [&] { adopted->RollbackTrans(); },
                                         [&] { rows->Update(); },
                                         [&] { adopted->Properties(u"Backslash Escapes"); }};
  for (const auto& call : calls) {
    EXPECT_GT(InStr(TextOf(call), u"ROLLBACK"), 0);
    EXPECT_EQ(PQtransactionStatus(program.Get()), PQTRANS_INERROR);
  }
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  adopted->Close();
  adopted.reset();
  EXPECT_EQ(PQtransactionStatus(program.Get()), PQTRANS_INERROR);
  program.Run("rollback to savepoint meu");
  program.Run("commit");
  EXPECT_EQ(program.Ask("select string_agg(a::text, ',') from c"), "1");
}

// Ends the transaction of the adopted connection behind its back, begins another one and makes it
// fail after a savepoint.
void FailInAnotherTransaction(LibraryProgram& program) {
  program.Run("rollback");
  program.Run("begin");
  program.Run("insert into c values (1)");
  program.Run("savepoint meu");
  EXPECT_THROW(program.Run("selec"), std::runtime_error);
}

TEST_F(AdoptedLibraryTest, AFailedTransactionOfTheProgramIsNotTakenForAnOwnOne) {
  LibraryProgram program;
  program.Run("create temp table c (a int primary key)");
  auto adopted = program.Adopt();
  adopted->BeginTrans();
  FailInAnotherTransaction(program);
  for (int i = 0; i < 2; ++i) {
    EXPECT_GT(InStr(TextOf([&] { adopted->RollbackTrans(); }), u"ROLLBACK"), 0);
    EXPECT_EQ(PQtransactionStatus(program.Get()), PQTRANS_INERROR);
  }
  program.Run("rollback");
  adopted->BeginTrans();
  FailInAnotherTransaction(program);
  adopted.reset();
  EXPECT_EQ(PQtransactionStatus(program.Get()), PQTRANS_INERROR);
  program.Run("rollback to savepoint meu");
  program.Run("commit");
  EXPECT_EQ(program.Ask("select count(*) from c"), "1");
}

TEST_F(AdoptedLibraryTest, AnOwnTransactionThatTheProgramMadeFailIsUndoneWhenItIsLetGo) {
  LibraryProgram program;
  auto adopted = program.Adopt();
  adopted->BeginTrans();
  EXPECT_THROW(program.Run("selec"), std::runtime_error);
  adopted.reset();
  EXPECT_EQ(PQtransactionStatus(program.Get()), PQTRANS_IDLE);
}

// Texts that the program writes with backslashes are read as the program's session reads them.
TEST_F(AdoptedLibraryTest, BackslashesAreReadAsTheProgramsSessionReadsThem) {
  LibraryProgram program;
  const auto adopted = program.Adopt();
  program.Run("set escape_string_warning = off");
  program.Run("set standard_conforming_strings = off");
  EXPECT_SAME(adopted->Properties(u"Backslash Escapes"), true);
  EXPECT_SAME(adopted->Execute(u"select 'a\\'b'")->Fields().Item(0)->Value(), u"a'b");
  program.Run("set standard_conforming_strings = on");
  EXPECT_SAME(adopted->Properties(u"Backslash Escapes"), false);
}

}  // namespace
}  // namespace tessaria::contract
