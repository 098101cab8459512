// The wizard's last tab: the statement, laid out.
#pragma once

#include "wizard/wizard.h"

namespace tessaria::wizard {

/// Lives as long as the wizard.
class StatementTab {
 public:
  explicit StatementTab(Wizard& wizard);
  StatementTab(const StatementTab&) = delete;
  StatementTab& operator=(const StatementTab&) = delete;
};

/// A statement with the searches and the order that the wizard has.
String LaidOut(const Wizard& wizard, const String& statement);

}  // namespace tessaria::wizard
