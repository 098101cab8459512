// The private parts of ItemGrid.
#pragma once

#include <QTableView>

#include "hosts/qt/items/item_line.h"
#include "hosts/qt/items/item_model.h"
#include "hosts/qt/items/item_totals.h"

namespace tessaria::qt {

struct ItemGrid::Parts {
  explicit Parts(ItemGrid* grid)
      : model(grid),
        view(new QTableView(grid)),
        line(new ItemLine(grid)),
        totals(new ItemTotals(grid)) {}

  /// Whether the fields show nothing but what a new row shows.
  bool isLineBlank() const;

  ItemModel model;
  QTableView* view;
  ItemLine* line;
  ItemTotals* totals;
  Check check;
  int current = 0;
  std::vector<Variant> shown;       ///< the fields' values as the row was shown or last taken
  bool isShowing = false;           ///< the fields change because another row is shown
  bool willPlace = false;           ///< the line is placed from the event loop
  bool wasShown = false;            ///< the fields know their form and its connection
  bool isReadable = true;           ///< the last reading did not fail
  std::vector<StoredItem> written;  ///< by the last `write`
};

}  // namespace tessaria::qt
