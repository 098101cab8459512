// Benchmark of the list of a lookup with a million rows, with each driver, compared with a table
// view on each of the two SQL models of Qt.
//
// Each lap opens the list, reads it to its end, sorts it by name and leaves it; then it opens the
// list again and sorts it at once (open_sort_ms); then it opens the list in the order of the names
// and jumps to the last letter, with only the first rows read (early_jump_ms) and with all of them
// (jump_ms; the models support only this). Times run from the call or key to the paint event of the
// view that shows the result; last_ms, open_sort_ms and open_jump_ms run from the call that opens
// the list, and the models' open_jump_ms contains the reading of all rows. peak_mb is the
// additional memory that the process takes, measured after reading to the end. The best of all laps
// counts. The ratios of the window compare it with the better model. Two figures exist only for the
// window: scroll_ms is the longest step while the scroll bar is dragged to the end until all rows
// are there, and search_ms runs from the answer of the prompt, with the first rows read.
//
// --rows=10000000 measures another number of rows; above a million each lap ends with the memory.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <QAbstractButton>
#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <QSqlDatabase>
#include <QSqlQueryModel>
#include <QSqlRecord>
#include <QSqlTableModel>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <chrono>
#include <fstream>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

#include "bench/measuring.h"
#include "tessaria/odbc/connection.h"
#include "tessaria/pesquisa_definition.h"
#include "tessaria/postgres/connection.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/host.h"
#include "tessaria/qt/metatypes.h"
#include "tessaria/qt/tstext.h"
#include "tests/support/postgres_cluster.h"

namespace tessaria::bench {
namespace {

using Clock = std::chrono::steady_clock;
using test::PostgresCluster;

constexpr int kMostForAll = 1'000'000;  // rows up to which all is measured
constexpr int kLaps = 5;
constexpr auto kPatience = std::chrono::minutes(2);

int& Rows() {
  static int rows = kMostForAll;
  return rows;
}
bool MeasuresAll() { return Rows() <= kMostForAll; }

double MsSince(Clock::time_point start, Clock::time_point end = Clock::now()) {
  return std::chrono::duration<double, std::milli>(end - start).count();
}

// --- What is measured ---------------------------------------------------------------------------

struct Figures {
  double firstMs = 1e9;
  double lastMs = 1e9;
  double peakMb = 1e9;
  double sortMs = 1e9;
  double leaveMs = 1e9;
  double earlyJumpMs = 1e9;
  double jumpMs = 1e9;
  double openSortMs = 1e9;
  double openJumpMs = 1e9;
  double scrollMs = 1e9;
  double searchMs = 1e9;

  void KeepBest(const Figures& lap) {
    for (const auto member :
         {&Figures::firstMs, &Figures::lastMs, &Figures::peakMb, &Figures::sortMs,
          &Figures::leaveMs, &Figures::earlyJumpMs, &Figures::scrollMs, &Figures::searchMs,
          &Figures::jumpMs, &Figures::openSortMs, &Figures::openJumpMs})
      this->*member = std::min(this->*member, lap.*member);
  }
};

double StatusMb(const std::string& name) {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    double kilobytes = 0;
    if (word == name + ":" && status >> kilobytes) return kilobytes / 1024;
  }
  return 0;
}

/// Memory taken since the start.
class Memory {
 public:
  Memory() {
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << "5";  // resets the peak
    before_ = StatusMb("VmRSS");
  }
  double PeakMb() const { return StatusMb("VmHWM") - before_; }

 private:
  double before_;
};

/// Records each time that a table view has painted rows.
class WatchedApplication final : public QApplication {
 public:
  using QApplication::QApplication;

  bool notify(QObject* receiver, QEvent* event) override {
    const bool paints = event->type() == QEvent::Paint && ShowsRows(receiver);
    const bool result = QApplication::notify(receiver, event);
    if (paints) {
      ++paints_;
      paintedAt_ = Clock::now();
    }
    return result;
  }

