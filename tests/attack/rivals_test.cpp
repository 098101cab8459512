// Several sessions edit the same rows at random: no update is lost, and no refused one is stored.
#include <gtest/gtest.h>

#include <map>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/odbc/connection.h"
#include "tessaria/text.h"
#include "tests/attack/run.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::attack {
namespace {

using test::PostgresCluster;

constexpr std::size_t kSessions = 4;
constexpr Long kRows = 6;
constexpr const char16_t* kCounters[] = {u"a", u"b", u"c"};

host::ConnectionPtr Open() {
  auto connection = odbc::CreateConnection();
  connection->ConnectionString(PostgresCluster::Shared().ConnectionString());
  connection->Open();
  return connection;
}

/// What the table must hold: each counter of each row, and the number of letters appended to each
/// name.
struct Ledger {
  std::map<std::pair<Long, String>, Long> Counts;
  std::map<Long, std::size_t> Letters;
  Long Inserted = 0;
};

/// One user with a record set of their own, read at some time.
class Session {
 public:
  explicit Session(Random& random) : random_(random), connection_(Open()) { Read(); }

  /// Edits a row as it was read. The ledger records what the database accepted.
  void Act(Ledger& ledger) {
    switch (random_.Below(10)) {
      case 0:
        return Read();
      case 1:
        return Insert(ledger);
      case 2:
        return InTransaction(ledger);
      case 3:
        return AddLetter(ledger);
      default:
        return AddToCounter(ledger);
    }
  }

 private:
  void Read() {
    rows_ = connection_->OpenRecordset(u"select * from t where id <= 6 order by id",
                                       host::CursorType::Static, host::LockType::Optimistic);
  }
  Variant Value(const String& column) const { return rows_->Fields().Item(column)->Value(); }

  Long StandOnAnyRow() {
    rows_->AbsolutePosition(static_cast<Long>(1 + random_.Below(kRows)));
    return CLng(Value(u"id"));
  }
  // Returns true when the database accepted the edit. A refused edit is dropped, and the rows are
  // read again.
  bool Write() {
    Count("edits");
    try {
      rows_->Update();
      return true;
    } catch (const HostError& error) {
      Count("edits refused");
      if (error.Number() != errors::RowChanged) Fault("an edit fails otherwise", error.what());
      rows_->CancelUpdate();
      random_.Chance(50) ? rows_->Requery() : Read();
      return false;
    }
  }

  void AddToCounter(Ledger& ledger) {
    const Long id = StandOnAnyRow();
    // Sometimes two columns at once: both are written, or none.
    const String first = random_.OneOf(kCounters);
    const String second = random_.OneOf(kCounters);
    Increment(first);
    if (second != first) Increment(second);
    if (!Write()) return;
    ++ledger.Counts[{id, first}];
    if (second != first) ++ledger.Counts[{id, second}];
  }
  void Increment(const String& column) {
    rows_->Fields().Item(column)->Value(CLng(Value(column)) + 1);
  }
  void AddLetter(Ledger& ledger) {
    const Long id = StandOnAnyRow();
    rows_->Fields().Item(u"nome")->Value(CStr(Value(u"nome")) + u"x");
    if (Write()) ++ledger.Letters[id];
  }
  void Insert(Ledger& ledger) {
    rows_->AddNew();
    rows_->Fields().Item(u"id")->Value(kRows + 1 + ledger.Inserted);
    rows_->Fields().Item(u"nome")->Value(u"novo");
    if (Write()) ++ledger.Inserted;
    Read();
  }
  void InTransaction(Ledger& ledger) {
    Ledger kept = ledger;
    connection_->BeginTrans();
    AddToCounter(kept);
    AddLetter(kept);
    if (random_.Chance(50)) {
      connection_->CommitTrans();
      ledger = kept;
    } else {
      connection_->RollbackTrans();
    }
    Read();
  }

  Random& random_;
  host::ConnectionPtr connection_;
  host::RecordsetPtr rows_;
};

class Rivals : public testing::Test {
 protected:
  void SetUp() override {
    const std::string missing = PostgresCluster::Missing();
    if (!missing.empty()) GTEST_SKIP() << missing;
    observer_ = Open();
    observer_->Execute(u"drop schema public cascade");
    observer_->Execute(u"create schema public");
    observer_->Execute(
        u"create table t (id int primary key, nome text, a int default 0, b int default 0,"
        u" c int default 0)");
    observer_->Execute(u"insert into t (id, nome) select n, '' from generate_series(1, 6) n");
  }

  void Compare(const Ledger& ledger) {
    const auto rows = observer_->Execute(u"select * from t where id <= 6 order by id");
    for (Long id = 1; id <= kRows; ++id, rows->MoveNext()) {
      for (const auto* column : kCounters) {
        const auto entry = ledger.Counts.find({id, column});
        const Long expected = entry == ledger.Counts.end() ? 0 : entry->second;
        const Long stored = CLng(rows->Fields().Item(column)->Value());
        if (stored != expected)
          Fault("an update is lost", "row " + std::to_string(id) + " counts " +
                                         std::to_string(stored) + " in place of " +
                                         std::to_string(expected));
      }
      const auto letters = ledger.Letters.find(id);
      const std::size_t expected = letters == ledger.Letters.end() ? 0 : letters->second;
      if (CStr(rows->Fields().Item(u"nome")->Value()).size() != expected)
        Fault("a change of text is lost", "row " + std::to_string(id));
    }
    const auto added = observer_->Execute(u"select count(*)::int from t where id > 6");
    if (CLng(added->Fields().Item(0)->Value()) != ledger.Inserted)
      Fault("a new row is lost or stored twice", std::to_string(ledger.Inserted) + " expected");
  }

  host::ConnectionPtr observer_;
};

TEST_F(Rivals, LoseNoUpdate) {
  Random random("rivals");
  std::vector<Session> sessions;
  for (std::size_t i = 0; i < kSessions; ++i) sessions.emplace_back(random);
  Ledger ledger;
  const long long acts = Amount(2000, 300'000);
  for (long long i = 1; i <= acts; ++i) {
    sessions[random.Below(kSessions)].Act(ledger);
    if (i % 500 == 0) Compare(ledger);
    if (FaultCount() > 0) break;
  }
  Compare(ledger);
}

}  // namespace
}  // namespace tessaria::attack
