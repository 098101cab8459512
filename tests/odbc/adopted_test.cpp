// Connections of a program that speaks ODBC.
#include <sql.h>
#include <sqlext.h>

#include <array>
#include <stdexcept>

#include "tessaria/odbc/connection.h"
#include "tests/ports/case_count.h"
#include "tests/sql/adopted_data.h"
#include "tests/support/cutting_proxy.h"

namespace tessaria::contract {
namespace {

class OdbcProgram : public Program {
 public:
  explicit OdbcProgram(const std::string& more = {})
      : OdbcProgram(test::PostgresCluster::Shared().ConnectionString(), more) {}
  OdbcProgram(const String& server, const std::string& more) {
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_);
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3),
                  0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection_);
    std::string text = ToUtf8(server) + more;
    const auto result =
        SQLDriverConnect(connection_, nullptr, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS,
                         nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(result)) throw std::runtime_error("not connected");
  }
  ~OdbcProgram() override {
    Disconnect();
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    SQLFreeHandle(SQL_HANDLE_ENV, environment_);
  }

  void Disconnect() {
    SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK);
    SQLDisconnect(connection_);
  }
  SQLHDBC Get() const { return connection_; }
  host::ConnectionPtr Adopt() override { return odbc::AdoptConnection(connection_); }
  void Run(const std::string& statement) override { Ask(statement); }
  std::string Ask(const std::string& question) override {
    SQLHSTMT statement = SQL_NULL_HSTMT;
    SQLAllocHandle(SQL_HANDLE_STMT, connection_, &statement);
    const std::unique_ptr<void, void (*)(SQLHSTMT)> end(
        statement, [](SQLHSTMT used) { SQLFreeHandle(SQL_HANDLE_STMT, used); });
    std::string text = question;
    const auto result = SQLExecDirect(statement, reinterpret_cast<SQLCHAR*>(text.data()), SQL_NTS);
    if (!SQL_SUCCEEDED(result) && result != SQL_NO_DATA) throw std::runtime_error("failed");
    SQLSMALLINT columns = 0;
    SQLNumResultCols(statement, &columns);
    if (columns == 0 || SQLFetch(statement) != SQL_SUCCESS) return {};
    std::array<char, 256> cell{};
    SQLGetData(statement, 1, SQL_C_CHAR, cell.data(), cell.size(), nullptr);
    return cell.data();
  }

 private:
  SQLHENV environment_ = SQL_NULL_HENV;
  SQLHDBC connection_ = SQL_NULL_HDBC;
};

// One that ends its transactions by the driver.
class ManualProgram final : public OdbcProgram {
 public:
  using OdbcProgram::OdbcProgram;
  void Begin() override { AutoCommit(SQL_AUTOCOMMIT_OFF); }
  void Commit() override { End(SQL_COMMIT); }
  void Rollback() override { End(SQL_ROLLBACK); }
  void AutoCommit(SQLULEN mode) {
    SQLSetConnectAttr(Get(), SQL_ATTR_AUTOCOMMIT, reinterpret_cast<SQLPOINTER>(mode), 0);
  }

 private:
  void End(SQLSMALLINT how) {
    SQLEndTran(SQL_HANDLE_DBC, Get(), how);
    AutoCommit(SQL_AUTOCOMMIT_ON);
  }
};

const bool counted = CountCases("ODBC");
template <class Kind>
ProgramHost Host(const char* name, const char* settings) {
  return {name, [settings] { return std::make_unique<Kind>(settings); }};
}
// What the driver does after an error, and how it sends parameters.
INSTANTIATE_TEST_SUITE_P(
    Odbc, AdoptedContract,
    testing::Values(Host<OdbcProgram>("texts", ""), Host<ManualProgram>("driver", ""),
                    Host<ManualProgram>("no undoing", "Protocol=7.4-0;"),
                    Host<OdbcProgram>("unprepared", "UseServerSidePrepare=0;")));
const DataHost kAdopted{"ODBC", [] {
                          return std::make_unique<AdoptedData>(std::make_unique<OdbcProgram>(
                              "MaxVarcharSize=10485761;MaxLongVarcharSize=0;"));
                        }};
INSTANTIATE_TEST_SUITE_P(Odbc, RecordSetContract, testing::Values(kAdopted));

