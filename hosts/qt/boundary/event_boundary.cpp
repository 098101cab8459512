#include "tessaria/qt/event_boundary.h"

#include <QPointer>
#include <QThread>
#include <algorithm>
#include <optional>
#include <vector>

#include "hosts/qt/boundary/after_entry.h"
#include "hosts/qt/boundary/handles.h"
#include "tessaria/host/application.h"
#include "tessaria/qt/text.h"
#include "tessaria/thread_state.h"

namespace tessaria::qt {
namespace {

struct Report {
  QPointer<QWidget> widget;
  Reporter report;
};

/// The entries of one event loop, with what is reported when the outermost of them ends. What a
/// modal window does is reported in its own loop, not when the window has closed.
struct Loop {
  int level = 0;
  int depth = 0;
  std::vector<Report> reports;
};

struct Entries {
  int depth = 0;
  std::vector<std::shared_ptr<void>> retired;
  std::vector<Loop> loops;
};

Entries& entries() {
  static thread_local Entries instance;
  return instance;
}

/// A report may cause others.
void reportAll() {
  for (;;) {
    auto& reports = entries().loops.back().reports;
    if (reports.empty()) return;
    const Report next = reports.front();
    reports.erase(reports.begin());
    if (next.widget) next.report(*next.widget);
  }
}

ErrorListener* listenerAround(QWidget* widget) {
  for (; widget; widget = widget->parentWidget())
    if (auto* listener = dynamic_cast<ErrorListener*>(widget)) return listener;
  return nullptr;
}

struct Failure {
  Long number;
  QString text;
};

/// The exception that is being handled; empty if there is nothing to report.
std::optional<Failure> failureInHand() {
  const auto described = [](Long number, const QString& text) {
    return Failure{number, text.isEmpty() ? toQt(ErrorDescription(number)) : text};
  };
  try {
    throw;
  } catch (const ControlGone&) {
    return {};
  } catch (const HostError& error) {
    return described(error.Number(), toQt(error.Description()));
  } catch (const std::exception& error) {
    return described(boundary::kInternalError, QString::fromUtf8(error.what()));
  } catch (...) {
    return described(boundary::kInternalError, {});
  }
}

void show(QWidget* widget, const Failure& failure) {
  const Long owner = widget ? handleOf(*widget) : 0;
  State().application->ShowMessageBox(owner, fromQt(failure.text), host::box::Stop,
                                      fromQt(QStringLiteral("Erro: %1").arg(failure.number)));
}

}  // namespace

namespace boundary {

Entry::Entry() {
  Entries& all = entries();
  ++all.depth;
  const int level = QThread::currentThread()->loopLevel();
  if (all.loops.empty() || all.loops.back().level != level) all.loops.push_back({level, 0, {}});
  ++all.loops.back().depth;
}

Entry::~Entry() {
  if (entries().loops.back().depth == 1) reportAll();
  if (--entries().loops.back().depth == 0) entries().loops.pop_back();
  if (--entries().depth > 0) return;
  // The objects that are destroyed here may retire others.
  const auto retired = std::move(entries().retired);
  entries().retired.clear();
}

void reportException(const QWidget* entered) {
  const auto failure = failureInHand();
  if (!failure) return;
  // Also an entry that only reads the widget is reported by its signal.
  auto* const widget = const_cast<QWidget*>(entered);
  const QPointer<QWidget> alive(widget);
  // The error listener may fail too; that is not reported to it.
  try {
    if (auto* listener = listenerAround(widget))
      listener->unhandled(failure->number, failure->text);
  } catch (...) {
    if (const auto second = failureInHand()) show(alive, *second);
  }
  show(alive, *failure);
}

}  // namespace boundary

void afterEntry(QWidget& widget, Reporter report) {
  const boundary::Entry entry;
  auto& reports = entries().loops.back().reports;
  const bool isAwaited = std::any_of(reports.rbegin(), reports.rend(), [&](const Report& each) {
    return each.widget == &widget && each.report == report;
  });
  if (!isAwaited) reports.push_back({&widget, report});
}

void retire(std::shared_ptr<void> object) {
  if (entries().depth > 0) entries().retired.push_back(std::move(object));
}

}  // namespace tessaria::qt
