// Benchmark of one lookup and one step of a completion on a million rows, with each driver,
// compared with the same statement through bare ODBC and through the server's own client library.
//
// The three take turns, so that other load on the machine affects all of them. The time of a case
// is that of the library. The counters are computed from the medians of all turns: us is the
// wall-clock time of each, to_odbc and to_libpq are the ratios of these times, cpu_us is the
// processor time in this process, and cpu_above_odbc_us is the processor time that the library
// takes in addition to the bare statement.
#include <benchmark/benchmark.h>
#include <libpq-fe.h>

#include <array>
#include <chrono>
#include <ctime>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "bench/measuring.h"
#include "hosts/odbc/handles.h"
#include "hosts/odbc/wide.h"
#include "lookup/description_lookup.h"
#include "tessaria/conversion.h"
#include "tessaria/memory/application.h"
#include "tessaria/memory/form.h"
#include "tessaria/memory/text_box.h"
#include "tessaria/memory/ts_text.h"
#include "tessaria/odbc/connection.h"
#include "tessaria/postgres/connection.h"
#include "tessaria/text.h"
#include "tessaria/thread_state.h"
#include "tessaria/tstext.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::bench {
namespace {

using odbc::Wide;
using test::PostgresCluster;

constexpr int kRows = 1'000'000;

// --- The database -------------------------------------------------------------------------------

void Provide() {
  static const bool done = [] {
    PostgresCluster::Shared().Run(
        "create extension pg_trgm;"
        " create table clientes as select g as codigo, md5(g::text) || ' Ltda' as nome"
        " from generate_series(1, " +
        std::to_string(kRows) +
        ") g; alter table clientes add primary key (codigo);"
        " create index on clientes (cast(codigo as varchar));"
        " create index on clientes using gin (nome gin_trgm_ops);"
        " alter database postgres set random_page_cost = 1.1");
    PostgresCluster::Shared().Run("vacuum analyze clientes");
    return true;
  }();
  benchmark::DoNotOptimize(done);
}

/// The key of a row of the table, a different one each turn.
int SomeKey(int turn) { return static_cast<int>(turn * 7919LL % kRows) + 1; }

String DescriptionOf(const String& literal) {
  return u"Select nome From clientes Where cast(codigo as varchar) = cast(" + literal +
         u" as varchar) Limit 1";
}

String CompletionOf(const String& typed, const String& more = {}) {
  return u"Select nome" + more + u" From clientes Where nome ilike '" + typed + u"%' Limit 1";
}

/// The part of a name that an operator has typed, and the code of the row that it leads to.
struct Typed {
  String text;
  String code;
};

std::vector<Typed> SomeNames(host::Connection& connection) {
  constexpr int kNames = 256;
  constexpr Long kCharacters = 6;
  std::vector<Typed> names;
  for (int i = 1; i <= kNames; ++i) {
    const String key = FromUtf8(std::to_string(SomeKey(i)));
    const auto name = connection.Execute(DescriptionOf(key));
    const String start = Left(CStr(name->Fields().Item(0)->Value()), kCharacters);
    const auto found = connection.Execute(CompletionOf(start, u", codigo"));
    names.push_back({start, CStr(found->Fields().Item(1)->Value())});
  }
  return names;
}

// --- The peers ----------------------------------------------------------------------------------

void Require(SQLRETURN result) {
  if (!SQL_SUCCEEDED(result)) throw std::runtime_error("an ODBC call failed");
}

std::string VersionText(int number) {
  return std::to_string(number / 10000) + "." + std::to_string(number % 10000);
}

std::string DriverVersion(const odbc::ConnectionHandle& link) {
  std::array<char16_t, 64> text{};
  SQLSMALLINT bytes = 0;
  Require(SQLGetInfoW(link.get(), SQL_DRIVER_VER, text.data(), sizeof text, &bytes));
  return ToUtf8(text.data());
}

class BareOdbc {
 public:
  BareOdbc() {
    const String text = PostgresCluster::Shared().ConnectionString();
    Require(SQLDriverConnectW(link_.get(), nullptr, Wide(text.c_str()), SQL_NTS, nullptr, 0,
                              nullptr, SQL_DRIVER_NOPROMPT));
  }
  /// Runs the statement and reads the columns of its first row as texts.
  void operator()(const String& statement) {
    const odbc::Handle<SQL_HANDLE_STMT> handle(link_.get());
    Require(SQLExecDirectW(handle.get(), Wide(statement.c_str()), SQL_NTS));
    SQLSMALLINT columns = 0;
    Require(SQLNumResultCols(handle.get(), &columns));
    Require(SQLFetch(handle.get()));
    std::array<char16_t, 256> text{};
    for (SQLSMALLINT i = 1; i <= columns; ++i) {
      SQLLEN length = 0;
      Require(SQLGetData(handle.get(), static_cast<SQLUSMALLINT>(i), SQL_C_WCHAR, text.data(),
                         sizeof text, &length));
      benchmark::DoNotOptimize(text);
    }
  }
  std::string Version() const { return DriverVersion(link_); }

