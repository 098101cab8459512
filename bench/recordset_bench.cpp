// Benchmark of reading a large result through a record set, with each driver, compared with the
// ODBC driver's own block fetch and with a bare cursor of the server's client library.
//
// The bare readings keep only the current block. The record set goes to its last row twice: with
// its rows at the server, and where they cannot stay there, so that it reads and holds all of them.
// Counters: first_ms and last_ms are the times to the first and the last row, peak_mb is the memory
// in addition to what the process had. The ratios of the record set compare it with the better time
// of the bare readings and with the bytes of the data.
#include <benchmark/benchmark.h>
#include <libpq-fe.h>
#include <malloc.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "hosts/odbc/handles.h"
#include "hosts/odbc/wide.h"
#include "tessaria/odbc/connection.h"
#include "tessaria/postgres/connection.h"
#include "tessaria/utf8.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::bench {
namespace {

using odbc::Wide;
using test::PostgresCluster;

constexpr int kRows = 1'000'000;
constexpr const char16_t* kStatement = u"select codigo, nome, cidade from clientes order by codigo";

struct Sample {
  double firstMs = 1e9;
  double lastMs = 1e9;
  double peakMb = 1e9;

  void KeepBest(const Sample& other) {
    firstMs = std::min(firstMs, other.firstMs);
    lastMs = std::min(lastMs, other.lastMs);
    peakMb = std::min(peakMb, other.peakMb);
  }
};

// The best figures of each way so far, for the ratios.
struct Results {
  Sample bare;
  Sample bareCursor;
  Sample bareLibpq;
  double dataMb = 0;
};

Results& Best() {
  static Results results;
  return results;
}

// Creates the table once and measures its bytes: four for the key, and the texts in UTF-8.
void Provide() {
  static const bool done = [] {
    PostgresCluster::Shared().Run(
        "create table clientes as select g as codigo, 'Cliente número ' || g as nome,"
        " 'Cidade ' || g % 5000 as cidade from generate_series(1, " +
        std::to_string(kRows) +
        ") g; alter table clientes add primary key (codigo); analyze clientes");
    auto connection = odbc::CreateConnection();
    connection->ConnectionString(PostgresCluster::Shared().ConnectionString());
    connection->Open();
    const auto bytes = connection->Execute(
        u"select sum(4 + octet_length(nome) + octet_length(cidade))::float from clientes");
    Best().dataMb = *bytes->Fields().Item(0)->Value().TryGet<double>() / (1024 * 1024);
    return true;
  }();
  benchmark::DoNotOptimize(done);
}

double StatusMb(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    double kilobytes = 0;
    if (word == name + ":" && status >> kilobytes) return kilobytes / 1024;
  }
  return 0;
}

// Measures one reading. `read` calls its argument when it has the first row.
Sample Measure(const std::function<void(const std::function<void()>&)>& read) {
  malloc_trim(0);
  std::ofstream("/proc/self/clear_refs") << "5";  // resets the peak
  const double before = StatusMb("VmRSS");
  Sample sample;
  const auto start = std::chrono::steady_clock::now();
  const auto elapsed = [&] {
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    return time.count();
  };
  read([&] { sample.firstMs = elapsed(); });
  sample.lastMs = elapsed();
  sample.peakMb = StatusMb("VmHWM") - before;
  return sample;
}

void Run(benchmark::State& state, Sample& best,
         const std::function<void(const std::function<void()>&)>& read) {
  for (auto _ : state) {
    const Sample sample = Measure(read);
    state.SetIterationTime(sample.lastMs / 1000);
    best.KeepBest(sample);
  }
  state.counters["first_ms"] = best.firstMs;
  state.counters["last_ms"] = best.lastMs;
  state.counters["peak_mb"] = best.peakMb;
}

void Require(SQLRETURN result) {
  if (!SQL_SUCCEEDED(result)) throw std::runtime_error("an ODBC call failed");
}

// Reads one thousand rows a block, with the columns bound as the record set binds them.
void ReadBare(const String& settings, const std::function<void()>& firstRow) {
  constexpr std::size_t kBlock = 1000;
  constexpr std::size_t kCharacters = 256;
  using Text = std::array<char16_t, kCharacters>;
  odbc::ConnectionHandle link;
  const String text = PostgresCluster::Shared().ConnectionString() + settings;
  Require(SQLDriverConnectW(link.get(), nullptr, Wide(text.c_str()), SQL_NTS, nullptr, 0, nullptr,
                            SQL_DRIVER_NOPROMPT));
  odbc::Handle<SQL_HANDLE_STMT> statement(link.get());
  std::vector<SQLINTEGER> keys(kBlock);
  std::vector<Text> names(kBlock), cities(kBlock);
  std::array<std::vector<SQLLEN>, 3> lengths;
  lengths.fill(std::vector<SQLLEN>(kBlock));
  SQLULEN fetched = 0;
  const SQLHSTMT handle = statement.get();
  Require(
      SQLSetStmtAttrW(handle, SQL_ATTR_ROW_ARRAY_SIZE, reinterpret_cast<SQLPOINTER>(kBlock), 0));
  Require(SQLSetStmtAttrW(handle, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, 0));
  Require(SQLBindCol(handle, 1, SQL_C_SLONG, keys.data(), 0, lengths[0].data()));
  Require(SQLBindCol(handle, 2, SQL_C_WCHAR, names.data(), sizeof(Text), lengths[1].data()));
  Require(SQLBindCol(handle, 3, SQL_C_WCHAR, cities.data(), sizeof(Text), lengths[2].data()));
  Require(SQLExecDirectW(handle, Wide(kStatement), SQL_NTS));
  std::size_t rows = 0;
  while (SQL_SUCCEEDED(SQLFetch(handle))) {
    if (rows == 0) firstRow();
    rows += fetched;
  }
  if (rows != kRows) throw std::runtime_error("rows are missing");
}

