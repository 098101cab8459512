// The wizard's first tab: the data source and the tables.
#pragma once

#include "wizard/wizard.h"

namespace tessaria::wizard {

/// Lives as long as the wizard.
class TablesTab {
 public:
  /// Lists the data sources of the system.
  explicit TablesTab(Wizard& wizard);
  TablesTab(const TablesTab&) = delete;
  TablesTab& operator=(const TablesTab&) = delete;

 private:
  void ListSources();
  void AliasesClicked();
  void MainTableChecked(const host::ListRow& row);

  Wizard& wizard_;
};

}  // namespace tessaria::wizard
