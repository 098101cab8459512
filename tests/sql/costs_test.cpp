// What is asked of the server beside the rows of a data control: the same whatever their number.
#include <functional>
#include <ostream>
#include <utility>
#include <vector>

#include "hosts/sql/sql_connection.h"
#include "lookup/description_lookup.h"
#include "tessaria/browse_definition.h"
#include "tessaria/conversion.h"
#include "tessaria/memory/application.h"
#include "tessaria/memory/text_box.h"
#include "tessaria/thread_state.h"
#include "tests/sql/counting_driver.h"
#include "tests/sql/database_test.h"

namespace tessaria::sql::test {
namespace {

class CostsTest : public DatabaseTest {
 protected:
  void SetUp() override {
    DatabaseTest::SetUp();
    if (IsSkipped()) return;
    CreateNames(u"cidades", 100);
    for (const Long rows : {kFew, kMany, kManyMore}) CreateNames(TableOf(rows), rows);
    counted_ = CreateConnection(CountingConnector(work_));
    counted_->ConnectionString(Cluster().ConnectionString());
    counted_->Open();
    State().dbConexao = counted_;
  }
  void TearDown() override { State().dbConexao = nullptr; }

  static String TableOf(Long rows) { return u"t" + FromUtf8(std::to_string(rows)); }

  host::RecordsetPtr Control(Long rows) {
    return counted_->OpenRecordset(u"select * from " + TableOf(rows) + u" order by codigo",
                                   CursorType::Static, LockType::Optimistic);
  }

  Work WorkOf(const std::function<void()>& step) const {
    const Work before = *work_;
    step();
    return *work_ - before;
  }

  using Step = std::function<void(const host::RecordsetPtr& rows)>;

  /// What the step costs as the first after the rows were opened, or as a later one.
  Work WorkOfStep(const Step& step, Long number, bool isFirst) {
    const auto rows = Control(number);
    if (!isFirst) FindDescription();
    const Work work = WorkOf([&] { step(rows); });
    Run(u"delete from " + TableOf(number) + u" where nome = 'Novo'");
    return work;
  }
  Work WorkOfFirst(const Step& step, Long number) { return WorkOfStep(step, number, true); }
  Work WorkOfLater(const Step& step, Long number) { return WorkOfStep(step, number, false); }

  static std::vector<std::pair<const char*, Step>> Steps() {
    return {{"a new record is stored", StoreNew},
            {"a change is stored", StoreChange},
            {"a description is looked up", [](const auto&) { FindDescription(); }},
            {"a text is completed", [](const auto&) { CompleteText(); }}};
  }

  static void StoreNew(const host::RecordsetPtr& rows) {
    rows->AddNew();
    Set(rows, u"codigo", Long{1'000'000});
    Set(rows, u"nome", u"Novo");
    rows->Update();
  }
  static void StoreChange(const host::RecordsetPtr& rows) {
    Set(rows, u"nome", CStr(Get(rows, u"nome")) + u"!");
    rows->Update();
  }
  static void FindDescription() {
    Browse browse;
    browse.BrowseTable(u"cidades");
    browse.BrwCampo(u"codigo");
    browse.BrwCampoIrmao(u"nome");
    EXPECT_SAME(mdlObjTxt::AchaDescr(browse, u"50", u"txtCidade", u"", 0), u"nome 50");
  }
  static void CompleteText() {
    memory::TextBox box;
    box.Text(u"nome 7");
    mdlObjTxt::CompletaDescr(box, u"cidades", u"nome", Integer{65}, false, u"", nullptr, u"");
    EXPECT_EQ(box.SelStart(), 6);
  }

  static constexpr Long kFew = 1'000;
  static constexpr Long kMany = 30'000;
  static constexpr Long kManyMore = 90'000;
  static constexpr Long kFirstRows = 2'048;

  memory::Application application_;
  std::shared_ptr<Work> work_ = std::make_shared<Work>();
  host::ConnectionPtr counted_;
};

TEST_F(CostsTest, OpeningReadsTheFirstRowsOnly) {
  const Work many = WorkOf([&] { Control(kMany); });
  EXPECT_LE(many.rows, kFirstRows);
  EXPECT_EQ(many, WorkOf([&] { Control(kManyMore); }));
}

TEST_F(CostsTest, ANewRecordIsBegunAndGivenUpWithoutTheServer) {
  for (const Long number : {kFew, kMany, kManyMore}) {
    const auto rows = Control(number);
    const Work work = WorkOf([&] {
      rows->AddNew();
      Set(rows, u"nome", u"Novo");
      rows->CancelUpdate();
    });
    EXPECT_EQ(work, Work{}) << number;
  }
}

// It opens a second session for the rows of the control, and reads the first ones there again.
TEST_F(CostsTest, TheFirstStatementCostsTheSameBesideAnyLargeResult) {
  for (const auto& [name, step] : Steps()) {
    const Work beside[] = {WorkOfFirst(step, kMany), WorkOfFirst(step, kManyMore)};
    EXPECT_EQ(beside[0], beside[1]) << name;
    EXPECT_EQ(beside[0].sessions, 1) << name;
    EXPECT_LE(beside[0].rows, 2 * kFirstRows) << name;
  }
}

TEST_F(CostsTest, EveryLaterStatementCostsTheSameBesideAnyResult) {
  for (const auto& [name, step] : Steps()) {
    const Work few = WorkOfLater(step, kFew);
    EXPECT_GT(few.statements, 0) << name;
    EXPECT_EQ(few, WorkOfLater(step, kMany)) << name;
    EXPECT_EQ(few, WorkOfLater(step, kManyMore)) << name;
  }
}

TEST_F(CostsTest, AResultOfMediumSizeNeedsNoSecondSession) {
  Run(u"create table t5000 as select n as codigo from generate_series(1, 5000) n");
  const auto rows = Control(5'000);
  const Work work = WorkOf(FindDescription);
  EXPECT_EQ(work.sessions, 0);
  EXPECT_TRUE(rows->Complete());
  EXPECT_EQ(rows->RecordCount(), 5'000);
}

TEST_F(CostsTest, AWrongExpectationOfTheServerChangesNoRow) {
  Run(u"analyze");
  Run(u"delete from t30000 where codigo > 3000");
  Run(u"create table t5 (codigo int)");
  Run(u"analyze t5");
  Run(u"insert into t5 select n from generate_series(1, 40000) n");
  for (const auto& [rows, count] :
       {std::pair(Control(kMany), 3'000), std::pair(Control(5), 40'000)}) {
    FindDescription();
    EXPECT_EQ(rows->RecordCount(), count);
    rows->MoveLast();
    EXPECT_SAME(Get(rows, u"codigo"), Long{count});
  }
}

}  // namespace
}  // namespace tessaria::sql::test
