// Databases that a program has opened with Qt's SQL module.
#include "tessaria/qtsql/adopt.h"

#include <QSqlDatabase>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QThread>
#include <QVariant>
#include <memory>
#include <stdexcept>

#include "lookup/description_lookup.h"
#include "tessaria/memory/application.h"
#include "tests/ports/case_count.h"
#include "tests/sql/adopted_data.h"

namespace tessaria::contract {
namespace {

QSqlDatabase Opened(const QString& driver) {
  static int number = 0;
  QSqlDatabase database =
      QSqlDatabase::addDatabase(driver, QStringLiteral("adotado %1").arg(++number));
  const auto& cluster = test::PostgresCluster::Shared();
  if (driver == QStringLiteral("QPSQL")) {
    database.setHostName(QString::fromStdString(cluster.Folder()));
    database.setDatabaseName(QStringLiteral("postgres"));
    database.setUserName(QStringLiteral("postgres"));
  } else {
    database.setDatabaseName(QString::fromStdU16String(cluster.ConnectionString()));
  }
  if (!database.open()) throw std::runtime_error(database.lastError().text().toStdString());
  return database;
}

class QtProgram final : public Program {
 public:
  explicit QtProgram(const char* driver) : database_(Opened(QString::fromLatin1(driver))) {}
  ~QtProgram() override {
    const QString name = database_.connectionName();
    database_ = QSqlDatabase();
    QSqlDatabase::removeDatabase(name);
  }

  QSqlDatabase& Database() { return database_; }
  host::ConnectionPtr Adopt() override { return qtsql::Adopt(database_); }
  void Run(const std::string& statement) override { Ask(statement); }
  std::string Ask(const std::string& question) override {
    QSqlQuery query(database_);
    if (!query.exec(QString::fromStdString(question)))
      throw std::runtime_error(query.lastError().text().toStdString());
    return query.next() ? query.value(0).toString().toStdString() : std::string();
  }
  void Begin() override { Require(database_.transaction()); }
  void Commit() override { Require(database_.commit()); }
  void Rollback() override { Require(database_.rollback()); }

 private:
  static void Require(bool isDone) {
    if (!isDone) throw std::runtime_error("the transaction was refused");
  }

  QSqlDatabase database_;
};

const bool counted = CountCases("Qt");
ProgramHost Host(const char* driver) {
  return {driver, [driver] { return std::make_unique<QtProgram>(driver); }};
}
INSTANTIATE_TEST_SUITE_P(Qt, AdoptedContract, testing::Values(Host("QPSQL"), Host("QODBC")));
DataHost Rows(const char* driver) {
  return {driver,
          [driver] { return std::make_unique<AdoptedData>(std::make_unique<QtProgram>(driver)); }};
}
INSTANTIATE_TEST_SUITE_P(Qt, RecordSetContract, testing::Values(Rows("QPSQL"), Rows("QODBC")));

class QtSqlTest : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    const std::string missing = test::PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    test::PostgresCluster::Shared().EnsureRunning();
  }
};

TEST_P(QtSqlTest, DatabaseThatIsNotOpenIsRefused) {
  EXPECT_HOST_ERROR(qtsql::Adopt(QSqlDatabase()), errors::InvalidConnection);
  QtProgram program(GetParam());
  program.Database().close();
  EXPECT_HOST_ERROR(program.Adopt(), errors::InvalidConnection);
}

TEST_P(QtSqlTest, DatabaseThatIsClosedIsLostAndNotTouched) {
  QtProgram program(GetParam());
  const auto adopted = program.Adopt();
  const auto rows = adopted->Execute(u"select generate_series(1, 3000)");
  adopted->BeginTrans();
  program.Database().close();
  EXPECT_EQ(adopted->State(), host::state::Closed);
  EXPECT_HOST_ERROR(adopted->Execute(u"select 1"), errors::InvalidConnection);
  EXPECT_EQ(rows->RecordCount(), 3000);
  ASSERT_TRUE(program.Database().open());
  EXPECT_HOST_ERROR(adopted->Open(), errors::InvalidConnection);
  EXPECT_EQ(program.Adopt()->Execute(u"select 1")->RecordCount(), 1);
}

TEST_P(QtSqlTest, DatabaseThatWasOpenedAgainIsAdoptedAgain) {
  QtProgram program(GetParam());
  const auto adopted = program.Adopt();
  adopted->BeginTrans();
  program.Database().close();
  ASSERT_TRUE(program.Database().open());
  EXPECT_HOST_ERROR(adopted->Execute(u"select 1"), errors::InvalidConnection);
  EXPECT_EQ(adopted->State(), host::state::Closed);
  EXPECT_HOST_ERROR(adopted->Open(), errors::InvalidConnection);
  EXPECT_EQ(program.Adopt()->Execute(u"select 1")->RecordCount(), 1);
}

TEST_P(QtSqlTest, DatabaseMayGoBeforeItsConnectionAndAfterIt) {
  auto program = std::make_unique<QtProgram>(GetParam());
  auto first = program->Adopt();
  auto rows =
      first->OpenRecordset(u"select 1 as a", host::CursorType::Static, host::LockType::Optimistic);
  program.reset();
  first.reset();
  rows.reset();
  program = std::make_unique<QtProgram>(GetParam());
  first = program->Adopt();
  first.reset();
  EXPECT_EQ(program->Ask("select 7"), "7");
}

