#include "tessaria/qt/design_time.h"

namespace tessaria::qt {
namespace {

FormFinder finder = nullptr;

}  // namespace

void setDesigner(FormFinder find) { finder = find; }

bool isDesigner() { return finder != nullptr; }

QWidget* formUnderDesign(const QWidget* widget) {
  return finder ? finder(const_cast<QWidget*>(widget)) : nullptr;
}

}  // namespace tessaria::qt