 private:
  odbc::ConnectionHandle link_;
};

class Libpq {
 public:
  Libpq() : connection_(PQconnectdb(Settings().c_str()), PQfinish) {
    if (PQstatus(connection_.get()) != CONNECTION_OK) throw std::runtime_error("libpq: no server");
  }
  void operator()(const String& statement) {
    const std::unique_ptr<PGresult, void (*)(PGresult*)> rows(
        PQexec(connection_.get(), ToUtf8(statement).c_str()), PQclear);
    if (PQntuples(rows.get()) != 1) throw std::runtime_error("libpq: no row");
    for (int i = 0; i < PQnfields(rows.get()); ++i)
      benchmark::DoNotOptimize(std::string(PQgetvalue(rows.get(), 0, i)));
  }
  std::string ServerVersion() const { return VersionText(PQserverVersion(connection_.get())); }

 private:
  static std::string Settings() {
    return "host=" + PostgresCluster::Shared().Folder() + " dbname=postgres user=postgres";
  }
  std::unique_ptr<PGconn, void (*)(PGconn*)> connection_;
};

/// A function that makes a connection.
using Driver = host::ConnectionPtr (*)();

/// The environment that the library works in: a program without a screen, on the real connection.
class Desk {
 public:
  explicit Desk(Driver driver) : connection_(driver()) {
    connection_->ConnectionString(PostgresCluster::Shared().ConnectionString());
    connection_->Open();
    State().dbConexao = connection_;
  }
  ~Desk() { State().dbConexao = nullptr; }
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  const host::ConnectionPtr& Connection() const { return connection_; }
  /// A box means that a lookup has failed.
  void RequireNoBox() {
    if (!app_.TakeBoxes().empty()) throw std::runtime_error("a lookup failed");
  }

