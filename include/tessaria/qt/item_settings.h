// What an item grid shows, and where its items are stored.
#pragma once

#include <QAnyStringView>
#include <QString>
#include <QVariant>
#include <functional>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/field_settings.h"

namespace tessaria::qt {

class ItemModel;

/// The values of one item, by the names of the columns; valid during the call that is given it. A
/// name that no column has raises error 5.
class TESSARIA_QT_API ItemRow {
 public:
  ItemRow(const ItemModel& model, int row) : model_(model), row_(row) {}

  /// The position in the grid, from 0.
  int position() const { return row_; }
  /// As `TsText::value`; of a computed column what its function returns.
  QVariant value(QAnyStringView column) const;
  /// The value as a number; 0 for Null and for a text that is no number.
  double number(QAnyStringView column) const;
  /// What the grid shows.
  QString text(QAnyStringView column) const;

 private:
  const ItemModel& model_;
  int row_;
};

/// A column of an item grid: a field that edits its cells, or a computed value.
struct ItemColumn {
  /// What edits the cells. Its `name` names the column, and the field on the form; `dataField` is
  /// the column of the items' table, and empty when nothing is stored. Its `dataSource` is not
  /// used.
  FieldSettings field;
  String caption = {};      ///< over the column; when empty, the name
  float width = 1440;       ///< twips
  bool isTotalled = false;  ///< whether its sum stands below the grid
  String format = {};       ///< of a computed value and of the total; by default "#,##0.00"
  Variant initial = {};     ///< the value in a new row; nothing by default
  /// Computes the value from the row. Nobody edits the column then, and of `field` only the name is
  /// used. What it throws leaves the cell empty.
  std::function<QVariant(const ItemRow& row)> compute = {};
  /// An SQL expression that reads a column which is not stored. By default the description of a
  /// pair is read from the table of its code's lookup.
  String expression = {};
};

/// Ties the items to the row that they belong to.
struct ItemLink {
  String column;  ///< of the items' table
  String parent;  ///< column of the row's record set that holds the same value
};

/// What an item grid shows, and where it is stored.
struct ItemSettings {
  String table = {};                 ///< in which the items are stored
  std::vector<ItemLink> links = {};  ///< one for each column of the key of the row
  /// The column that tells the items of one row apart, and orders them: a whole number. A new item
  /// gets the number after the greatest one; stored items keep theirs.
  String number = {};
  bool isNumberGenerated = false;        ///< whether the database gives new items their number
  std::vector<ItemColumn> columns = {};  ///< from left to right
};

}  // namespace tessaria::qt
