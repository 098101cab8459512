// Benchmarks of typing into fields and of their layout and construction, compared with a line edit
// that has an input mask.
//
// Every figure comes in a pair: first the peer, then ours, with the counter "ratio" of the two. The
// window benchmarks send the same key events to real widgets.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidget>
#include <chrono>
#include <map>
#include <memory>
#include <vector>

#include "tessaria/masks.h"
#include "tessaria/memory/application.h"
#include "tessaria/qt/host.h"
#include "tessaria/qt/tstext.h"
#include "tessaria/thread_state.h"
#include "tests/mask/test_field.h"

namespace tessaria::bench {
namespace {

struct Family {
  const char* name;
  const char* ours;
  const char* peers;
  const char* keys;
};

// The families of masks, each with the peer's mask for the same keys.
constexpr Family kFamilies[] = {
    {"date", "00/00/0000", "99/99/9999;_", "25122017"},
    {"letters", "AAAAAAAAAA", ">NNNNNNNNNN;_", "tessaria99"},
    {"two-sided", "N000A00", "9999N99;_", "1234b56"},
    {"number", "$$$$$$$.$$", "0000000.00; ", "123456,78"},
};

std::map<std::string, double>& PeerSeconds() {
  static std::map<std::string, double> seconds;
  return seconds;
}

/// Measures the time of the body itself, so that the ratio of the pair can be computed.
template <class Body>
void Run(benchmark::State& state, const std::string& pair, bool isPeer, double perLap, Body body) {
  using Clock = std::chrono::steady_clock;
  double total = 0;
  for (auto _ : state) {
    const auto start = Clock::now();
    body();
    const double lap = std::chrono::duration<double>(Clock::now() - start).count();
    state.SetIterationTime(lap);
    total += lap;
  }
  const double each = total / double(state.iterations()) / perLap;
  if (isPeer)
    PeerSeconds()[pair] = each;
  else
    state.counters["ratio"] = each / PeerSeconds()[pair];
  state.counters["us_each"] = each * 1e6;
}

void Key(QLineEdit* box, char character) {
  const QString text{QLatin1Char(character)};
  const int code = QChar(QLatin1Char(character)).toUpper().unicode();
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent event(type, code, Qt::NoModifier, text);
    QApplication::sendEvent(box, &event);
  }
}

void TypeInto(QLineEdit* box, const char* keys) {
  for (const char* key = keys; *key; ++key) Key(box, *key);
}

void TypingPeer(benchmark::State& state, const Family& family) {
  QLineEdit box;
  box.setInputMask(family.peers);
  box.show();
  Run(state, std::string("typing ") + family.name, true, double(strlen(family.keys)), [&] {
    box.clear();
    box.setCursorPosition(0);
    TypeInto(&box, family.keys);
  });
}

void TypingOurs(benchmark::State& state, const Family& family) {
  qt::TsText field;
  field.setMaxLength(14);
  field.setMascara(family.ours);
  field.show();
  auto* box = field.findChild<QLineEdit*>();
  Run(state, std::string("typing ") + family.name, false, double(strlen(family.keys)), [&] {
    field.setTexto({});
    field.setMascara(family.ours);
    TypeInto(box, family.keys);
  });
}

/// The key filter alone, on a text box without a screen.
void FilterOurs(benchmark::State& state, const Family& family) {
  TestField field(String(family.ours, family.ours + strlen(family.ours)));
  field.box.MaxLength(14);
  Run(state, std::string("typing ") + family.name, false, double(strlen(family.keys)), [&] {
    field.Show(u"");
    for (const char* key = family.keys; *key; ++key) {
      Integer code = static_cast<unsigned char>(*key);
      txtEdit_KeyPress(field, code);
    }
  });
}

void LayoutPeer(benchmark::State& state) {
  QLineEdit box;
  box.setInputMask("99/99/9999;_");
  Run(state, "layout", true, 1, [&] {
    box.setText("25122017");
    benchmark::DoNotOptimize(box.text());
  });
}

void LayoutOurs(benchmark::State& state) {
  const String mask = u"00/00/0000";
  const String items = mdlObjTxt::MontaItensMascara(mask, u"_");
  Run(state, "layout", false, 1, [&] {
    const String shown = mdlObjTxt::AplicaMascara(u"25122017", mask, u"_", items, u"");
    benchmark::DoNotOptimize(mdlObjTxt::LimpaMascara(shown, mask, items));
  });
}

constexpr int kFields = 200;

void FormPeer(benchmark::State& state) {
  Run(state, "form", true, 1, [] {
    QWidget form;
    auto* column = new QVBoxLayout(&form);
    for (int i = 0; i < kFields; ++i) {
      auto* row = new QHBoxLayout;
      row->addWidget(new QLineEdit);
      row->addWidget(new QToolButton);
      column->addLayout(row);
    }
    form.show();
    QApplication::processEvents();
  });
}

void FormOurs(benchmark::State& state) {
  Run(state, "form", false, 1, [] {
    QWidget form;
    auto* column = new QVBoxLayout(&form);
    for (int i = 0; i < kFields; ++i) {
      auto* field = new qt::TsText;
      field->setTipoControle(qt::TsText::Calendario);
      column->addWidget(field);
    }
    form.show();
    QApplication::processEvents();
  });
}

template <class Peer, class Ours>
void RegisterPair(const std::string& name, Peer peer, Ours ours, const char* our = "/field") {
  if (peer) benchmark::RegisterBenchmark((name + "/peer").c_str(), peer)->UseManualTime();
  benchmark::RegisterBenchmark((name + our).c_str(), ours)->UseManualTime();
}

using Benchmark = std::function<void(benchmark::State&)>;

void RegisterAll() {
  for (const Family& family : kFamilies) {
    const std::string name = std::string("typing/") + family.name;
    RegisterPair(name, Benchmark([&family](benchmark::State& s) { TypingPeer(s, family); }),
                 Benchmark([&family](benchmark::State& s) { TypingOurs(s, family); }));
    RegisterPair(name, Benchmark(),
                 Benchmark([&family](benchmark::State& s) { FilterOurs(s, family); }), "/filter");
  }
  RegisterPair("layout", Benchmark(LayoutPeer), Benchmark(LayoutOurs));
  RegisterPair("form of 200", Benchmark(FormPeer), Benchmark(FormOurs));
}

}  // namespace
}  // namespace tessaria::bench

int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  tessaria::qt::install();
  tessaria::bench::RegisterAll();
  benchmark::RunSpecifiedBenchmarks();
}
