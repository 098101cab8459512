#include "hosts/qt/widgets/record_model.h"

#include <QGuiApplication>
#include <QLocale>
#include <QPointer>
#include <algorithm>

#include "lookup/field_types.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/format.h"
#include "tessaria/qt/text.h"
#include "tessaria/text.h"

namespace tessaria::qt {
namespace {

/// The number of rows to read at a time: half as many as there are, so that a few steps reach the
/// end of a long table.
constexpr int kLeastRows = 1000;

constexpr int kLeastCharacters = 6;
constexpr int kMostCharacters = 40;
constexpr int kNumberCharacters = 12;
constexpr int kDateCharacters = 11;

bool wasGivenUp(const std::exception_ptr& failure) {
  try {
    std::rethrow_exception(failure);
  } catch (const HostError& error) {
    return error.Number() == errors::Cancelled;
  } catch (...) {
    return false;
  }
}

bool isDate(Long type) {
  using namespace host;
  return type == type::Date || type == type::DBDate || type == type::DBTimeStamp;
}

}  // namespace

bool RecordModel::isOpen() const { return rows_ && rows_->State() != host::state::Closed; }

void RecordModel::setRows(host::RecordsetPtr rows) {
  beginResetModel();
  rows_ = std::move(rows);
  columns_.clear();
  shown_ = 0;
  failed_ = lacks_ = paused_ = false;
  if (isOpen()) {
    for (Long i = 0; i < rows_->Fields().Count(); ++i) {
      const auto field = rows_->Fields().Item(i);
      columns_.push_back(
          {toQt(field->Name()), {}, field->Name(), i, field->Type(), field->DefinedSize()});
    }
    shown_ = rows_->RowsRead();
  }
  endResetModel();
}

void RecordModel::refresh() {
  const int now = isOpen() ? rows_->RowsRead() : 0;
  if (now > shown_) {
    beginInsertRows({}, shown_, now - 1);
    shown_ = now;
    endInsertRows();
  } else if (now < shown_) {
    beginRemoveRows({}, now, shown_ - 1);
    shown_ = now;
    endRemoveRows();
  }
  if (shown_ > 0) emit dataChanged(index(0, 0), index(shown_ - 1, columnCount() - 1));
}

void RecordModel::insertColumn(int column) {
  beginInsertColumns({}, column, column);
  columns_.insert(columns_.begin() + column, Column());
  endInsertColumns();
}

void RecordModel::removeColumn(int column) {
  beginRemoveColumns({}, column, column);
  columns_.erase(columns_.begin() + column);
  endRemoveColumns();
}

/// Several fields may have one name: it is then the first of them.
void RecordModel::setField(int column, const String& name) {
  Column& c = columns_[std::size_t(column)];
  c.field = name;
  c.number = -1;
  for (Long i = 0; c.number < 0 && isOpen() && i < rows_->Fields().Count(); ++i) {
    const auto field = rows_->Fields().Item(i);
    if (!EqualNoCase(field->Name(), name)) continue;
    c.number = i;
    c.type = field->Type();
    c.size = field->DefinedSize();
  }
  columnChanged(column);
}

void RecordModel::columnChanged(int column) {
  if (shown_ > 0) emit dataChanged(index(0, column), index(shown_ - 1, column));
}

void RecordModel::setCaption(int column, const QString& caption) {
  columns_[std::size_t(column)].caption = caption;
  emit headerDataChanged(Qt::Horizontal, column, column);
}

void RecordModel::setFormat(int column, const String& pattern) {
  columns_[std::size_t(column)].format = pattern;
  columnChanged(column);
}

void RecordModel::setDimmed(int column, bool dimmed) {
  columns_[std::size_t(column)].isDimmed = dimmed;
  emit headerDataChanged(Qt::Horizontal, column, column);
  columnChanged(column);
}

int RecordModel::charactersOf(int column) const {
  const Column& c = columns_[std::size_t(column)];
  const int caption = std::max(kLeastCharacters, int(c.caption.size()) + 2);
  if (c.number < 0) return caption;
  if (isDate(c.type)) return std::max(caption, kDateCharacters);
  if (IsNumericFieldType(c.type)) return std::max(caption, kNumberCharacters);
  const int size = c.size > 0 ? int(c.size) : kMostCharacters;
  return std::max(caption, std::min(size, kMostCharacters));
}

int RecordModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : shown_; }

int RecordModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : int(columns_.size());
}

