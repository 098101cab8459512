// The wizard's seventh tab: the key, the sibling and the fields that go back to the application.
#pragma once

#include "wizard/wizard.h"

namespace tessaria::wizard {

/// Lives as long as the wizard. A row of `lst7Cmp` is a field's bare name, its tag the name that
/// statements use.
class ReturnTab {
 public:
  explicit ReturnTab(Wizard& wizard);
  ReturnTab(const ReturnTab&) = delete;
  ReturnTab& operator=(const ReturnTab&) = delete;

 private:
  void ConnectReturned();
  void ListFields();
  void Forget(StringView box);
  void Rename(StringView box);
  String StatementName(Long column) const {
    return StatementName(column, wizard_.AcceptsAliases());
  }
  String StatementName(Long column, bool acceptsAliases) const;
  bool KnowsNames() const;
  bool IsNamed(const String& text, const host::ListRow& field) const;
  void TakeName(StringView box);
  void AddReturned();
  void RemoveReturned();
  host::DialogListView& Fields() const { return wizard_.List(u"lst7Cmp"); }
  host::DialogListView& Returned() const { return wizard_.List(u"lst7CmpRet"); }

  Wizard& wizard_;
};

}  // namespace tessaria::wizard