TEST_P(QtSqlTest, DatabaseOfAnotherThreadIsRefused) {
  QtProgram program(GetParam());
  Long number = 0;
  const std::unique_ptr<QThread> thread(QThread::create([&] {
    try {
      qtsql::Adopt(program.Database());
    } catch (const HostError& error) {
      number = error.Number();
    }
  }));
  thread->start();
  thread->wait();
  EXPECT_EQ(number, errors::InvalidConnection);
}

TEST_P(QtSqlTest, QueriesOfTheProgramKeepTheirRows) {
  QtProgram program(GetParam());
  const auto adopted = program.Adopt();
  QSqlQuery query(program.Database());
  ASSERT_TRUE(query.exec(QStringLiteral("select generate_series(1, 500)")));
  int rows = 0;
  while (query.next()) {
    if (++rows % 100 == 0) {
      EXPECT_EQ(adopted->Execute(u"select generate_series(1, 2000)")->RecordCount(), 2000);
    }
  }
  EXPECT_EQ(rows, 500);
}

// As a field finds the description of a code, in the transaction of the program.
TEST_P(QtSqlTest, DescriptionIsFoundInTheProgramsTransaction) {
  memory::Application application;
  QtProgram program(GetParam());
  const auto adopted = program.Adopt();
  State().dbConexao = adopted;
  program.Run("create temp table clientes (codigo int, nome text)");
  program.Begin();
  program.Run("insert into clientes values (7, 'Ana')");
  Browse browse;
  browse.BrowseTable(u"clientes");
  browse.BrwCampo(u"codigo");
  browse.BrwCampoIrmao(u"nome");
  EXPECT_SAME(mdlObjTxt::AchaDescr(browse, Long{7}, u"txtCodigo", u"", 0), u"Ana");
  program.Rollback();
  EXPECT_TRUE(mdlObjTxt::AchaDescr(browse, Long{7}, u"txtCodigo", u"", 0).IsEmpty());
  for (const auto& box : application.TakeBoxes()) ADD_FAILURE() << ToUtf8(box.Text);
  State().dbConexao = nullptr;
}

TEST_P(QtSqlTest, PreparedQueriesOfTheProgramWorkBeforeAndAfter) {
  QtProgram program(GetParam());
  const auto adopted = program.Adopt();
  QSqlQuery query(program.Database());
  ASSERT_TRUE(query.prepare(QStringLiteral("select cast(? as integer) + 1")));
  for (int i = 0; i < 3; ++i) {
    query.bindValue(0, i);
    ASSERT_TRUE(query.exec());
    ASSERT_TRUE(query.next());
    EXPECT_EQ(query.value(0).toInt(), i + 1);
    query.finish();
    EXPECT_EQ(adopted->Execute(u"select 1")->RecordCount(), 1);
    EXPECT_ANY_THROW(adopted->Execute(u"selec"));
  }
}

INSTANTIATE_TEST_SUITE_P(Qt, QtSqlTest, testing::Values("QPSQL", "QODBC"));

using QtPostgresTest = QtSqlTest;

TEST_P(QtPostgresTest, ForwardOnlyQueryKeepsItsRowsAndIsNamed) {
  QtProgram program(GetParam());
  const auto adopted = program.Adopt();
  QSqlQuery query(program.Database());
  query.setForwardOnly(true);
  ASSERT_TRUE(query.exec(QStringLiteral("select generate_series(1, 3)")));
  int rows = 0;
  while (query.next()) {
    if (++rows < 3) {
      EXPECT_HOST_ERROR(adopted->Execute(u"select 1"), errors::StillExecuting);
    }
  }
  EXPECT_EQ(rows, 3);
  query.clear();  // the driver reads the end of the answer only now
  EXPECT_EQ(adopted->Execute(u"select 1")->RecordCount(), 1);
}

TEST_P(QtPostgresTest, DatabaseThatWaitsForNotificationsIsRefused) {
  QtProgram program(GetParam());
  ASSERT_TRUE(program.Database().driver()->subscribeToNotification(QStringLiteral("aviso")));
  EXPECT_HOST_ERROR(program.Adopt(), errors::InvalidConnection);
  program.Database().driver()->unsubscribeFromNotification(QStringLiteral("aviso"));
  EXPECT_EQ(program.Adopt()->State(), host::state::Open);
}

INSTANTIATE_TEST_SUITE_P(Qt, QtPostgresTest, testing::Values("QPSQL"));

TEST(QtSqlDrivers, AnyOtherIsRefused) {
  QSqlDatabase database =
      QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("outro"));
  database.setDatabaseName(QStringLiteral(":memory:"));
  if (!database.open()) GTEST_SKIP() << "Qt has no driver besides those that can be adopted";
  try {
    qtsql::Adopt(database);
    FAIL() << "adopted";
  } catch (const HostError& error) {
    EXPECT_EQ(error.Number(), errors::InvalidConnection);
    EXPECT_GT(InStr(error.Description(), u"QSQLITE"), 0);
  }
}

}  // namespace
}  // namespace tessaria::contract
