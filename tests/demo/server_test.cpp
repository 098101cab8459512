#include <gmock/gmock.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QProcess>
#include <QTest>
#include <csignal>

#include "apps/demo/failure.h"
#include "tests/demo/desk_fixture.h"

namespace tessaria::demo {
namespace {

using testing::HasSubstr;

std::string refusalOf(Cluster& server) {
  try {
    server.start();
    return {};
  } catch (const Failure& failure) {
    return failure.what();
  }
}

TEST(Server, KeepsItsDataAndServesOneProgramAtATime) {
  const ServerFolder folder;
  {
    Cluster server(folder.path());
    server.start();
    readRows(server.connectionString(),
             "update clientes set nome = 'Ficou' where codigo = '00001'");
    Cluster second(folder.path());
    EXPECT_THAT(refusalOf(second), HasSubstr("já está aberto"));
    EXPECT_TRUE(server.isRunning());
  }
  Cluster again(folder.path());
  again.start();
  const auto rows = readRows(again.connectionString(), "select nome from clientes order by codigo");
  ASSERT_EQ(rows.size(), 400);
  EXPECT_EQ(rows.first().first().second, "Ficou");
  again.stop();
  EXPECT_FALSE(again.isRunning());
}

TEST(Server, RefusesTheDataOfAnEarlierProgram) {
  const ServerFolder folder;
  {
    Cluster server(folder.path());
    server.start();
    readRows(server.connectionString(), "drop table pedidos cascade");
  }
  Cluster again(folder.path());
  EXPECT_THAT(refusalOf(again), HasSubstr("versão anterior"));
}

TEST(Server, RefusesAFolderThatCannotBeMade) {
  Cluster server("/proc/mesa");
  EXPECT_THAT(refusalOf(server), HasSubstr("não pode ser criada"));
}

TEST(Server, RefusesAFolderThatItsUserCannotWrite) {
  const ServerFolder folder;
  const QString closed = folder.path("fechada");
  ASSERT_TRUE(QDir().mkpath(closed));
  chmod(QFile::encodeName(closed).constData(), runsAsRoot() ? 0700 : 0500);
  Cluster server(closed);
  EXPECT_THAT(refusalOf(server), HasSubstr("não pode ser gravada"));
}

class Program : public testing::Test {
 protected:
  void start(const QStringList& arguments) {
    process_.setProcessChannelMode(QProcess::MergedChannels);
    process_.start(TESSARIA_DEMO, arguments);
    ASSERT_TRUE(process_.waitForStarted());
  }
  std::string output() { return process_.readAll().toStdString(); }
  int result() {
    EXPECT_TRUE(process_.waitForFinished(60000));
    return process_.exitCode();
  }
  bool serverRuns() const { return QFile::exists(folder_.path() + "/banco/postmaster.pid"); }
  void startDesk() {
    start({"--data", folder_.path()});
    ASSERT_TRUE(QTest::qWaitFor([this] { return serverRuns(); }, 60000));
  }

  ServerFolder folder_;
  QProcess process_;
};

TEST_F(Program, SaysWhatIsWrongWithItsConnection) {
  start({"--connection", "Driver={Nenhum driver};Database=x"});
  EXPECT_NE(result(), 0);
  EXPECT_THAT(output(), HasSubstr("Falta o driver ODBC do PostgreSQL"));
}

TEST_F(Program, DistinguishesAWrongDataSourceFromAMissingDriver) {
  start({"--connection", "DSN=NaoExiste"});
  EXPECT_NE(result(), 0);
  const std::string told = output();
  EXPECT_THAT(told, HasSubstr("A fonte de dados ODBC indicada não existe"));
  EXPECT_THAT(told, testing::Not(HasSubstr("Falta o driver")));
}

TEST_F(Program, StopsItsServerWhenItIsToldToEnd) {
  startDesk();
  kill(static_cast<pid_t>(process_.processId()), SIGTERM);
  EXPECT_EQ(result(), 128 + SIGTERM);
  EXPECT_FALSE(serverRuns());
}

TEST_F(Program, ItsServerEndsWithItHoweverItEnds) {
  startDesk();
  process_.kill();
  EXPECT_TRUE(process_.waitForFinished());
  EXPECT_TRUE(QTest::qWaitFor([this] { return !serverRuns(); }, 60000));
}

}  // namespace
}  // namespace tessaria::demo