  /// Runs the action and processes events until rows are painted. Returns the time of both
  /// together.
  double MsToPaint(const std::function<void()>& action) {
    const auto start = Clock::now();
    action();
    AwaitPaint();
    return MsSince(start, paintedAt_);
  }
  void AwaitPaint() {
    const auto start = Clock::now();
    for (const int before = paints_; paints_ == before; processEvents())
      if (Clock::now() - start > kPatience) throw std::runtime_error("nothing was painted");
  }
  Clock::time_point PaintedAt() const { return paintedAt_; }

 private:
  static bool ShowsRows(QObject* receiver) {
    const auto* view = qobject_cast<QTableView*>(receiver->parent());
    return view && view->viewport() == receiver && view->model() && view->model()->rowCount() > 0;
  }

  int paints_ = 0;
  Clock::time_point paintedAt_;
};

WatchedApplication& TheApplication() { return *static_cast<WatchedApplication*>(qApp); }

void Key(QWidget& widget, int code, const QString& text = {}) {
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, code, Qt::NoModifier, text);
    QApplication::sendEvent(&widget, &event);
  }
}

void RequireLastRow(const QTableView& view) {
  if (view.currentIndex().row() != Rows() - 1) throw std::runtime_error("rows are missing");
}

void RequireSorted(const QTableView& view, int column) {
  if (!view.model()->index(0, column).data().toString().startsWith("Ana"))
    throw std::runtime_error("the list is not sorted");
}

void RequireLetter(const QTableView& view) {
  if (!view.currentIndex().data().toString().startsWith("Z"))
    throw std::runtime_error("the jump missed");
}

// Creates the table once: keys, names that start with all letters, cities.
void Provide() {
  static const bool done = [] {
    PostgresCluster::Shared().Run(
        "create table clientes as select g as codigo, (array['Ana','Bruno','Célia','Davi','Elza',"
        "'Fábio','Gilda','Heitor','Inês','José','Karen','Luís','Maria','Nélson','Olga','Paulo',"
        "'Quitéria','Rui','Sônia','Tomás','Ursula','Vítor','Wanda','Xavier','Yara','Zélia'])"
        "[1 + g * 11 % 26] || ' de Souza ' || g::text collate \"pt-BR-x-icu\" as nome, 'Cidade ' "
        "|| g % 5000 as cidade"
        " from generate_series(1, " +
        std::to_string(Rows()) +
        ") g; alter table clientes add primary key (codigo);"
        " create index on clientes (nome); analyze clientes");
    return true;
  }();
  benchmark::DoNotOptimize(done);
}

// --- Our window ---------------------------------------------------------------------------------

/// A form with one field, whose button opens the list.
class LookupForm {
 public:
  LookupForm(const host::ConnectionPtr& connection, const QString& key, const QString& others) {
    window_.setProperty("dbForm", QVariant::fromValue(connection));
    field_.setObjectName("txtCliente");
    field_.setTipoControle(qt::TsText::Browse);
    field_.setBrowseTable("clientes");
    field_.setBrwCampo(key);
    field_.setBrwCampoOutros(others);
    field_.setUsaChecaRelacao(false);
    (new QVBoxLayout(&window_))->addWidget(&field_);
    window_.show();
    field_.setFocus();
    QApplication::processEvents();
    const auto port = std::dynamic_pointer_cast<host::TsTextWidget>(qt::makeWidget(field_));
    port->Get(u"Pesquisa")
        .As<Pesquisa>()
        ->Add(1, u"Nome", u"nome", 8, 1, u"", 2700, 0, false, false, 0, 0, u"");
  }

  /// Opens the list and runs the script inside its modal loop, once it has painted rows.
  Figures Open(const std::function<void(QTableView& view, Figures& figures)>& script) {
    Figures figures;
    auto* button = field_.findChild<QAbstractButton*>();
    const auto start = Clock::now();
    auto left = start;
    QTimer::singleShot(0, &window_, [&] {
      TheApplication().AwaitPaint();
      figures.firstMs = MsSince(start, TheApplication().PaintedAt());
      QWidget* list = QApplication::activeModalWidget();
      auto* view = list->findChild<QTableView*>();
      script(*view, figures);
      left = Clock::now();
      Key(*view, Qt::Key_Escape);
    });
    button->click();
    figures.leaveMs = MsSince(left);
    return figures;
  }

