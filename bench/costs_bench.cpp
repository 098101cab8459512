// Benchmark of what an operator does beside a data control, with each driver: a new record, saving,
// a lookup, a completion. Each is compared beside a large table and beside one of 1,000 rows.
//
// In each turn the rows of a data control are opened anew, on the small table and on the large one
// by turns, and two steps follow. The first is the first statement that its connection sends
// beside these rows, the later one the second. The time of a case is that of the later step beside
// the large table. Counters, all from the medians of all turns: first_us and later_us, of the
// large table, and first_to_small and later_to_small, their ratios to the small one. Opening has
// one pair of counters. The lookups search a table of their own, which is the same in both cases.
//
// --rows=10000000 compares another number of rows.
#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "bench/measuring.h"
#include "lookup/description_lookup.h"
#include "tessaria/browse_definition.h"
#include "tessaria/memory/application.h"
#include "tessaria/memory/text_box.h"
#include "tessaria/odbc/connection.h"
#include "tessaria/postgres/connection.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::bench {
namespace {

using test::PostgresCluster;

constexpr int kFewRows = 1'000;
constexpr int kManyRows = 1'000'000;
constexpr int kTurns = 100;

int& Rows() {
  static int rows = kManyRows;
  return rows;
}

// --- The database -------------------------------------------------------------------------------

void Create(const std::string& table, int rows) {
  PostgresCluster::Shared().Run("create table " + table +
                                " as select g as codigo, 'Cliente ' || g as nome, 'Cidade ' || g %"
                                " 5000 as cidade from generate_series(1, " +
                                std::to_string(rows) + ") g; alter table " + table +
                                " add primary key (codigo)");
  PostgresCluster::Shared().Run("vacuum analyze " + table);
}

void Provide() {
  static const bool done = [] {
    Create("poucos", kFewRows);
    Create("muitos", Rows());
    Create("cidades", kFewRows);
    PostgresCluster::Shared().Run("create index on cidades (cast(codigo as varchar))");
    return true;
  }();
  benchmark::DoNotOptimize(done);
}

/// The environment of a form: a program without a screen, and its connection.
class Desk {
 public:
  explicit Desk(host::ConnectionPtr connection) : connection_(std::move(connection)) {
    connection_->ConnectionString(PostgresCluster::Shared().ConnectionString());
    connection_->Open();
    State().dbConexao = connection_;
    cities_.BrowseTable(u"cidades");
    cities_.BrwCampo(u"codigo");
    cities_.BrwCampoIrmao(u"nome");
  }
  ~Desk() { State().dbConexao = nullptr; }
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  /// As a data control does.
  host::RecordsetPtr Open(const String& table) const {
    return connection_->OpenRecordset(u"select * from " + table + u" order by codigo",
                                      host::CursorType::Static, host::LockType::Optimistic);
  }
  void DeleteNewRows(const String& table, int above) const {
    connection_->Execute(u"delete from " + table + u" where codigo > " +
                         FromUtf8(std::to_string(above)));
  }
  void FindDescription() {
    Require(!mdlObjTxt::AchaDescr(cities_, u"500", u"txtCidade", u"", 0).IsNull());
  }
  void CompleteText() {
    box_.Text(u"Cliente 5");
    mdlObjTxt::CompletaDescr(box_, u"cidades", u"nome", Integer{65}, false, u"", nullptr, u"");
    Require(!box_.Text().empty());
  }

 private:
  void Require(bool done) {
    if (!done || !app_.TakeBoxes().empty()) throw std::runtime_error("a lookup failed");
  }

