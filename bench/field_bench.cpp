// Benchmarks of typing into fields and of their layout and construction, compared with a line edit
// that has an input mask.
//
// The peer and the field run by turns, so that other load of the machine hits both alike. Counters:
// the times of both, per key or per field, and the "ratio" of their medians. The window benchmarks
// send the same key events to real widgets.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWidget>
#include <chrono>
#include <cstring>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "bench/measuring.h"
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

template <class Body>
double SecondsOf(Body&& body) {
  using Clock = std::chrono::steady_clock;
  const auto start = Clock::now();
  body();
  return std::chrono::duration<double>(Clock::now() - start).count();
}

/// A lap runs the peer and then ours. `parts` is the number of keys, texts or fields in a lap.
template <class Peer, class Ours>
void Compare(benchmark::State& state, double parts, Peer peer, Ours ours) {
  std::vector<double> peers, own;
  for (auto _ : state) {
    peers.push_back(SecondsOf(peer));
    own.push_back(SecondsOf(ours));
    state.SetIterationTime(own.back());
  }
  state.counters["ratio"] = Median(own) / Median(peers);
  state.counters["us_each"] = Median(own) / parts * 1e6;
  state.counters["peer_us_each"] = Median(peers) / parts * 1e6;
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

String WideOf(const char* text) { return {text, text + strlen(text)}; }

/// A line edit with the peer's mask, to type the family's keys into.
class MaskedEdit {
 public:
  explicit MaskedEdit(const Family& family) : keys_(family.keys) {
    box_.setInputMask(family.peers);
    box_.show();
  }
  void operator()() {
    box_.clear();
    box_.setCursorPosition(0);
    TypeInto(&box_, keys_);
  }

 private:
  QLineEdit box_;
  const char* keys_;
};

void TypeIntoField(benchmark::State& state, const Family& family) {
  MaskedEdit peer(family);
  qt::TsText field;
  field.setMaxLength(14);
  field.setMascara(family.ours);
  field.show();
  auto* box = field.findChild<QLineEdit*>();
  Compare(state, double(strlen(family.keys)), std::ref(peer), [&] {
    field.setTexto({});
    field.setMascara(family.ours);
    TypeInto(box, family.keys);
  });
}

/// The key filter alone, on a text box without a screen.
void FilterKeys(benchmark::State& state, const Family& family) {
  MaskedEdit peer(family);
  TestField field(WideOf(family.ours));
  field.box.MaxLength(14);
  Compare(state, double(strlen(family.keys)), std::ref(peer), [&] {
    field.Show(u"");
    for (const char* key = family.keys; *key; ++key) {
      Integer code = static_cast<unsigned char>(*key);
      txtEdit_KeyPress(field, code);
    }
  });
}

/// A text is laid out in its mask and taken out of it again.
void LayOut(benchmark::State& state, const Family& family) {
  constexpr int kTexts = 100;  // one alone is too short for the clock
  const auto repeat = [](auto body) {
    return [body] {
      for (int i = 0; i < kTexts; ++i) body();
    };
  };
  QLineEdit box;
  box.setInputMask(family.peers);
  const QString peersText = family.keys;
  const Variant text = WideOf(family.keys);
  const String mask = WideOf(family.ours);
  const String items = mdlObjTxt::MontaItensMascara(mask, u"_");
  Compare(state, kTexts, repeat([&] {
            box.setText(peersText);
            benchmark::DoNotOptimize(box.text());
          }),
          repeat([&] {
            const String shown = mdlObjTxt::AplicaMascara(text, mask, u"_", items, u"");
            benchmark::DoNotOptimize(mdlObjTxt::LimpaMascara(shown, mask, items));
          }));
}

constexpr int kFields = 200;

/// Builds a form of fields and shows it. `add` puts one field into the form's column.
template <class Add>
void BuildForm(Add add) {
  QWidget form;
  auto* column = new QVBoxLayout(&form);
  for (int i = 0; i < kFields; ++i) add(*column);
  form.show();
  QApplication::processEvents();
}

void BuildForms(benchmark::State& state) {
  const auto addEditWithButton = [](QVBoxLayout& column) {
    auto* row = new QHBoxLayout;
    row->addWidget(new QLineEdit);
    row->addWidget(new QToolButton);
    column.addLayout(row);
  };
  const auto addField = [](QVBoxLayout& column) {
    auto* field = new qt::TsText;
    field->setTipoControle(qt::TsText::Calendario);
    column.addWidget(field);
  };
  Compare(
      state, kFields, [&] { BuildForm(addEditWithButton); }, [&] { BuildForm(addField); });
}

void Register(const std::string& name, const std::function<void(benchmark::State&)>& run) {
  benchmark::RegisterBenchmark(name.c_str(), run)->UseManualTime();
}

void RegisterAll() {
  using Run = void (*)(benchmark::State&, const Family&);
  const std::pair<const char*, Run> kinds[] = {
      {"typing/", TypeIntoField}, {"filter/", FilterKeys}, {"layout/", LayOut}};
  for (const auto& [kind, run] : kinds)
    for (const Family& family : kFamilies)
      Register(std::string(kind) + family.name,
               [&family, run = run](benchmark::State& state) { run(state, family); });
  Register("form of 200", BuildForms);
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