 private:
  QWidget window_;
  qt::TsText& field_ = *new qt::TsText;
};

void ClickHeader(QTableView& view, int column) {
  QHeaderView& header = *view.horizontalHeader();
  const QPointF place(header.sectionViewportPosition(column) + 10, header.height() / 2.0);
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    QMouseEvent event(type, place, header.viewport()->mapToGlobal(place), Qt::LeftButton,
                      type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton,
                      Qt::NoModifier);
    QApplication::sendEvent(header.viewport(), &event);
  }
}

/// The longest step while the bar is dragged to the end, until the end is the last row.
double LongestScrollMs(QTableView& view) {
  double longest = 0;
  while (view.model()->rowCount() < Rows()) {
    QScrollBar& bar = *view.verticalScrollBar();
    longest = std::max(longest, TheApplication().MsToPaint([&] {
      bar.setValue(bar.maximum());
      view.viewport()->update();  // the bar may not have grown yet
    }));
  }
  return longest;
}

/// The time from the answer of the prompt to the narrowed list.
double SearchMs(QTableView& view) {
  constexpr auto kPromptIsReady = std::chrono::milliseconds(200);
  Clock::time_point answered;
  QTimer::singleShot(kPromptIsReady, &view, [&] {
    QApplication::processEvents();
    QWidget* prompt = QApplication::activeModalWidget();
    for (const QChar c : QString("Rui de Souza 77"))
      Key(*prompt->focusWidget(), c.toUpper().unicode(), c);
    answered = Clock::now();
    Key(*prompt->focusWidget(), Qt::Key_Return);
  });
  Key(view, Qt::Key_F2);
  TheApplication().AwaitPaint();
  if (!view.model()->index(0, 1).data().toString().startsWith("Rui de Souza 77"))
    throw std::runtime_error("the search missed");
  return MsSince(answered, TheApplication().PaintedAt());
}

double JumpMs(QTableView& view) {
  const double time = TheApplication().MsToPaint([&] { Key(view, Qt::Key_Z, "z"); });
  RequireLetter(view);
  return time;
}

/// Everything but the reading to the end.
void MeasureSteps(const host::ConnectionPtr& connection, LookupForm& byKey, Figures& figures) {
  auto& application = TheApplication();
  const Figures sorted = byKey.Open([&](QTableView& view, Figures& lap) {
    lap.sortMs = application.MsToPaint([&] { ClickHeader(view, 1); });
    RequireSorted(view, 1);
  });
  figures.openSortMs = sorted.firstMs + sorted.sortMs;
  byKey.Open([&](QTableView& view, Figures&) { figures.scrollMs = LongestScrollMs(view); });
  byKey.Open([&](QTableView& view, Figures&) { figures.searchMs = SearchMs(view); });
  LookupForm byName(connection, "nome", "codigo, cidade");
  const Figures jumped = byName.Open([&](QTableView& view, Figures& lap) {
    lap.earlyJumpMs = JumpMs(view);
    for (const int key : {Qt::Key_End, Qt::Key_Home})
      application.MsToPaint([&] { Key(view, key); });
    lap.jumpMs = JumpMs(view);
  });
  figures.earlyJumpMs = jumped.earlyJumpMs;
  figures.jumpMs = jumped.jumpMs;
  figures.openJumpMs = jumped.firstMs + jumped.earlyJumpMs;
}

Figures WindowLap(host::ConnectionPtr (*driver)()) {
  auto& application = TheApplication();
  const auto connection = driver();
  connection->ConnectionString(PostgresCluster::Shared().ConnectionString());
  connection->Open();
  LookupForm byKey(connection, "codigo", "nome, cidade");
  const Memory memory;
  Figures figures = byKey.Open([&](QTableView& view, Figures& lap) {
    lap.lastMs = lap.firstMs + application.MsToPaint([&] { Key(view, Qt::Key_End); });
    RequireLastRow(view);
    lap.peakMb = memory.PeakMb();
    if (MeasuresAll()) lap.sortMs = application.MsToPaint([&] { ClickHeader(view, 1); });
  });
  if (MeasuresAll()) MeasureSteps(connection, byKey, figures);
  return figures;
}