 private:
  memory::Application app_;
  host::ConnectionPtr connection_;
};

// --- Measuring ----------------------------------------------------------------------------------

struct Times {
  std::vector<double> wall, cpu;  ///< microseconds
};

double CpuNow() {
  timespec now{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return double(now.tv_sec) * 1e6 + double(now.tv_nsec) / 1e3;
}

void Take(Times& times, const std::function<void()>& run) {
  const double cpu = CpuNow();
  const auto start = std::chrono::steady_clock::now();
  run();
  const std::chrono::duration<double, std::micro> wall = std::chrono::steady_clock::now() - start;
  times.wall.push_back(wall.count());
  times.cpu.push_back(CpuNow() - cpu);
}

/// `statements` are what `library` sends in one turn; the peers send the same.
void Compare(benchmark::State& state, Desk& desk,
             const std::function<std::vector<String>(int turn)>& statements,
             const std::function<void(int turn)>& library) {
  BareOdbc odbc;
  Libpq libpq;
  Times ours, bare, native;
  int turn = 0;
  for (auto _ : state) {
    ++turn;
    const auto texts = statements(turn);
    const auto all = [&](auto& peer) {
      for (const String& text : texts) peer(text);
    };
    const std::function<void()> takes[] = {[&] { Take(bare, [&] { all(odbc); }); },
                                           [&] { Take(ours, [&] { library(turn); }); },
                                           [&] { Take(native, [&] { all(libpq); }); }};
    // Who comes first finds the pages of the key cold.
    for (int i = 0; i < 3; ++i) takes[(turn + i) % 3]();
    state.SetIterationTime(ours.wall.back() / 1e6);
  }
  desk.RequireNoBox();
  state.counters["us"] = Median(ours.wall);
  state.counters["odbc_us"] = Median(bare.wall);
  state.counters["libpq_us"] = Median(native.wall);
  state.counters["to_odbc"] = Median(ours.wall) / Median(bare.wall);
  state.counters["to_libpq"] = Median(ours.wall) / Median(native.wall);
  state.counters["cpu_us"] = Median(ours.cpu);
  state.counters["cpu_above_odbc_us"] = Median(ours.cpu) - Median(bare.cpu);
}

// --- The cases ----------------------------------------------------------------------------------

void FindDescription(benchmark::State& state, Driver driver) {
  Provide();
  Desk desk(driver);
  Browse browse;
  browse.BrowseTable(u"clientes");
  browse.BrwCampo(u"codigo");
  browse.BrwCampoIrmao(u"nome");
  const auto code = [](int turn) { return FromUtf8(std::to_string(SomeKey(turn))); };
  Compare(
      state, desk,
      [&](int turn) { return std::vector<String>{DescriptionOf(u"'" + code(turn) + u"'")}; },
      [&](int turn) {
        benchmark::DoNotOptimize(mdlObjTxt::AchaDescr(browse, code(turn), u"txtCodigo", u"", 0));
      });
}

void CompleteText(benchmark::State& state, Driver driver) {
  Provide();
  Desk desk(driver);
  const auto names = SomeNames(*desk.Connection());
  const auto name = [&](int turn) { return names[std::size_t(turn) % names.size()]; };
  memory::TextBox box;
  Compare(
      state, desk, [&](int turn) { return std::vector<String>{CompletionOf(name(turn).text)}; },
      [&](int turn) {
        box.Text(name(turn).text);
        mdlObjTxt::CompletaDescr(box, u"clientes", u"nome", Integer{65}, false, u"", nullptr, u"");
      });
}

/// The key-up of a whole field with its key field: the completion, and the lookup of the key.
void CompletePair(benchmark::State& state, Driver driver) {
  Provide();
  Desk desk(driver);
  const auto names = SomeNames(*desk.Connection());
  const auto name = [&](int turn) { return names[std::size_t(turn) % names.size()]; };
  const auto form = memory::Form::Create(u"frmPedido");
  form->DbForm(desk.Connection());
  const auto add = [&](const String& control, TipoControle kind, const String& sibling,
                       const String& column, const String& otherColumn) {
    const auto field = form->Add<memory::TsText>(control);
    (*field)->TipoControle(kind);
    (*field)->TxtIrmao(sibling);
    const auto definition = (*field)->Browse();
    definition->BrowseTable(u"clientes");
    definition->BrwCampo(column);
    definition->BrwCampoIrmao(otherColumn);
    return field;
  };
  const auto key = add(u"codCliente", TipoControle::Browse, u"desCliente", u"codigo", u"nome");
  const auto text = add(u"desCliente", TipoControle::Descricao, u"codCliente", u"nome", u"codigo");
  for (const auto& field : {key, text}) (*field)->Refresh();
  Compare(
      state, desk,
      [&](int turn) {
        return std::vector<String>{CompletionOf(name(turn).text, u", codigo"),
                                   DescriptionOf(name(turn).code)};
      },
      [&](int turn) {
        Integer letter = 65, shift = 0;
        text->txtEdit().Text(name(turn).text);
        text->txtEdit().OnKeyUp(letter, shift);
      });
  form->Close();
}

// --- The peers' versions ------------------------------------------------------------------------

void TellVersions() {
  benchmark::AddCustomContext("libpq", VersionText(PQlibVersion()));
  benchmark::AddCustomContext("PostgreSQL", Libpq().ServerVersion());
  benchmark::AddCustomContext("psqlodbc", BareOdbc().Version());
}

constexpr int kTurns = 4000;

void Register(const std::string& name, void (*run)(benchmark::State&, Driver)) {
  const std::pair<const char*, Driver> drivers[] = {{"odbc", odbc::CreateConnection},
                                                    {"postgres", postgres::CreateConnection}};
  for (const auto& [driverName, driver] : drivers) {
    benchmark::RegisterBenchmark((name + "/" + driverName).c_str(), run, driver)
        ->UseManualTime()
        ->Iterations(kTurns)
        ->Unit(benchmark::kMicrosecond);
  }
}

void RegisterAll() {
  Register("FindDescription", FindDescription);
  Register("CompleteText", CompleteText);
  Register("CompletePair", CompletePair);
}

}  // namespace
}  // namespace tessaria::bench

// An error ends the measurement.
int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape)
  benchmark::Initialize(&argc, argv);
  tessaria::bench::TellVersions();
  tessaria::bench::RegisterAll();
  benchmark::RunSpecifiedBenchmarks();
}
