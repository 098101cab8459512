#include "wizard/statement_tab.h"

#include "services/busy_pointer.h"
#include "wizard/list_rows.h"

namespace tessaria::wizard {

StatementTab::StatementTab(Wizard& wizard) {
  wizard.OnEnter(Tab::SqlPronta) = [&wizard] {
    const BusyPointer busy;
    // Columns that come from a definition have no statement.
    const String statement = wizard.dcWizard ? wizard.dcWizard->Source() : String();
    wizard.Box(u"txt8Sql").Text(LaidOut(wizard, statement));
  };
}

String LaidOut(const Wizard& wizard, const String& statement) {
  const auto searched = RowsOf(wizard.List(u"lst6CmpSel"));
  const auto ordered = RowsOf(wizard.List(u"lst5CmpSel"));
  return mdlObjTxt::MontaSqlPronta(statement, &searched, &ordered);
}

}  // namespace tessaria::wizard