// --- The models of Qt ---------------------------------------------------------------------------

/// A window with a table view, as a program would write it.
class PeerList {
 public:
  explicit PeerList(QAbstractItemModel& model) {
    (new QVBoxLayout(&window_))->addWidget(&view_);
    view_.setModel(&model);
    view_.setSelectionBehavior(QTableView::SelectRows);
    window_.resize(700, 500);
    window_.show();
  }
  QTableView& View() { return view_; }

 private:
  QWidget window_;
  QTableView& view_ = *new QTableView;
};

void ReadToTheEnd(QTableView& view) {
  QAbstractItemModel& model = *view.model();
  while (model.canFetchMore({})) model.fetchMore({});
  view.setCurrentIndex(model.index(model.rowCount() - 1, 0));
}

/// Gives a model the columns of the table, in the order of one of them.
template <class Model>
using Fill = std::function<void(Model& model, const char* columns, const char* order)>;

/// A model in a window of its own, and the time until its first rows are painted.
template <class Model>
struct OpenedPeer {
  Model model;
  std::unique_ptr<PeerList> list;
  double firstMs;

  OpenedPeer(const Fill<Model>& fill, const char* columns, const char* order) {
    firstMs = TheApplication().MsToPaint([&] {
      fill(model, columns, order);
      list = std::make_unique<PeerList>(model);
    });
  }
};

template <class Model>
double SortPeerMs(OpenedPeer<Model>& peer, const Fill<Model>& fill) {
  const double time =
      TheApplication().MsToPaint([&] { fill(peer.model, "codigo, nome, cidade", "nome"); });
  RequireSorted(peer.list->View(), 1);
  return time;
}

template <class Model>
void MeasurePeersSteps(const Fill<Model>& fill, Figures& figures) {
  auto& application = TheApplication();
  {
    OpenedPeer<Model> peer(fill, "codigo, nome, cidade", "codigo");
    figures.openSortMs = peer.firstMs + SortPeerMs(peer, fill);
  }
  OpenedPeer<Model> peer(fill, "nome, codigo, cidade", "nome");
  QTableView& view = peer.list->View();
  const int column = peer.model.record().indexOf("nome");
  const double readMs = application.MsToPaint([&] { ReadToTheEnd(view); });
  view.setCurrentIndex(peer.model.index(0, column));
  application.AwaitPaint();
  figures.jumpMs = application.MsToPaint([&] { view.keyboardSearch("z"); });
  RequireLetter(view);
  figures.openJumpMs = peer.firstMs + readMs + figures.jumpMs;
}

template <class Model>
Figures PeerLap(const Fill<Model>& fill) {
  auto& application = TheApplication();
  Figures figures;
  const Memory memory;
  {
    auto peer = std::make_unique<OpenedPeer<Model>>(fill, "codigo, nome, cidade", "codigo");
    QTableView& view = peer->list->View();
    figures.firstMs = peer->firstMs;
    figures.lastMs = figures.firstMs + application.MsToPaint([&] { ReadToTheEnd(view); });
    RequireLastRow(view);
    figures.peakMb = memory.PeakMb();
    if (MeasuresAll()) figures.sortMs = SortPeerMs(*peer, fill);
    const auto left = Clock::now();
    peer.reset();
    figures.leaveMs = MsSince(left);
  }
  if (MeasuresAll()) MeasurePeersSteps(fill, figures);
  return figures;
}

Figures QueryModelLap() {
  return PeerLap<QSqlQueryModel>([](QSqlQueryModel& model, const char* columns, const char* order) {
    model.setQuery(QString("Select %1 From clientes Where codigo Is Not Null Order by %2")
                       .arg(columns, order));
  });
}

Figures TableModelLap() {
  return PeerLap<QSqlTableModel>([](QSqlTableModel& model, const char*, const char* order) {
    if (model.tableName().isEmpty()) {
      model.setTable("clientes");
      model.setFilter("codigo Is Not Null");
    }
    model.setSort(model.fieldIndex(order), Qt::AscendingOrder);
    model.select();
  });
}

