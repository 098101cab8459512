// The control's start values and its two walks through the property bag.

#include "control/persistence.h"
#include "control/tstext.h"

namespace tessaria {

void tsText::UserControl_InitProperties() { SetStartValues(parts_->members, parts_->box.Widget()); }

void tsText::UserControl_ReadProperties(const host::PropertyBag& bag) {
  const BoxEvents::Silence silence(parts_->boxEvents);
  ReadProperties(parts_->stored, bag);
}

void tsText::UserControl_WriteProperties(host::PropertyBag& bag) {
  WriteProperties(parts_->stored, bag);
}

}  // namespace tessaria