class AdoptedOdbcTest : public testing::Test {
 protected:
  void SetUp() override {
    const std::string missing = test::PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    test::PostgresCluster::Shared().EnsureRunning();
  }
  static String Refusal(Program& program) {
    try {
      program.Adopt();
    } catch (const HostError& error) {
      EXPECT_EQ(error.Number(), errors::InvalidConnection);
      return error.Description();
    }
    return {};
  }
  /// Whether a transaction is open on the server.
  static bool IsOpen(Program& program) {
    return program.Ask("values (case when now() <> statement_timestamp() then 1 else 0 end)") ==
           "1";
  }
};

TEST_F(AdoptedOdbcTest, AHandleWithoutAConnectionIsRefused) {
  EXPECT_HOST_ERROR(odbc::AdoptConnection(nullptr), errors::InvalidConnection);
  OdbcProgram program;
  EXPECT_HOST_ERROR(odbc::AdoptConnection(program.Get(), [] { return false; }),
                    errors::InvalidConnection);
  program.Disconnect();
  EXPECT_HOST_ERROR(program.Adopt(), errors::InvalidConnection);
}

TEST_F(AdoptedOdbcTest, AConnectionThatWasClosedSinceIsLost) {
  OdbcProgram program;
  const auto adopted = program.Adopt();
  const auto rows = adopted->Execute(u"select generate_series(1, 3000)");
  program.Disconnect();
  EXPECT_ANY_THROW(adopted->Execute(u"select 1"));
  EXPECT_EQ(adopted->State(), host::state::Closed);
  EXPECT_EQ(rows->RecordCount(), 3000);
}

TEST_F(AdoptedOdbcTest, AConnectionThatTheProgramNoLongerHasIsNotTouched) {
  auto program = std::make_unique<OdbcProgram>();
  const auto adopted = odbc::AdoptConnection(program->Get(), [&] { return program != nullptr; });
  adopted->BeginTrans();
  program.reset();
  EXPECT_EQ(adopted->State(), host::state::Closed);
  EXPECT_HOST_ERROR(adopted->Execute(u"select 1"), errors::InvalidConnection);
  adopted->Close();
}

TEST_F(AdoptedOdbcTest, SettingsOfTheDriverThatDoHarmAreNamed) {
  struct Harm {
    const char* setting;
    StringView named;
  };
  for (const Harm& harm :
       {Harm{"Protocol=7.4-1;", u"Protocol=7.4-1"}, Harm{"LFConversion=1;", u"LFConversion=1"},
        Harm{"UseDeclareFetch=1;", u"UseDeclareFetch=1"}}) {
    OdbcProgram program(harm.setting);
    EXPECT_GT(InStr(Refusal(program), harm.named), 0) << harm.setting;
    EXPECT_FALSE(IsOpen(program)) << harm.setting;
  }
}

TEST_F(AdoptedOdbcTest, AnOpenTransactionIsNotTriedIn) {
  for (const char* mode : {"Protocol=7.4-0;", "Protocol=7.4-1;", "Protocol=7.4-2;"}) {
    OdbcProgram program(mode);
    program.Run("begin");
    program.Run("create temp table mine (a int)");
    EXPECT_GT(InStr(Refusal(program), u"transação aberta"), 0);
    EXPECT_EQ(program.Ask("select count(*) from mine"), "0");
    program.Run("rollback");
    ManualProgram manual(mode);
    manual.Begin();
    manual.Run("create temp table mine (a int)");
    EXPECT_GT(InStr(Refusal(manual), u"transação aberta"), 0);
    EXPECT_EQ(manual.Ask("select count(*) from mine"), "0");
    manual.Rollback();
  }
}

TEST_F(AdoptedOdbcTest, AProgramThatWorksWithoutAutocommitIsAdoptedBetweenItsTransactions) {
  ManualProgram program;
  program.AutoCommit(SQL_AUTOCOMMIT_OFF);
  const auto adopted = program.Adopt();
  program.Run("create temp table mine (a int)");
  adopted->Execute(u"insert into mine values (1)");
  EXPECT_HOST_ERROR(adopted->BeginTrans(), errors::ProviderError);
  EXPECT_ANY_THROW(adopted->Execute(u"selec"));
  EXPECT_EQ(program.Ask("select count(*) from mine"), "1");
  program.Rollback();
  EXPECT_THROW(program.Run("select 1 from mine"), std::runtime_error);
}

