// Prints the figures of all benchmarks as one Markdown table: what was measured, the wanted ratio
// to the better peer, and the ratio with each driver.
//
// Usage: speed_table FILE..., the JSON outputs of the benchmarks. A work that no file holds is "not
// measured". scripts/speed-table.sh runs the benchmarks and this program.
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSysInfo>
#include <algorithm>
#include <cstdio>
#include <iterator>
#include <optional>
#include <stdexcept>

namespace tessaria::bench {
namespace {

/// A counter of a benchmark. The name of the benchmark is the start of the one in the file.
struct Source {
  const char* benchmark;
  const char* counter;
};

struct Row {
  const char* work;
  const char* wanted;
  Source postgres;
  Source odbc;  ///< without a benchmark where no driver plays a part
};

constexpr Row kRows[] = {
    {"1,000,000 rows: first rows painted",
     "0.02",
     {"Window/postgres", "first_to_peer"},
     {"Window/odbc", "first_to_peer"}},
    {"opened, End pressed, last row painted",
     "0.8",
     {"Window/postgres", "last_to_peer"},
     {"Window/odbc", "last_to_peer"}},
    {"opened and sorted by another column",
     "0.8",
     {"Window/postgres", "open_sort_to_peer"},
     {"Window/odbc", "open_sort_to_peer"}},
    {"opened and jumped to the last letter",
     "0.8",
     {"Window/postgres", "open_jump_to_peer"},
     {"Window/odbc", "open_jump_to_peer"}},
    {"memory after the end",
     "0.1",
     {"Window/postgres", "peak_to_peer"},
     {"Window/odbc", "peak_to_peer"}},
    {"record set to the last row, against a bare block fetch of the same driver",
     "1.05",
     {"RecordsetToTheLastRow/postgres", "last_to_libpq"},
     {"RecordsetToTheLastRow/odbc", "last_to_bare"}},
    {"the same, where rows cannot stay at the server",
     "1.05",
     {"RecordsetReadWhole/postgres", "last_to_libpq"},
     {"RecordsetReadWhole/odbc", "last_to_bare"}},
    {"10,000,000 rows: first rows painted",
     "0.02",
     {"10000000/Window/postgres", "first_to_peer"},
     {"10000000/Window/odbc", "first_to_peer"}},
    {"10,000,000 rows: memory after the end",
     "0.1",
     {"10000000/Window/postgres", "peak_to_peer"},
     {"10000000/Window/odbc", "peak_to_peer"}},
    {"beside 1,000,000 rows, against 1,000: a new record",
     "1.1",
     {"Beside/new record/postgres", "first_to_small"},
     {"Beside/new record/odbc", "first_to_small"}},
    {"beside 1,000,000 rows, against 1,000: saving a new record",
     "1.1",
     {"Beside/saving a new record/postgres", "later_to_small"},
     {"Beside/saving a new record/odbc", "later_to_small"}},
    {"beside 1,000,000 rows, against 1,000: saving a change",
     "1.1",
     {"Beside/saving a change/postgres", "later_to_small"},
     {"Beside/saving a change/odbc", "later_to_small"}},
    {"beside 1,000,000 rows, against 1,000: description lookup",
     "1.1",
     {"Beside/description lookup/postgres", "later_to_small"},
     {"Beside/description lookup/odbc", "later_to_small"}},
    {"beside 1,000,000 rows, against 1,000: completion",
     "1.1",
     {"Beside/completion/postgres", "later_to_small"},
     {"Beside/completion/odbc", "later_to_small"}},
    {"beside 1,000,000 rows, against 1,000: the first statement",
     "1.1",
     {"Beside/description lookup/postgres", "first_to_small"},
     {"Beside/description lookup/odbc", "first_to_small"}},
    {"beside 10,000,000 rows, against 1,000: a new record",
     "1.1",
     {"10000000/Beside/new record/postgres", "first_to_small"},
     {"10000000/Beside/new record/odbc", "first_to_small"}},
    {"beside 10,000,000 rows, against 1,000: saving a new record",
     "1.1",
     {"10000000/Beside/saving a new record/postgres", "later_to_small"},
     {"10000000/Beside/saving a new record/odbc", "later_to_small"}},
    {"beside 10,000,000 rows, against 1,000: saving a change",
     "1.1",
     {"10000000/Beside/saving a change/postgres", "later_to_small"},
     {"10000000/Beside/saving a change/odbc", "later_to_small"}},
    {"beside 10,000,000 rows, against 1,000: description lookup",
     "1.1",
     {"10000000/Beside/description lookup/postgres", "later_to_small"},
     {"10000000/Beside/description lookup/odbc", "later_to_small"}},
    {"beside 10,000,000 rows, against 1,000: completion",
     "1.1",
     {"10000000/Beside/completion/postgres", "later_to_small"},
     {"10000000/Beside/completion/odbc", "later_to_small"}},
    {"beside 10,000,000 rows, against 1,000: the first statement",
     "1.1",
     {"10000000/Beside/description lookup/postgres", "first_to_small"},
     {"10000000/Beside/description lookup/odbc", "first_to_small"}},
    {"form of 200 fields, built and shown", "1.2", {"form of 200", "ratio"}, {}},
    {"a text laid out and stripped: date", "0.3", {"layout/date", "ratio"}, {}},
    {"a text laid out and stripped: letters", "0.3", {"layout/letters", "ratio"}, {}},
    {"a text laid out and stripped: two-sided", "0.3", {"layout/two-sided", "ratio"}, {}},
    {"a text laid out and stripped: number", "0.3", {"layout/number", "ratio"}, {}},
    {"typing in a window, number mask", "0.9", {"typing/number", "ratio"}, {}},
    {"description lookup, against libpq",
     "1.05",
     {"FindDescription/postgres", "to_libpq"},
     {"FindDescription/odbc", "to_libpq"}},
};

/// The peers, as the benchmarks name them in their context.
constexpr const char* kPeers[] = {"Qt", "libpq", "psqlodbc", "PostgreSQL"};

/// The runs of all files, and what their contexts tell.
struct Measured {
  QJsonArray runs;
  QJsonObject context;
  double load = 0;  ///< the highest that a program found when it started
};

void Read(const QString& path, Measured& measured) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly))
    throw std::runtime_error("cannot read " + path.toStdString());
  const QJsonObject content = QJsonDocument::fromJson(file.readAll()).object();
  const QJsonObject context = content["context"].toObject();
  for (auto each = context.begin(); each != context.end(); ++each)
    measured.context[each.key()] = each.value();
  measured.load = std::max(measured.load, context["load_avg"].toArray().first().toDouble());
  for (const auto& run : content["benchmarks"].toArray()) measured.runs << run;
}