void BareBlockFetch(benchmark::State& state) {
  Provide();
  Run(state, Best().bare, [](const auto& firstRow) { ReadBare(u"", firstRow); });
}

void BareBlockFetchWithDriverCursor(benchmark::State& state) {
  Provide();
  Run(state, Best().bareCursor,
      [](const auto& firstRow) { ReadBare(u"UseDeclareFetch=1;Fetch=1000;", firstRow); });
}

// A binary cursor, of which each FETCH is awaited before the next is sent.
void ReadLibpq(const std::function<void()>& firstRow) {
  const std::string settings =
      "host=" + PostgresCluster::Shared().Folder() + " dbname=postgres user=postgres";
  const std::unique_ptr<PGconn, void (*)(PGconn*)> link(PQconnectdb(settings.c_str()), PQfinish);
  const auto run = [&](const std::string& text) {
    std::unique_ptr<PGresult, void (*)(PGresult*)> result(PQexec(link.get(), text.c_str()),
                                                          PQclear);
    const ExecStatusType status = PQresultStatus(result.get());
    if (status != PGRES_COMMAND_OK && status != PGRES_TUPLES_OK) {
      throw std::runtime_error("a libpq call failed");
    }
    return result;
  };
  run("begin; declare c binary no scroll cursor for " + ToUtf8(kStatement));
  int rows = 0;
  for (auto block = run("fetch 2048 from c"); PQntuples(block.get()) > 0;
       block = run("fetch 2048 from c")) {
    if (rows == 0) firstRow();
    rows += PQntuples(block.get());
  }
  if (rows != kRows) throw std::runtime_error("rows are missing");
}

void BareLibpqCursor(benchmark::State& state) {
  Provide();
  Run(state, Best().bareLibpq, ReadLibpq);
}

using Driver = host::ConnectionPtr (*)();

/// Opens the statement and goes to its last row; `prepare` sees the connection first.
void Measure(benchmark::State& state, Driver driver,
             const std::function<void(host::Connection& connection)>& prepare) {
  Provide();
  Sample best;
  Run(state, best, [&](const auto& firstRow) {
    auto connection = driver();
    connection->ConnectionString(PostgresCluster::Shared().ConnectionString());
    connection->Open();
    prepare(*connection);
    const auto rows =
        connection->OpenRecordset(kStatement, host::CursorType::Static, host::LockType::ReadOnly);
    benchmark::DoNotOptimize(rows->Fields().Item(0)->Value());
    firstRow();
    rows->MoveLast();
    if (rows->AbsolutePosition() != kRows) throw std::runtime_error("rows are missing");
  });
  state.counters["last_to_bare"] = best.lastMs / Best().bare.lastMs;
  state.counters["last_to_cursor"] = best.lastMs / Best().bareCursor.lastMs;
  state.counters["last_to_libpq"] = best.lastMs / Best().bareLibpq.lastMs;
  state.counters["first_to_bare"] = best.firstMs / Best().bare.firstMs;
  state.counters["peak_to_bare"] = best.peakMb / Best().bare.peakMb;
  state.counters["peak_to_data"] = best.peakMb / Best().dataMb;
}

void RecordsetToTheLastRow(benchmark::State& state, Driver driver) {
  Measure(state, driver, [](host::Connection&) {});
}

/// In a session with a setting of its own no rows can stay at the server: others would not see it.
void RecordsetReadWhole(benchmark::State& state, Driver driver) {
  Measure(state, driver, [](host::Connection& connection) {
    connection.Execute(u"set application_name = 'bench'");
  });
}

// The bare readings run first: the ratios need their figures.
BENCHMARK(BareBlockFetch)->UseManualTime()->Iterations(7)->Unit(benchmark::kMillisecond);
BENCHMARK(BareBlockFetchWithDriverCursor)
    ->UseManualTime()
    ->Iterations(7)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(BareLibpqCursor)->UseManualTime()->Iterations(7)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RecordsetToTheLastRow, odbc, odbc::CreateConnection)
    ->UseManualTime()
    ->Iterations(7)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RecordsetToTheLastRow, postgres, postgres::CreateConnection)
    ->UseManualTime()
    ->Iterations(7)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RecordsetReadWhole, odbc, odbc::CreateConnection)
    ->UseManualTime()
    ->Iterations(7)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(RecordsetReadWhole, postgres, postgres::CreateConnection)
    ->UseManualTime()
    ->Iterations(7)
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessaria::bench
