// The wizard's fifth tab: the fields that sort the laid out statement.
#pragma once

#include "wizard/wizard.h"

namespace tessaria::wizard {

/// Lives as long as the wizard.
class OrderTab {
 public:
  explicit OrderTab(Wizard& wizard);
  OrderTab(const OrderTab&) = delete;
  OrderTab& operator=(const OrderTab&) = delete;

 private:
  void ListFields();

  Wizard& wizard_;
};

}  // namespace tessaria::wizard
