// The property page of a field, as Designer's dialog knows it.
#pragma once

#include <tessaria/qt/property_page.h>

#include "apps/designer/page.h"

namespace tessaria::designer {

class FieldPage final : public Page {
 public:
  explicit FieldPage(const PageContext& context) : page_(context.selected, context.changed) {}

  QWidget& widget() override { return page_.widget(); }
  void read() override { page_.read(); }
  void apply() override { page_.apply(); }

 private:
  qt::PropertyPage page_;
};

}  // namespace tessaria::designer