TEST_F(AdoptedOdbcTest, AFailedTransactionOfTheProgramIsNamedAndLeftAlone) {
  OdbcProgram program("Protocol=7.4-0;");
  const auto adopted = program.Adopt();
  program.Run("begin");
  program.Run("savepoint meu");
  EXPECT_THROW(program.Run("selec"), std::runtime_error);
  EXPECT_HOST_ERROR(adopted->Execute(u"select 1"), errors::ProviderError);
  program.Run("rollback to savepoint meu");
  EXPECT_EQ(adopted->Execute(u"select 1")->RecordCount(), 1);
  program.Run("rollback");
}

TEST_F(AdoptedOdbcTest, AFailedTransactionOfTheProgramIsNotTakenForAnOwnOne) {
  OdbcProgram program("Protocol=7.4-0;");
  program.Run("create temp table c (a int primary key)");
  auto adopted = program.Adopt();
  adopted->BeginTrans();
  program.Run("rollback");
  program.Run("begin");
  program.Run("insert into c values (1)");
  program.Run("savepoint meu");
  EXPECT_THROW(program.Run("selec"), std::runtime_error);
  for (int i = 0; i < 2; ++i) EXPECT_HOST_ERROR(adopted->RollbackTrans(), errors::ProviderError);
  adopted.reset();
  program.Run("rollback to savepoint meu");
  program.Run("commit");
  EXPECT_EQ(program.Ask("select count(*) from c"), "1");
}

// Gives up at once, over a line that swallows what it is given and is cut after some seconds.
class Swallowing final : public host::WaitView {
 public:
  Swallowing(test::CuttingProxy& proxy, const host::Connection& connection)
      : proxy_(proxy), connection_(connection) {
    State().waiting = this;
  }
  ~Swallowing() override { State().waiting = nullptr; }
  bool Pass(const host::Wait& wait) override {
    if (proxy_.Cuts() == 0) isLost = connection_.State() == host::state::Closed;
    if (proxy_.Cuts() == 0 && wait.Elapsed > std::chrono::seconds(8)) proxy_.CutNow();
    proxy_.Swallow();
    return true;
  }
  void Over() override {}

  bool isLost = false;

 private:
  test::CuttingProxy& proxy_;
  const host::Connection& connection_;
};

// The server may only be slow, and the program goes on using its connection.
TEST_F(AdoptedOdbcTest, ARequestToCancelThatDoesNotArriveLosesNoConnectionOfTheProgram) {
  auto& cluster = test::PostgresCluster::Shared();
  test::CuttingProxy proxy(cluster.Socket());
  OdbcProgram program(cluster.ConnectionString(proxy.Port()), "");
  const auto adopted = program.Adopt();
  {
    Swallowing view(proxy, *adopted);
    EXPECT_ANY_THROW(adopted->Execute(u"select pg_sleep(60)"));
    EXPECT_FALSE(view.isLost) << "before the line was cut";
  }
  EXPECT_HOST_ERROR(adopted->Execute(u"select 1"), errors::InvalidConnection);
  program.Disconnect();
}

// The program's own cursor in the driver stays where it is.
TEST_F(AdoptedOdbcTest, RowsThatTheProgramReadsAreNotEaten) {
  OdbcProgram program;
  const auto adopted = program.Adopt();
  SQLHSTMT reading = SQL_NULL_HSTMT;
  SQLAllocHandle(SQL_HANDLE_STMT, program.Get(), &reading);
  std::string query = "select generate_series(1, 500)";
  SQLExecDirect(reading, reinterpret_cast<SQLCHAR*>(query.data()), SQL_NTS);
  int rows = 0;
  while (SQL_SUCCEEDED(SQLFetch(reading))) {
    if (++rows % 100 != 0) continue;
    EXPECT_EQ(adopted->Execute(u"select generate_series(1, 2000)")->RecordCount(), 2000);
    EXPECT_ANY_THROW(adopted->Execute(u"selec"));
  }
  EXPECT_EQ(rows, 500);
  SQLFreeHandle(SQL_HANDLE_STMT, reading);
}

}  // namespace
}  // namespace tessaria::contract