std::optional<double> Find(const Measured& measured, const Source& source) {
  for (const auto& run : measured.runs) {
    const QJsonObject fields = run.toObject();
    const QString name = fields["name"].toString() + '/';
    if (name.startsWith(QLatin1String(source.benchmark) + QLatin1Char('/')) &&
        fields.contains(QLatin1String(source.counter)))
      return fields[QLatin1String(source.counter)].toDouble();
  }
  return {};
}

QString Text(const Measured& measured, const Source& source) {
  if (!source.benchmark) return {};
  const auto ratio = Find(measured, source);
  if (!ratio) return QStringLiteral("not measured");
  return QString::number(*ratio, 'f', *ratio < 0.1 ? 3 : 2);
}

void Print(const Measured& measured) {
  std::puts("| work | wanted | PostgreSQL's own driver | ODBC |\n|---|---|---|---|");
  for (const Row& row : kRows)
    std::printf("| %s | ≤ %s | %s | %s |\n", row.work, row.wanted,
                qPrintable(Text(measured, row.postgres)), qPrintable(Text(measured, row.odbc)));
  std::fputs("\nPeers:", stdout);
  for (const char* peer : kPeers)
    std::printf("%s %s %s", peer == kPeers[0] ? "" : ",", peer,
                qPrintable(measured.context[QLatin1String(peer)].toString("not measured")));
  std::printf(". Measured %s on %d processors of %s, load at most %.2f.\n",
              qPrintable(measured.context["date"].toString().left(10)),
              measured.context["num_cpus"].toInt(), qPrintable(QSysInfo::prettyProductName()),
              measured.load);
}

}  // namespace
}  // namespace tessaria::bench

int main(int argc, char** argv) {
  try {
    tessaria::bench::Measured measured;
    for (int i = 1; i < argc; ++i) tessaria::bench::Read(QString::fromLocal8Bit(argv[i]), measured);
    tessaria::bench::Print(measured);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "speed_table: %s\n", error.what());
    return 1;
  }
}