// --- The runs -----------------------------------------------------------------------------------

Figures& BestPeer() {
  static Figures best;
  return best;
}

/// Without what was not measured.
void Tell(benchmark::State& state, const char* name, double value) {
  constexpr double kNotMeasured = 1e8;
  if (value < kNotMeasured) state.counters[name] = value;
}

Figures Run(benchmark::State& state, const std::function<Figures()>& lap) {
  Provide();
  Figures best;
  for (auto _ : state) {
    const Figures figures = lap();
    state.SetIterationTime(figures.firstMs / 1000);
    best.KeepBest(figures);
  }
  Tell(state, "first_ms", best.firstMs);
  Tell(state, "last_ms", best.lastMs);
  Tell(state, "peak_mb", best.peakMb);
  Tell(state, "sort_ms", best.sortMs);
  Tell(state, "jump_ms", best.jumpMs);
  Tell(state, "open_sort_ms", best.openSortMs);
  Tell(state, "open_jump_ms", best.openJumpMs);
  Tell(state, "leave_ms", best.leaveMs);
  return best;
}

void QueryModel(benchmark::State& state) { BestPeer().KeepBest(Run(state, QueryModelLap)); }

void TableModel(benchmark::State& state) { BestPeer().KeepBest(Run(state, TableModelLap)); }

void Window(benchmark::State& state, host::ConnectionPtr (*driver)()) {
  const Figures ours = Run(state, [driver] { return WindowLap(driver); });
  Tell(state, "early_jump_ms", ours.earlyJumpMs);
  Tell(state, "scroll_ms", ours.scrollMs);
  Tell(state, "search_ms", ours.searchMs);
  const Figures& peer = BestPeer();
  state.counters["first_to_peer"] = ours.firstMs / peer.firstMs;
  state.counters["last_to_peer"] = ours.lastMs / peer.lastMs;
  state.counters["peak_to_peer"] = ours.peakMb / peer.peakMb;
  if (!MeasuresAll()) return;
  state.counters["sort_to_peer"] = ours.sortMs / peer.sortMs;
  state.counters["jump_to_peer"] = ours.jumpMs / peer.jumpMs;
  state.counters["open_sort_to_peer"] = ours.openSortMs / peer.openSortMs;
  state.counters["open_jump_to_peer"] = ours.openJumpMs / peer.openJumpMs;
}

/// The models run first: the ratios need their figures.
void RegisterAll() {
  const std::string prefix = MeasuresAll() ? "" : std::to_string(Rows()) + "/";
  const auto add = [&](const char* name, const std::function<void(benchmark::State&)>& run) {
    benchmark::RegisterBenchmark((prefix + name).c_str(), run)
        ->UseManualTime()
        ->Iterations(MeasuresAll() ? kLaps : 1)
        ->Unit(benchmark::kMillisecond);
  };
  add("QueryModel", QueryModel);
  add("TableModel", TableModel);
  add("Window/postgres", [](auto& state) { Window(state, postgres::CreateConnection); });
  add("Window/odbc", [](auto& state) { Window(state, odbc::CreateConnection); });
}

void OpenPeersDatabase() {
  auto database = QSqlDatabase::addDatabase("QPSQL");
  database.setHostName(QString::fromStdString(PostgresCluster::Shared().Folder()));
  database.setDatabaseName("postgres");
  database.setUserName("postgres");
  if (!database.open()) throw std::runtime_error("the models' driver cannot connect");
}

}  // namespace
}  // namespace tessaria::bench

// An error ends the measurement.
int main(int argc, char** argv) {  // NOLINT(bugprone-exception-escape)
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  tessaria::bench::WatchedApplication application(argc, argv);
  QApplication::setStyle("fusion");
  benchmark::Initialize(&argc, argv);
  tessaria::bench::Rows() = tessaria::bench::TakeRows(argc, argv, tessaria::bench::kMostForAll);
  benchmark::AddCustomContext("Qt", qVersion());
  tessaria::qt::install();
  tessaria::bench::OpenPeersDatabase();
  tessaria::bench::RegisterAll();
  benchmark::RunSpecifiedBenchmarks();
}
