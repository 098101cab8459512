#include "hosts/qt/items/item_model.h"

#include <algorithm>

#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/format.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/variants.h"

namespace tessaria::qt {
namespace {

constexpr char16_t kAmount[] = u"#,##0.00";

double asNumber(const Variant& value) {
  return value.IsNull() || !IsNumeric(value) ? 0 : CDbl(value);
}

}  // namespace

QVariant ItemRow::value(QAnyStringView column) const {
  return toQVariant(model_.value(row_, model_.require(column)));
}

double ItemRow::number(QAnyStringView column) const {
  return asNumber(model_.value(row_, model_.require(column)));
}

QString ItemRow::text(QAnyStringView column) const {
  return model_.text(row_, model_.require(column));
}

void ItemModel::setSettings(const ItemSettings& settings) {
  beginResetModel();
  settings_ = settings;
  endResetModel();
}

int ItemModel::find(QAnyStringView name) const {
  const auto& columns = settings_.columns;
  const auto found = std::find_if(columns.begin(), columns.end(), [&](const ItemColumn& column) {
    return QAnyStringView::compare(QStringView(column.field.name), name, Qt::CaseInsensitive) == 0;
  });
  return found == columns.end() ? -1 : int(found - columns.begin());
}

int ItemModel::require(QAnyStringView name) const {
  const int column = find(name);
  if (column >= 0) return column;
  throw HostError(errors::InvalidArgument,
                  fromQt(QStringLiteral("A grade não tem a coluna \"%1\".").arg(name.toString())));
}

// --- Values

Variant ItemModel::computed(int row, int column) const {
  try {
    return toVariant(this->column(column).compute(ItemRow(*this, row)));
  } catch (...) {
    return Variant::Null();
  }
}

Variant ItemModel::value(int row, int column) const {
  if (this->column(column).compute) return row < items() ? computed(row, column) : Variant::Null();
  return row < items() ? items_[std::size_t(row)].values[std::size_t(column)]
                       : this->column(column).initial;
}

QString ItemModel::shown(int column, const Variant& value) const {
  const ItemColumn& c = this->column(column);
  if (!c.compute) return textOf ? textOf(column, value) : QString();
  if (value.IsNull()) return {};
  try {
    return toQt(Format(value, c.format.empty() ? kAmount : c.format));
  } catch (const HostError&) {
    return toQt(CStr(value));
  }
}

QString ItemModel::text(int row, int column) const { return shown(column, value(row, column)); }

std::vector<Variant> ItemModel::blank() const {
  std::vector<Variant> values;
  for (const ItemColumn& column : settings_.columns)
    values.push_back(column.initial.IsEmpty() ? Variant::Null() : column.initial);
  return values;
}

void ItemModel::setValue(int row, int column, const Variant& value) {
  if (row == items()) append(blank());
  items_[std::size_t(row)].values[std::size_t(column)] = value;
  emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

void ItemModel::append(std::vector<Variant> values) {
  // The blank row becomes the item, and another blank one comes after it.
  beginInsertRows({}, items() + 1, items() + 1);
  items_.push_back({{}, std::move(values)});
  endInsertRows();
  emit dataChanged(index(items() - 1, 0), index(items() - 1, columnCount() - 1));
  emit headerDataChanged(Qt::Vertical, items() - 1, items());
}

void ItemModel::remove(int row) {
  beginRemoveRows({}, row, row);
  items_.erase(items_.begin() + row);
  endRemoveRows();
  emit headerDataChanged(Qt::Vertical, row, items());
}

/// By what is stored of them: what the operator sees is the same then.
bool ItemModel::differs(const std::vector<Variant>& a, const std::vector<Variant>& b) const {
  for (int c = 0; c < columnCount(); ++c) {
    if (column(c).compute || column(c).field.dataField.empty()) continue;
    const auto i = std::size_t(c);
    if (!isStoredAlike(a[i], b[i]) && shown(c, a[i]) != shown(c, b[i])) return true;
  }
  return false;
}

bool ItemModel::isBlank(int row) const {
  return row >= items() || !differs(items_[std::size_t(row)].values, blank());
}

// --- Storage

void ItemModel::load(std::vector<StoredItem> items) {
  beginResetModel();
  loaded_ = std::move(items);
  items_.clear();
  for (const StoredItem& item : loaded_) items_.push_back({item, item.values});
  endResetModel();
}

/// A value that is shown as before is the one that was read.
std::vector<ItemToStore> ItemModel::toStore() const {
  std::vector<ItemToStore> items = items_;
  for (ItemToStore& item : items) {
    if (!item.former) continue;
    for (int c = 0; c < columnCount(); ++c) {
      const auto i = std::size_t(c);
      if (shown(c, item.values[i]) == shown(c, item.former->values[i]))
        item.values[i] = item.former->values[i];
    }
  }
  return items;
}

void ItemModel::accept(std::vector<StoredItem> items) {
  loaded_ = std::move(items);
  for (std::size_t i = 0; i < items_.size(); ++i) items_[i].former = loaded_[i];
}

bool ItemModel::isChanged(int row) const {
  if (row >= items()) return false;
  const ItemToStore& item = items_[std::size_t(row)];
  return !item.former || differs(item.values, item.former->values);
}

bool ItemModel::isChanged() const {
  if (items_.size() != loaded_.size()) return true;
  for (int row = 0; row < items(); ++row)
    if (isChanged(row)) return true;
  return false;
}

double ItemModel::total(int column) const {
  double sum = 0;
  for (int row = 0; row < items(); ++row) sum += asNumber(value(row, column));
  return sum;
}

// --- Qt's model

int ItemModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() || settings_.columns.empty() ? 0 : items() + 1;
}

int ItemModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : int(settings_.columns.size());
}

QString ItemModel::caption(int column) const {
  const ItemColumn& c = this->column(column);
  return toQt(c.caption.empty() ? c.field.name : c.caption);
}

QVariant ItemModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  switch (role) {
    case Qt::DisplayRole:
      return index.row() < items() ? text(index.row(), index.column()) : QString();
    case Qt::EditRole:
      return toQVariant(value(index.row(), index.column()));
    case Qt::TextAlignmentRole:
      return QVariant::fromValue((alignmentOf ? alignmentOf(index.column()) : Qt::AlignLeft) |
                                 Qt::AlignVCenter);
    case Qt::AccessibleTextRole:
      return QStringLiteral("%1 %2: %3")
          .arg(headerData(index.row(), Qt::Vertical, Qt::AccessibleTextRole).toString(),
               caption(index.column()), text(index.row(), index.column()));
    default:
      return {};
  }
}

/// The number of a row counts what is on the screen, not what is stored.
QVariant ItemModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation == Qt::Horizontal) {
    if (role == Qt::TextAlignmentRole && alignmentOf)
      return QVariant::fromValue((alignmentOf(section) & Qt::AlignHorizontal_Mask) |
                                 Qt::AlignVCenter);
    return role == Qt::DisplayRole ? QVariant(caption(section)) : QVariant();
  }
  const bool isNew = section >= items();
  if (role == Qt::AccessibleTextRole)
    return isNew ? QStringLiteral("Item novo") : QStringLiteral("Item %1").arg(section + 1);
  if (role == Qt::DisplayRole) return isNew ? QStringLiteral("*") : QString::number(section + 1);
  return {};
}

}  // namespace tessaria::qt
