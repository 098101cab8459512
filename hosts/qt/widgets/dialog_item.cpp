#include "hosts/qt/widgets/dialog_item.h"

namespace tessaria::qt {

bool isToBeSeen(const QWidget& widget) {
  for (const QWidget* w = &widget; !w->isWindow(); w = w->parentWidget())
    if (w->isHidden() && w->testAttribute(Qt::WA_WState_ExplicitShowHide)) return false;
  return true;
}

void DialogItem::takeFocus() const {
  QWidget& target = focusTarget();
  if (target.focusPolicy() != Qt::NoFocus && target.isEnabled() && isToBeSeen(face_))
    target.setFocus(Qt::OtherFocusReason);
}

}  // namespace tessaria::qt
