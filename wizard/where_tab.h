// The wizard's sixth tab: the fields that are compared with controls of the form.
#pragma once

#include "wizard/wizard.h"

namespace tessaria::wizard {

/// Lives as long as the wizard. The sub-items of a row of `lst6CmpSel` are the comparison, the
/// control and the data type.
class WhereTab {
 public:
  explicit WhereTab(Wizard& wizard);
  WhereTab(const WhereTab&) = delete;
  WhereTab& operator=(const WhereTab&) = delete;

 private:
  void AddField();
  void RemoveField();
  void ShowSelected();
  void Store(StringView combo, Long subItem);
  host::DialogListView& Searched() const { return wizard_.List(u"lst6CmpSel"); }

  Wizard& wizard_;
};

}  // namespace tessaria::wizard
