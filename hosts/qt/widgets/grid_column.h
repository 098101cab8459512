// A column of the grid.
#pragma once

#include "hosts/qt/widgets/grid_pane.h"
#include "tessaria/host/dialog_widgets.h"

namespace tessaria::qt {

class PaneColumn final : public host::GridColumn {
 public:
  PaneColumn(GridPane& pane, int position);

  /// Columns before it have come or gone.
  void moveTo(int position) { position_ = position; }

  String Caption() const override;
  void Caption(const String& text) override;
  /// The operator may have made it wider.
  float Width() const override;
  void Width(float twips) override;
  bool Visible() const override { return visible_; }
  void Visible(bool visible) override;
  String DataField() const override { return pane_.model().field(position_); }
  void DataField(const String& field) override { pane_.model().setField(position_, field); }
  String Format() const override { return pane_.model().format(position_); }
  void Format(const String& pattern) override { pane_.model().setFormat(position_, pattern); }

 private:
  QHeaderView& header() const;
  int pixels() const;
  int wantedPixels() const;
  void makeRoomForCaption();
  void show();

  GridPane& pane_;
  int position_;
  bool isNew_;  ///< no caption has made its width yet, nor has anybody assigned one
  float width_;
  bool visible_ = true;
};

}  // namespace tessaria::qt
