// Cuts the line to the server at every byte of a write: the row is stored at most once, and the
// program learns the true outcome.
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <optional>
#include <ostream>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/odbc/connection.h"
#include "tessaria/text.h"
#include "tests/attack/run.h"
#include "tests/support/cutting_proxy.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::attack {
namespace {

using test::CuttingProxy;
using test::PostgresCluster;

constexpr double kLongestWrite = 20;  // seconds
constexpr int kMostAttempts = 4;
constexpr StringView kNew = u"novo";

enum class Write { Insert, InsertOfGivenKey, Update, Delete, Commit };
struct Named {
  Write Kind;
  const char* Name;
};
void PrintTo(const Named& write, std::ostream* out) { *out << write.Name; }
constexpr std::array kWrites = {
    Named{Write::Insert, "insert"}, Named{Write::InsertOfGivenKey, "insert of a key by the server"},
    Named{Write::Update, "update"}, Named{Write::Delete, "delete"}, Named{Write::Commit, "commit"}};

enum class Outcome { Stored, NotStored, InDoubt };

/// A write of one kind. Another session checks whether it has taken place.
class CutWrite {
 public:
  CutWrite(host::Connection& observer, host::Connection& connection, Write kind)
      : observer_(observer), connection_(connection), kind_(kind) {
    observer_.Execute(u"truncate t restart identity");
    observer_.Execute(u"insert into t (nome) values ('um'), ('dois')");
    // A loss that was not noticed before is detected here.
    if (Try([&] { OpenRows(); }) != Outcome::Stored) OpenRows();
    Begin();
  }

  /// Sends the write for the first time.
  Outcome Send() {
    return Try([&] {
      if (kind_ == Write::Commit) return connection_.CommitTrans();
      kind_ == Write::Delete ? rows_->Delete() : rows_->Update();
    });
  }
  /// Continues as a program does after an error: connects again, finds out the outcome, and writes
  /// again if necessary. Returns false when it does not succeed.
  bool Settle(Outcome outcome) {
    for (int i = 0; i < kMostAttempts && outcome != Outcome::Stored; ++i) {
      if (connection_.State() == host::state::Closed) connection_.Open();
      outcome = kind_ == Write::Commit ? RepeatTransaction() : Repeat(outcome);
    }
    return outcome == Outcome::Stored;
  }

  /// How many rows hold what was written; for a deletion, 1 when the row is gone and 0 when it is
  /// there.
  Long TimesDone() const {
    const String where = kind_ == Write::Delete ? u"nome = 'dois'" : u"nome = 'novo'";
    const Long found = Ask(u"select count(*)::int from t where " + where);
    return kind_ == Write::Delete ? 1 - found : found;
  }
  /// Whether the other rows are those that the write leaves.
  bool OthersStand() const {
    const bool adds = kind_ != Write::Update && kind_ != Write::Delete;
    const Long rows = Ask(u"select count(*)::int from t where nome <> 'novo'");
    return rows == (adds ? 2 : 1);
  }
  bool IsPending() const {
    const auto mode = rows_->EditMode();
    return mode == host::EditMode::Add || mode == host::EditMode::InProgress;
  }
  const std::string& Error() const { return error_; }

 private:
  void OpenRows() {
    if (connection_.State() == host::state::Closed) connection_.Open();
    rows_ = connection_.OpenRecordset(u"select * from t order by codigo", host::CursorType::Static,
                                      host::LockType::Optimistic);
    rows_->MoveLast();
  }
  void Begin() {
    if (kind_ == Write::Commit) connection_.BeginTrans();
    if (kind_ == Write::Delete) return;
    if (kind_ != Write::Update) rows_->AddNew();
    if (kind_ == Write::Insert) Field(u"codigo")->Value(Long{77});
    Field(u"nome")->Value(String(kNew));
    if (kind_ == Write::Commit) rows_->Update();
  }
  host::FieldPtr Field(const String& name) const { return rows_->Fields().Item(name); }
  Long Ask(const String& statement) const {
    return CLng(observer_.Execute(statement)->Fields().Item(0)->Value());
  }

