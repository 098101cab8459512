// The proxy that cuts the line, tested against the real server.
#include "tests/support/cutting_proxy.h"

#include <optional>

#include "tests/sql/database_test.h"

namespace tessaria::sql::test {
namespace {

using tessaria::test::CuttingProxy;
using Side = CuttingProxy::Side;

class CuttingProxyTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    Run(u"create table t (k int primary key)");
    proxy_.emplace(Cluster().Socket());
    behind_ = tessaria::test::NewConnectionOfTheDriver();
    behind_->ConnectionString(Cluster().ConnectionString(proxy_->Port()));
    behind_->Open();
  }
  Long Count() { return CLng(Scalar(u"select count(*)::int from t")); }

  std::optional<CuttingProxy> proxy_;
  host::ConnectionPtr behind_;
};

TEST_F(CuttingProxyTest, PassesWhatItIsNotAskedToCut) {
  behind_->Execute(u"insert into t select generate_series(1, 10000)");
  EXPECT_EQ(behind_->Execute(u"select * from t")->RecordCount(), 10000);
  EXPECT_EQ(proxy_->Cuts(), 0);
}

TEST_F(CuttingProxyTest, CutsBeforeWhatTheClientSends) {
  proxy_->CutAt(Side::Client, {"insert into"});
  EXPECT_HOST_ERROR(behind_->Execute(u"insert into t values (1)"), errors::WriteInDoubt);
  EXPECT_EQ(Count(), 0);
  EXPECT_EQ(proxy_->Cuts(), 1);
}

TEST_F(CuttingProxyTest, CutsBeforeWhatTheServerAnswers) {
  proxy_->CutAt(Side::Server, {"UPDATE 1", "INSERT 0 1"});
  EXPECT_HOST_ERROR(behind_->Execute(u"insert into t values (1)"), errors::WriteInDoubt);
  EXPECT_EQ(Count(), 1);
}

TEST_F(CuttingProxyTest, CutsAfterANumberOfBytes) {
  Run(u"insert into t select generate_series(1, 10000)");
  proxy_->CutAfter(Side::Server, 20000);
  EXPECT_ANY_THROW(behind_->Execute(u"select * from t")->RecordCount());
  EXPECT_EQ(proxy_->Cuts(), 1);
}

TEST_F(CuttingProxyTest, CutsAtOnceAndPassesLaterConnections) {
  proxy_->CutNow();
  EXPECT_ANY_THROW(behind_->Execute(u"select 1"));
  proxy_->CutAt(Side::Server, {"SELECT"});
  proxy_->CancelCut();
  behind_->Open();
  behind_->Execute(u"insert into t values (1)");
  EXPECT_EQ(Count(), 1);
}

}  // namespace
}  // namespace tessaria::sql::test
