#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <filesystem>

#include "tests/sql/database_test.h"

namespace tessaria::sql::test {
namespace {

class LostServerTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    CreateNames(u"t", 20000);
  }
  void KillSession() {
    Cluster().Run(
        "select pg_terminate_backend(pid) from pg_stat_activity"
        " where pid <> pg_backend_pid() and backend_type = 'client backend'");
  }
};

TEST_F(LostServerTest, StoppedServerIsAnErrorAndClosesTheConnection) {
  Cluster().Stop();
  EXPECT_EQ(connection_->State(), host::state::Open);
  EXPECT_HOST_ERROR(Run(u"select 1"), errors::ProviderError);
  EXPECT_EQ(connection_->State(), host::state::Closed);
  EXPECT_HOST_ERROR(Run(u"select 1"), errors::InvalidConnection);
  EXPECT_HOST_ERROR(connection_->Open(), errors::ProviderError);
  EXPECT_EQ(connection_->State(), host::state::Closed);
  Cluster().Start();
  connection_->Open();
  EXPECT_EQ(connection_->State(), host::state::Open);
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{20000});
}

TEST_F(LostServerTest, TheLossIsToldInTheOperatorsWords) {
  KillSession();
  try {
    Run(u"select 1");
    FAIL() << "no error";
  } catch (const HostError& error) {
    EXPECT_EQ(Left(error.Description(), 43), u"A conexão com o banco de dados foi perdida.")
        << ToUtf8(error.Description());
  }
  Cluster().Stop();
  try {
    connection_->Open();
    FAIL() << "no error";
  } catch (const HostError& error) {
    EXPECT_EQ(InStr(error.Description(), u"foi perdida"), 0) << "there was none";
  }
  Cluster().Start();
}

TEST_F(LostServerTest, RowsThatWereReadStayReadable) {
  const auto all = Read(u"select * from t where codigo <= 15000 order by codigo");
  EXPECT_EQ(all->RecordCount(), 15000);
  KillSession();
  EXPECT_ANY_THROW(Run(u"select 1"));
  all->MoveLast();
  EXPECT_SAME(Get(all, u"nome"), u"nome 15000");
  all->Sort(u"codigo desc");
  EXPECT_SAME(Get(all, u"codigo"), Long{15000});
  connection_->Open();
  all->Requery();
  EXPECT_SAME(Get(all, u"codigo"), Long{1});
}

TEST_F(LostServerTest, ShortReadIsAnErrorEachTime) {
  const auto rows = Read(u"select * from t order by codigo");
  KillSession();
  EXPECT_HOST_ERROR(rows->RecordCount(), errors::ProviderError);
  EXPECT_EQ(connection_->State(), host::state::Closed);
  EXPECT_HOST_ERROR(rows->MoveLast(), errors::ProviderError);
  EXPECT_HOST_ERROR(rows->Find(u"codigo = 20000"), errors::ProviderError);
  EXPECT_SAME(Get(rows, u"codigo"), Long{1});
  rows->AbsolutePosition(1000);
  EXPECT_SAME(Get(rows, u"codigo"), Long{1000});
  connection_->Open();
  rows->Requery();
  EXPECT_EQ(rows->RecordCount(), 20000);
}

TEST_F(LostServerTest, PendingEditSurvivesAndIsWrittenLater) {
  const auto rows = Edit(u"select * from t where codigo <= 3 order by codigo");
  Set(rows, u"nome", u"mudado");
  Cluster().Stop();
  EXPECT_HOST_ERROR(rows->MoveNext(), errors::WriteInDoubt);
  EXPECT_HOST_ERROR(rows->Update(), errors::InvalidConnection);
  EXPECT_EQ(rows->EditMode(), host::EditMode::InProgress);
  EXPECT_SAME(Get(rows, u"nome"), u"mudado");
  Cluster().Start();
  connection_->Open();
  rows->MoveNext();
  EXPECT_EQ(rows->AbsolutePosition(), 2);
  EXPECT_SAME(Scalar(u"select nome from t where codigo = 1"), u"mudado");
}

TEST_F(LostServerTest, LostTransactionIsOver) {
  connection_->BeginTrans();
  Run(u"delete from t");
  KillSession();
  EXPECT_HOST_ERROR(Run(u"select 1"), errors::ProviderError);
  EXPECT_HOST_ERROR(connection_->CommitTrans(), errors::InvalidConnection);
  connection_->Open();
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{20000});
  connection_->BeginTrans();
  connection_->RollbackTrans();
}

TEST_F(LostServerTest, LossAtCommitLeavesTheTransactionInDoubt) {
  connection_->BeginTrans();
  Run(u"delete from t");
  KillSession();
  EXPECT_HOST_ERROR(connection_->CommitTrans(), errors::WriteInDoubt);
  EXPECT_EQ(connection_->State(), host::state::Closed);
  connection_->Open();
  EXPECT_SAME(Scalar(u"select count(*)::int from t"), Long{20000});
}

TEST_F(LostServerTest, ObjectsMayBeDroppedInAnyOrderAfterwards) {
  auto rows = Edit(u"select * from t order by codigo");
  const auto field = rows->Fields().Item(0);
  KillSession();
  EXPECT_ANY_THROW(Run(u"select 1"));
  connection_.reset();
  rows.reset();
  EXPECT_SAME(field->Value(), Long{1});
}

/// Accepts connections and never answers.
class MuteServer {
 public:
  explicit MuteServer(const std::string& folder) : socket_(socket(AF_UNIX, SOCK_STREAM, 0)) {
    std::filesystem::create_directory(folder);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const std::string path = folder + "/.s.PGSQL.5432";
    std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
    isListening_ = bind(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
                   listen(socket_, 5) == 0;
  }
  MuteServer(const MuteServer&) = delete;
  MuteServer& operator=(const MuteServer&) = delete;
  ~MuteServer() { close(socket_); }

  bool IsListening() const { return isListening_; }

 private:
  int socket_;
  bool isListening_ = false;
};

TEST_F(LostServerTest, WaitForAServerThatDoesNotAnswerEndsWithTheTimeout) {
  const std::string folder = Cluster().Folder() + "/mudo";
  const MuteServer server(folder);
  ASSERT_TRUE(server.IsListening());
  auto connection = tessaria::test::NewConnectionOfTheDriver();
  connection->ConnectionString(u"Driver={PostgreSQL Unicode};Database=x;Username=x;Servername=" +
                               FromUtf8(folder));
  connection->ConnectionTimeout(2);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_HOST_ERROR(connection->Open(), errors::ProviderError);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(10));
  EXPECT_EQ(connection->State(), host::state::Closed);
}

}  // namespace
}  // namespace tessaria::sql::test