  Outcome Try(const std::function<void()>& work) {
    try {
      work();
      return Outcome::Stored;
    } catch (const HostError& error) {
      error_ = error.what();
      return error.Number() == errors::WriteInDoubt ? Outcome::InDoubt : Outcome::NotStored;
    }
  }
  Outcome Repeat(Outcome last) {
    if (kind_ == Write::Delete) return Try([&] { rows_->Delete(); });
    const Outcome again = Try([&] { rows_->Update(); });
    if (again != Outcome::InDoubt || last != Outcome::InDoubt) return again;
    // A key that the server generates cannot be looked for, so the program reads the rows.
    const Outcome read = Try([&] { rows_->Requery(); });
    if (read != Outcome::Stored) return read;
    if (!HoldsTheNewRow()) return Outcome::InDoubt;
    rows_->CancelUpdate();
    return Outcome::Stored;
  }
  bool HoldsTheNewRow() const {
    while (rows_->FetchMore(100)) continue;
    for (Long row = 1; row <= rows_->RowsRead(); ++row) {
      const Variant name = rows_->ValueAt(row, 1);
      if (!name.IsNull() && CStr(name) == kNew) return true;
    }
    return false;
  }
  Outcome RepeatTransaction() {
    if (TimesDone() > 0) return Outcome::Stored;
    return Try([&] {
      connection_.BeginTrans();
      connection_.Execute(u"insert into t (nome) values ('novo')");
      connection_.CommitTrans();
    });
  }

  host::Connection& observer_;
  host::Connection& connection_;
  Write kind_;
  host::RecordsetPtr rows_;
  std::string error_;
};

class Answers : public testing::TestWithParam<Named> {
 protected:
  void SetUp() override {
    const std::string missing = PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    auto& cluster = PostgresCluster::Shared();
    proxy_.emplace(cluster.Socket());
    observer_ = Open(cluster.ConnectionString());
    observer_->Execute(u"drop schema public cascade");
    observer_->Execute(u"create schema public");
    observer_->Execute(u"create table t (codigo serial primary key, nome text)");
    connection_ = Open(cluster.ConnectionString(proxy_->Port()));
  }
  static host::ConnectionPtr Open(const String& text) {
    auto connection = odbc::CreateConnection();
    connection->ConnectionString(text);
    connection->Open();
    return connection;
  }

  /// Cuts after that many bytes. Returns false when the write was over before.
  bool CutBehind(CuttingProxy::Side side, std::size_t bytes) {
    CutWrite write(*observer_, *connection_, GetParam().Kind);
    const int cuts = proxy_->Cuts();
    proxy_->CutAfter(side, bytes);
    const Stopwatch watch;
    const Outcome outcome = write.Send();
    const double seconds = watch.Seconds();
    proxy_->CancelCut();
    const bool wasCut = proxy_->Cuts() > cuts;
    where_ = std::string(GetParam().Name) + ", cut behind byte " + std::to_string(bytes) +
             (side == CuttingProxy::Side::Client ? " of the statement" : " of the answer");
    if (seconds > kLongestWrite) Fault("a cut write takes too long", where_);
    CheckTruth(write, outcome);
    CheckEnd(write, outcome);
    Count("writes that were cut", wasCut ? 1 : 0);
    return wasCut;
  }

  void CheckTruth(const CutWrite& write, Outcome outcome) {
    const Long times = write.TimesDone();
    const std::string told = where_ + ": " + write.Error();
    if (times > 1) Fault("a row is stored twice", told);
    if (outcome == Outcome::Stored && times == 0) Fault("a lost write passes for stored", told);
    if (outcome == Outcome::NotStored && times == 1) Fault("a stored write passes for lost", told);
    if (outcome == Outcome::Stored && write.IsPending())
      Fault("a write that is over stays pending", told);
    const char* counts[] = {"told as stored", "told as not stored", "told as in doubt"};
    Count(counts[static_cast<int>(outcome)]);
  }
  void CheckEnd(CutWrite& write, Outcome outcome) {
    if (!write.Settle(outcome)) {
      Fault("a cut write cannot be brought to its end", where_ + ": " + write.Error());
    } else if (write.TimesDone() != 1 || !write.OthersStand()) {
      Fault("a write that is repeated does not stand once",
            where_ + ": it stands " + std::to_string(write.TimesDone()) + " times");
    }
  }

  std::optional<CuttingProxy> proxy_;
  host::ConnectionPtr observer_;
  host::ConnectionPtr connection_;
  std::string where_;
};

TEST_P(Answers, ThatAreCutLeaveTheRowStoredAtMostOnceAndTheOutcomeKnown) {
  const std::size_t step = TheSettings().Long ? 1 : 9;
  for (const auto side : {CuttingProxy::Side::Client, CuttingProxy::Side::Server}) {
    std::size_t bytes = 0;
    while (CutBehind(side, bytes)) bytes += step;
    Count("bytes of statements and answers", static_cast<long long>(bytes));
  }
}

INSTANTIATE_TEST_SUITE_P(Writes, Answers, testing::ValuesIn(kWrites),
                         [](const auto& write) { return std::to_string(write.index); });

}  // namespace
}  // namespace tessaria::attack
