#include "hosts/qt/event_boundary.h"

#include <QPointer>
#include <vector>

#include "hosts/qt/handles.h"
#include "hosts/qt/text.h"
#include "tessaria/host/application.h"
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

}  // namespace

namespace boundary {

Entry::Entry() { ++entries().depth; }

Entry::~Entry() {
  if (--entries().depth > 0) return;
  // What is destroyed here may retire more.
  const auto retired = std::move(entries().retired);
  entries().retired.clear();
}

void report(QWidget* widget, Long number, const QString& description) {
  QPointer<QWidget> alive(widget);
  const QString text = description.isEmpty() ? toQt(ErrorDescription(number)) : description;
  if (auto* listener = listenerAround(widget)) listener->unhandled(number, text);
  const Long owner = alive ? handleOf(*alive) : 0;
  State().application->ShowMessageBox(owner, fromQt(text), host::box::Stop,
                                      fromQt(QStringLiteral("Erro: %1").arg(number)));
}

void report(QWidget* widget, const HostError& error) {
  report(widget, error.Number(), toQt(error.Description()));
}

}  // namespace boundary

void retire(std::shared_ptr<void> object) {
  if (entries().depth > 0) entries().retired.push_back(std::move(object));
}

}  // namespace tessaria::qt
