// The control's start values and its two walks through the property bag.

#include "control/storage/persistence.h"
#include "control/tstext.h"

namespace tessaria {
namespace {

// A template, because the type of the parts is private to the control.
constexpr auto kStoredOf = [](auto& parts) {
  return StoredState{parts.members, parts.lookup, parts.box.Widget(), parts.site};
};

}  // namespace

void tsText::UserControl_InitProperties() { SetStartValues(parts_->members, parts_->box.Widget()); }

void tsText::UserControl_ReadProperties(const host::PropertyBag& bag) {
  const BoxEvents::Silence silence(parts_->boxEvents);
  StoredState state = kStoredOf(*parts_);
  ReadProperties(state, bag);
}

void tsText::ReadAtDesignTime(const host::PropertyBag& bag) {
  const BoxEvents::Silence silence(parts_->boxEvents);
  StoredState state = kStoredOf(*parts_);
  ReadOrRaise(state, bag);
}

void tsText::UserControl_WriteProperties(host::PropertyBag& bag) {
  WriteProperties(kStoredOf(*parts_), bag);
}

}  // namespace tessaria
