// The wizard's second tab: how the tables are joined.
#pragma once

#include "wizard/wizard.h"

namespace tessaria::wizard {

/// Lives as long as the wizard.
class LinksTab {
 public:
  explicit LinksTab(Wizard& wizard);
  LinksTab(const LinksTab&) = delete;
  LinksTab& operator=(const LinksTab&) = delete;

 private:
  void SelectForeignKey();
  bool IsLinkOfOneTable() const;
  void AddLink();

  Wizard& wizard_;
};

}  // namespace tessaria::wizard
