#include "hosts/qt/focus/dialog_keys.h"

#include <QPointer>
#include <QPushButton>

#include "hosts/qt/focus/delegate_editor.h"
#include "hosts/qt/focus/focus_cycle.h"
#include "hosts/qt/form/widget_tree.h"

namespace tessaria::qt {
namespace {

bool isPressable(const QAbstractButton* button) {
  return button->isVisible() && button->isEnabled();
}

QAbstractButton* defaultButton(const QWidget* window) {
  for (QPushButton* button : window->findChildren<QPushButton*>())
    if (button->isDefault() && isPressable(button)) return button;
  return nullptr;
}

QAbstractButton* cancelButton(const QWidget* window) {
  for (QAbstractButton* button : window->findChildren<QAbstractButton*>())
    if (button->property("Cancel").toBool() && isPressable(button)) return button;
  return nullptr;
}

}  // namespace

bool isDialogKey(const QKeyEvent& event) {
  return event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter ||
         event.key() == Qt::Key_Escape;
}

bool takeFocusBeforePress(QAbstractButton* button) {
  const QPointer<QAbstractButton> alive(button);
  FocusCycle* cycle = FocusCycle::existing(button->window());
  if (!cycle) return true;
  if (button->focusPolicy() == Qt::NoFocus) return cycle->settleField(standInOf(*button)) && alive;
  button->setFocus(Qt::OtherFocusReason);
  return cycle->settlePending() && alive && alive->window()->focusWidget() == alive;
}

bool pressDialogButton(QWidget* edit, int key) {
  const QWidget* window = edit->window();
  Surface* field = surfaceOf(edit);
  const bool isOfCell = field && isCellEditor(&field->widget());
  QPointer<QAbstractButton> button;
  if (!isOfCell) button = key == Qt::Key_Escape ? cancelButton(window) : defaultButton(window);
  if (!button) return key != Qt::Key_Escape && !settleForDelegate(edit);
  if (takeFocusBeforePress(button) && button) button->click();
  return true;
}

}  // namespace tessaria::qt