  memory::Application app_;
  host::ConnectionPtr connection_;
  Browse cities_;
  memory::TextBox box_;
};

// --- The steps ----------------------------------------------------------------------------------

/// What is measured, and what has to be there before.
struct Step {
  std::function<void(host::Recordset& rows, int key)> prepare;
  std::function<void(Desk& desk, host::Recordset& rows, int key)> run;
};

void Fill(host::Recordset& rows, int key) {
  rows.AddNew();
  rows.Fields().Item(u"codigo")->Value(Long{key});
  rows.Fields().Item(u"nome")->Value(u"Novo");
}

void Nothing(host::Recordset&, int) {}

const Step kNewRecord{[](host::Recordset& rows, int) { rows.CancelUpdate(); },
                      [](Desk&, host::Recordset& rows, int key) { Fill(rows, key); }};
const Step kSaveNew{Fill, [](Desk&, host::Recordset& rows, int) { rows.Update(); }};
const Step kSaveChange{[](host::Recordset& rows, int key) {
                         rows.Fields().Item(u"nome")->Value(FromUtf8(std::to_string(key)));
                       },
                       [](Desk&, host::Recordset& rows, int) { rows.Update(); }};
const Step kLookup{Nothing, [](Desk& desk, host::Recordset&, int) { desk.FindDescription(); }};
const Step kCompletion{Nothing, [](Desk& desk, host::Recordset&, int) { desk.CompleteText(); }};

// --- Measuring ----------------------------------------------------------------------------------

/// Microseconds.
struct Times {
  std::vector<double> open, first, later;
};

void Take(std::vector<double>& times, const std::function<void()>& run) {
  const auto start = std::chrono::steady_clock::now();
  run();
  const std::chrono::duration<double, std::micro> time = std::chrono::steady_clock::now() - start;
  times.push_back(time.count());
}

/// `above` is the last key of the table.
void Turn(Desk& desk, const Step& step, const String& table, int above, Times& times) {
  host::RecordsetPtr rows;
  Take(times.open, [&] { rows = desk.Open(table); });
  for (int key = above + 1; key <= above + 2; ++key) {
    step.prepare(*rows, key);
    Take(key == above + 1 ? times.first : times.later, [&] { step.run(desk, *rows, key); });
  }
  rows->CancelUpdate();
  rows->Close();
  desk.DeleteNewRows(table, above);
}

/// A function that makes a connection.
using Driver = host::ConnectionPtr (*)();

void Measure(Driver driver, benchmark::State& state, const Step& step, Times& few, Times& many) {
  Provide();
  Desk desk(driver());
  for (auto _ : state) {
    Turn(desk, step, u"poucos", kFewRows, few);
    Turn(desk, step, u"muitos", Rows(), many);
    state.SetIterationTime(many.later.back() / 1e6);
  }
}

void RunStep(benchmark::State& state, Driver driver, const Step& step) {
  Times few, many;
  Measure(driver, state, step, few, many);
  state.counters["first_us"] = Median(many.first);
  state.counters["first_to_small"] = Median(many.first) / Median(few.first);
  state.counters["later_us"] = Median(many.later);
  state.counters["later_to_small"] = Median(many.later) / Median(few.later);
}

void RunOpen(benchmark::State& state, Driver driver) {
  Times few, many;
  Measure(driver, state, kNewRecord, few, many);
  state.counters["open_us"] = Median(many.open);
  state.counters["open_to_small"] = Median(many.open) / Median(few.open);
}

void Register(const std::string& name, const std::function<void(benchmark::State&, Driver)>& run) {
  const std::string prefix = Rows() == kManyRows ? "" : std::to_string(Rows()) + "/";
  const std::pair<const char*, Driver> drivers[] = {{"odbc", odbc::CreateConnection},
                                                    {"postgres", postgres::CreateConnection}};
  for (const auto& [driverName, driver] : drivers) {
    benchmark::RegisterBenchmark(
        (prefix + name + "/" + driverName).c_str(),
        [run, driver = driver](benchmark::State& state) { run(state, driver); })
        ->UseManualTime()
        ->Iterations(kTurns)
        ->Unit(benchmark::kMicrosecond);
  }
}

void RegisterAll() {
  const std::pair<const char*, const Step*> steps[] = {{"Beside/new record", &kNewRecord},
                                                       {"Beside/saving a new record", &kSaveNew},
                                                       {"Beside/saving a change", &kSaveChange},
                                                       {"Beside/description lookup", &kLookup},
                                                       {"Beside/completion", &kCompletion}};
  Register("Beside/opening", RunOpen);
  for (const auto& [name, step] : steps) {
    Register(name, [step = step](benchmark::State& state, Driver driver) {
      RunStep(state, driver, *step);
    });
  }
}

}  // namespace
}  // namespace tessaria::bench

// An error ends the measurement.
int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape)
  benchmark::Initialize(&argc, argv);
  tessaria::bench::Rows() = tessaria::bench::TakeRows(argc, argv, tessaria::bench::kManyRows);
  tessaria::bench::RegisterAll();
  benchmark::RunSpecifiedBenchmarks();
}
