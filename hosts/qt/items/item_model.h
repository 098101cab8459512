// The items of a grid in memory, as a Qt model.
#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <vector>

#include "hosts/qt/items/item_storage.h"
#include "tessaria/qt/item_settings.h"

namespace tessaria::qt {

/// The items, and one blank row behind them. A value that is set in the blank row makes an item of
/// it. Positions count from 0; names of columns are those of their fields, without regard to case.
class ItemModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  void setSettings(const ItemSettings& settings);
  const ItemSettings& settings() const { return settings_; }
  const ItemColumn& column(int column) const { return settings_.columns[std::size_t(column)]; }
  /// How a field shows a value; must not throw.
  std::function<QString(int column, const Variant& value)> textOf;
  /// How a column is aligned, by a field; must not throw.
  std::function<Qt::Alignment(int column)> alignmentOf;

  int items() const { return int(items_.size()); }
  /// -1 for a name that no column has.
  int find(QAnyStringView name) const;
  /// Error 5 for a name that no column has.
  int require(QAnyStringView name) const;

  /// Of a computed column what its function returns; Null when that throws.
  Variant value(int row, int column) const;
  QString text(int row, int column) const;
  void setValue(int row, int column, const Variant& value);
  /// One value for each column.
  void append(std::vector<Variant> values);
  void remove(int row);
  /// Values of a new row.
  std::vector<Variant> blank() const;
  /// Whether an item shows nothing but what a new row shows.
  bool isBlank(int row) const;

  /// Takes items that are stored.
  void load(std::vector<StoredItem> items);
  std::vector<ItemToStore> toStore() const;
  const std::vector<StoredItem>& loaded() const { return loaded_; }
  /// The items are stored as told: one for each, in their order.
  void accept(std::vector<StoredItem> items);
  bool isChanged() const;
  /// Whether an item is new, or another one than was read.
  bool isChanged(int row) const;
  /// Whether the item was read or written.
  bool isStored(int row) const { return items_[std::size_t(row)].former.has_value(); }
  double total(int column) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  /// What stands over a column.
  QString caption(int column) const;

 private:
  QString shown(int column, const Variant& value) const;
  Variant computed(int row, int column) const;
  bool differs(const std::vector<Variant>& a, const std::vector<Variant>& b) const;

  ItemSettings settings_;
  std::vector<ItemToStore> items_;
  std::vector<StoredItem> loaded_;
};

}  // namespace tessaria::qt
