#include "hosts/qt/form/first_show.h"

#include <algorithm>

#include "hosts/qt/form/control_pointer.h"
#include "hosts/qt/form/widget_tree.h"

namespace tessaria::qt {
namespace {

constexpr char kShown[] = "_tessaria_shown";

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

bool wasShown(const QWidget* form) { return form->property(kShown).toBool(); }

QList<Surface*> inLoadOrder(QWidget* form) {
  QList<Surface*> fields;
  if (auto* alone = dynamic_cast<Surface*>(form)) fields << alone;
  fields << ownControls<Surface>(form);
  std::stable_sort(fields.begin(), fields.end(), [](const Surface* a, const Surface* b) {
    return a->loadOrder() < b->loadOrder();
  });
  return fields;
}

void showFirst(QWidget* form) {
  if (wasShown(form)) return;
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
