#include "tessaria/qt/event_boundary.h"

#include <QPointer>
#include <optional>
#include <vector>

#include "hosts/qt/boundary/handles.h"
#include "tessaria/host/application.h"
#include "tessaria/qt/text.h"
#include "tessaria/thread_state.h"

namespace tessaria::qt {
namespace {

struct Entries {
  int depth = 0;
  std::vector<std::shared_ptr<void>> retired;
};

Entries& entries() {
  static thread_local Entries instance;
  return instance;
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

Entry::Entry() { ++entries().depth; }

Entry::~Entry() {
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

void retire(std::shared_ptr<void> object) {
  if (entries().depth > 0) entries().retired.push_back(std::move(object));
}

}  // namespace tessaria::qt
