#include "hosts/qt/form/first_show.h"

#include <QCoreApplication>
#include <algorithm>
#include <utility>

#include "hosts/qt/boundary/wait_input.h"
#include "hosts/qt/form/control_pointer.h"
#include "hosts/qt/form/widget_tree.h"
#include "tessaria/qt/design_time.h"

namespace tessaria::qt {
namespace {

// Dynamic properties of forms.
constexpr char kShown[] = "_tessaria_shown";
constexpr char kAwaited[] = "_tessaria_awaited";

/// The fields under design that wait for their first show.
QList<ControlPointer<FormControl>>& designedFields() {
  static QList<ControlPointer<FormControl>> fields;
  return fields;
}

/// The controls of a type on the form itself, without those of forms inside it, in order of
/// creation.
template <class Control>
QList<Control*> ownControls(const QWidget* form) {
  QList<Control*> controls;
  for (QWidget* widget : form->findChildren<QWidget*>()) {
    auto* control = dynamic_cast<Control*>(widget);
    if (control && formOf(widget) == form) controls << control;
  }
  return controls;
}

}  // namespace

bool wasShown(const QWidget* form) { return form->dynamicPropertyNames().contains(kShown); }

void showFirstSoon(QWidget* form) {
  if (formUnderDesign(form) || form->dynamicPropertyNames().contains(kAwaited)) return;
  form->setProperty(kAwaited, true);
  runLater(form, [form] {
    form->setProperty(kAwaited, QVariant());
    showFirst(form);
  });
}

// While one field waits for the server, further ones only join the row behind it.
void showDesignedSoon(Surface& field) {
  auto& fields = designedFields();
  fields << ControlPointer<FormControl>(&field);
  if (fields.size() > 1) return;
  QMetaObject::invokeMethod(
      qApp,
      [&fields] {
        for (; !fields.isEmpty(); fields.removeFirst())
          if (const auto next = fields.first()) next->formShown();
      },
      Qt::QueuedConnection);
}

QList<Surface*> inLoadOrder(QWidget* form) {
  QList<Surface*> fields;
  if (auto* alone = dynamic_cast<Surface*>(form)) fields << alone;
  fields << ownControls<Surface>(form);
  QList<std::pair<LoadOrder, Surface*>> ordered;
  for (Surface* field : fields) ordered << std::pair(field->loadOrder(), field);
  std::stable_sort(ordered.begin(), ordered.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::transform(ordered.begin(), ordered.end(), fields.begin(),
                 [](const auto& each) { return each.second; });
  return fields;
}

void showFirst(QWidget* form) {
  if (wasShown(form) || formUnderDesign(form)) return;
  QList<ControlPointer<FormControl>> controls;
  for (FormControl* control : ownControls<FormControl>(form))
    if (!dynamic_cast<Surface*>(control)) controls << control;
  const QList<Surface*> fields = inLoadOrder(form);
  for (Surface* field : fields) controls << field;
  if (controls.isEmpty()) return;
  form->setProperty(kShown, true);
  const QList<QLabel*> labels = labelsOf(form);
  for (Surface* field : fields) field->nameByCaption(labels);
  for (const auto& control : controls)
    if (control) control->formShown();
}

}  // namespace tessaria::qt