QString RecordModel::text(const QModelIndex& index) const {
  const Long field = columns_[std::size_t(index.column())].number;
  return field < 0 ? QString() : textOf(index.column(), rows_->ValueAt(index.row() + 1, field));
}

QString RecordModel::textOf(int column, const Variant& value) const {
  try {
    return toQt(Format(value, format(column)));
  } catch (const HostError&) {
    return toQt(CStr(value));
  }
}

QVariant RecordModel::alignment(int column) const {
  const Column& c = columns_[std::size_t(column)];
  const bool number = c.number >= 0 && IsNumericFieldType(c.type);
  return QVariant::fromValue((number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

/// Nothing for the view's own colour.
QVariant RecordModel::colour(int column, QPalette::ColorRole role) const {
  if (!columns_[std::size_t(column)].isDimmed) return {};
  return QGuiApplication::palette().brush(QPalette::Disabled, role);
}

QVariant RecordModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || !isOpen()) return {};
  if (role == Qt::TextAlignmentRole) return alignment(index.column());
  if (role == Qt::ForegroundRole) return colour(index.column(), QPalette::Text);
  if (role != Qt::DisplayRole) return {};
  try {
    if (rows_->Holds(index.row() + 1)) return text(index);
    const bool canCome = !paused_ && index.row() < rows_->RowsRead();
    if (rowsMissing && canCome) rowsMissing();
    return {};
  } catch (const HostError&) {
    return {};  // the row has gone since the view asked for the number of rows
  }
}

QVariant RecordModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section >= columnCount()) return {};
  if (role == Qt::TextAlignmentRole) return alignment(section);
  if (role == Qt::ForegroundRole) return colour(section, QPalette::ButtonText);
  if (role == Qt::AccessibleTextRole && columns_[std::size_t(section)].isDimmed)
    return caption(section) + QStringLiteral(" (oculta)");
  return role == Qt::DisplayRole ? QVariant(caption(section)) : QVariant();
}

bool RecordModel::canFetchMore(const QModelIndex& parent) const {
  return !parent.isValid() && !failed_ && isOpen() && !rows_->Complete();
}

/// The failure, if there was one.
std::exception_ptr RecordModel::readOn(int rows) {
  std::exception_ptr failure;
  try {
    rows_->FetchMore(rows);
  } catch (...) {
    failure = std::current_exception();
  }
  failed_ = failure != nullptr;
  refresh();
  return failure;
}

/// Qt calls this during its own work: a failure is only kept, for the listener.
void RecordModel::fetchMore(const QModelIndex& parent) {
  if (!canFetchMore(parent)) return;
  const auto failure = readOn(std::max(kLeastRows, shown_ / 2));
  if (failure && readingFailed) readingFailed(failure);
}

bool RecordModel::hold(int first, int last) {
  if (!isOpen()) return true;
  paused_ = false;
  const QPointer<RecordModel> self(this);  // what runs meanwhile may close the window
  const auto rows = rows_;
  const bool areMissing = !holdsAll(first + 1, last + 1);
  try {
    const bool areHeld = rows->Hold(first + 1, last + 1);
    if (self && rows == rows_ && areHeld && areMissing) lacks_ = false;
    return areHeld;
  } catch (...) {
    if (!self || rows != rows_) return true;
    const auto failure = std::current_exception();
    const bool isKnown = lacks_ && !wasGivenUp(failure);
    lacks_ = lacks_ || !wasGivenUp(failure);
    paused_ = true;
    if (readingFailed && !isKnown) readingFailed(failure);
    return true;
  }
}

// Numbers from 1; those that there are not are not looked at.
bool RecordModel::holdsAll(int first, int last) const {
  int row = std::max(first, 1);
  const int end = std::min(last, shown_);
  while (row <= end && rows_->Holds(row)) ++row;
  return row > end;
}

// Of rows at the server, those before the failure were not all read either.
QString RecordModel::warning() const {
  if (!failed_ && !lacks_) return {};
  if (lacks_ || !holdsAll(1, shown_))
    return QStringLiteral("Lista incompleta: alguns registros não puderam ser lidos.");
  return QStringLiteral("Lista incompleta: a leitura parou depois de %1 registros.")
      .arg(QLocale(QLocale::Portuguese, QLocale::Brazil).toString(shown_));
}

/// A record set that already failed to read reports it at once.
void RecordModel::noteFailure() {
  if (!paused_ && canFetchMore({})) readOn(1);
}

}  // namespace tessaria::qt
