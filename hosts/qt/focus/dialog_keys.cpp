#include "hosts/qt/focus/dialog_keys.h"

#include <QCoreApplication>
#include <QPointer>
#include <QPushButton>

#include "hosts/qt/focus/delegate_editor.h"
#include "hosts/qt/focus/focus_cycle.h"
#include "hosts/qt/form/widget_tree.h"
#include "tessaria/comforts.h"

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

/// The Tab key does it, with all that holds for it.
bool movesOn(Surface& field) {
  if (!comforts().EnterMovesOn || hasDelegate(field.widget())) return false;
  QWidget* focus = field.widget().window()->focusWidget();
  for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease})
    QCoreApplication::postEvent(focus, new QKeyEvent(type, Qt::Key_Tab, Qt::NoModifier));
  return true;
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
  if (!button && key == Qt::Key_Escape) return false;
  if (!button) return !settleForDelegate(edit) || (field && !isOfCell && movesOn(*field));
  if (takeFocusBeforePress(button) && button) button->click();
  return true;
}

}  // namespace tessaria::qt
