// The wizard's fourth tab: the statement is tried, and its columns are set.
#pragma once

#include "wizard/from_text.h"
#include "wizard/wizard.h"

namespace tessaria::wizard {

/// Lives as long as the wizard.
class GridTab {
 public:
  explicit GridTab(Wizard& wizard);
  GridTab(const GridTab&) = delete;
  GridTab& operator=(const GridTab&) = delete;

 private:
  void ConnectColumn();
  void Retrieve();
  bool LacksSelection() const;
  std::vector<FromTable> Tables() const;
  host::RecordsetPtr Try(const String& statement) const;
  void OfferStatement() const;
  void ShowPreview(const host::RecordsetPtr& rows);
  void ListColumns(host::Fields& fields);
  void EnableColumnBoxes();
  bool HasColumns() const { return wizard_.cgrColGrid.Count() > 0; }

  void ChooseColumn(Long position);
  void HeadClick(Long position);
  void ColResize(Long position);
  void CaptionChanged();
  void MaskChanged();
  void WidthLeft();
  void VisibleLeft();
  void ShowColumn(const ColunaGrid& column, const String& width);
  void ListChoices();
  /// The column in the boxes: error 9 when there is none.
  std::shared_ptr<ColunaGrid> Definition() const;
  host::GridColumn& Preview() const;

  Wizard& wizard_;
};

}  // namespace tessaria::wizard
