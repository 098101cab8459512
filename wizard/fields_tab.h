// The wizard's third tab: the select list, and fields put together from several.
#pragma once

#include "wizard/wizard.h"

namespace tessaria::wizard {

/// Lives as long as the wizard. A row of `lst3CmpSel` is what the statement selects, its tag the
/// column's name. A row of `lst3Concatena` is a piece of a new column: a field or a quoted text,
/// checked when it is a number, with its mask in the tag.
class FieldsTab {
 public:
  explicit FieldsTab(Wizard& wizard);
  FieldsTab(const FieldsTab&) = delete;
  FieldsTab& operator=(const FieldsTab&) = delete;

 private:
  void ConnectFields();
  void ConnectPieces();
  void IncludeField();
  void ExcludeField();
  void AddPiece();
  void AddText();
  void ExcludePiece();
  void MaskChanged();
  void CreateColumn();
  bool LacksColumn();
  void AddColumn(const String& text, const String& name);
  String Prefix() const;
  String Pieces() const;
  String PieceText(const host::ListRow& piece) const;
  host::DialogListView& Available() const { return wizard_.List(u"lst3Cmp"); }
  host::DialogListView& Selected() const { return wizard_.List(u"lst3CmpSel"); }
  host::DialogListView& PieceRows() const { return wizard_.List(u"lst3Concatena"); }

  Wizard& wizard_;
};

}  // namespace tessaria::wizard
