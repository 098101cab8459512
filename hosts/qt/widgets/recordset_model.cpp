#include "tessaria/qt/recordset_model.h"

#include <QMetaMethod>
#include <QPointer>
#include <QTimer>
#include <algorithm>

#include "hosts/qt/widgets/record_model.h"
#include "runtime/field_names.h"
#include "tessaria/conversion.h"
#include "tessaria/error.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/variants.h"

namespace tessaria::qt {
namespace {

constexpr int kRetry = 100;  // ms, while the connection runs another statement

}  // namespace

struct RecordsetModel::Parts {
  RecordModel source;
  QTimer missing;
  mutable int firstMissing = -1, lastMissing = -1;  ///< rows that a view has asked for
  bool isEditable = false;

  bool isOpen() const { return source.rows() && source.rows()->State() != host::state::Closed; }
  /// The row with the pending edit, from 0; -1 for none.
  int edited() const {
    if (!isOpen() || source.rows()->EditMode() != host::EditMode::InProgress) return -1;
    return int(source.rows()->PositionIfKnown()) - 1;
  }
  void noteMissing(int row) const {
    firstMissing = firstMissing < 0 ? row : std::min(firstMissing, row);
    lastMissing = std::max(lastMissing, row);
  }
};

RecordsetModel::RecordsetModel(QObject* parent)
    : QIdentityProxyModel(parent), parts_(std::make_unique<Parts>()) {
  Parts& p = *parts_;
  p.missing.setSingleShot(true);
  connect(&p.missing, &QTimer::timeout, this, &RecordsetModel::readMissing);
  p.source.rowsMissing = [this] {
    if (!parts_->missing.isActive()) parts_->missing.start(0);
  };
  p.source.readingFailed = [this](const std::exception_ptr& failure) {
    // Qt is in the middle of its own work.
    QMetaObject::invokeMethod(
        this, [this, failure] { attempt([&] { std::rethrow_exception(failure); }); },
        Qt::QueuedConnection);
  };
  setSourceModel(&p.source);
}

RecordsetModel::RecordsetModel(host::RecordsetPtr rows, QObject* parent) : RecordsetModel(parent) {
  setRows(std::move(rows));
}

RecordsetModel::~RecordsetModel() { setSourceModel(nullptr); }

host::RecordsetPtr RecordsetModel::rows() const { return parts_->source.rows(); }
void RecordsetModel::setRows(host::RecordsetPtr rows) { parts_->source.setRows(std::move(rows)); }

int RecordsetModel::columnOf(QAnyStringView field) const {
  for (int column = 0; column < columnCount(); ++column)
    if (QAnyStringView::compare(QStringView(parts_->source.field(column)), field,
                                Qt::CaseInsensitive) == 0)
      return column;
  return -1;
}

void RecordsetModel::requireColumn(int column) const {
  if (column < 0 || column >= columnCount()) throw HostError(errors::SubscriptOutOfRange);
}

void RecordsetModel::setCaption(int column, const QString& caption) {
  requireColumn(column);
  parts_->source.setCaption(column, caption);
}

void RecordsetModel::setFormat(int column, const QString& pattern) {
  requireColumn(column);
  parts_->source.setFormat(column, fromQt(pattern));
}

bool RecordsetModel::isEditable() const { return parts_->isEditable; }
void RecordsetModel::setEditable(bool editable) { parts_->isEditable = editable; }
int RecordsetModel::editedRow() const { return parts_->edited(); }

/// Whether the body has run to its end.
template <class Body>
bool RecordsetModel::attempt(Body&& body) {
  const boundary::Entry entry;
  try {
    body();
    return true;
  } catch (const HostError& error) {
    if (!isSignalConnected(QMetaMethod::fromSignal(&RecordsetModel::failed)))
      boundary::reportException(nullptr);
    else
      emit failed(int(error.Number()), toQt(error.Description()));
  } catch (...) {
    boundary::reportException(nullptr);
  }
  return false;
}

// --- Reading

QVariant RecordsetModel::data(const QModelIndex& index, int role) const {
  const Parts& p = *parts_;
  if (!index.isValid() || !p.isOpen()) return {};
  host::Recordset& rows = *p.source.rows();
  if (!rows.Holds(index.row() + 1)) p.noteMissing(index.row());
  const bool isShown = role == Qt::DisplayRole, isValue = role == Qt::EditRole;
  try {
    if (index.row() == p.edited() && (isShown || isValue)) {
      const Variant value = rows.Fields().Item(Long(index.column()))->Value();
      return isValue ? toQVariant(value) : p.source.textOf(index.column(), value);
    }
    if (isValue && rows.Holds(index.row() + 1))
      return toQVariant(rows.ValueAt(index.row() + 1, index.column()));
  } catch (const HostError&) {
    return {};  // the row has gone since the view asked for the number of rows
  }
  return QIdentityProxyModel::data(index, isValue ? int(Qt::DisplayRole) : role);
}

/// A view has painted rows that are at the server.
void RecordsetModel::readMissing() {
  Parts& p = *parts_;
  const int first = std::exchange(p.firstMissing, -1), last = std::exchange(p.lastMissing, -1);
  if (first < 0) return;
  const QPointer<RecordsetModel> self(this);
  const bool areHeld = p.source.hold(first, last);
  if (!self) return;
  const int end = std::min(last, rowCount() - 1);
  if (areHeld && first <= end)
    return emit dataChanged(index(first, 0), index(end, columnCount() - 1));
  p.noteMissing(first);
  p.noteMissing(last);
  p.missing.start(kRetry);
}

Qt::ItemFlags RecordsetModel::flags(const QModelIndex& index) const {
  const Parts& p = *parts_;
  Qt::ItemFlags flags = QIdentityProxyModel::flags(index);
  if (!index.isValid() || !p.isEditable || !p.isOpen()) return flags;
  const auto field = p.source.rows()->Fields().Item(Long(index.column()));
  return flags.setFlag(Qt::ItemIsEditable, (field->Attributes() & host::attribute::Updatable) != 0);
}

// --- Writing

/// Writes the edit of another row first.
bool RecordsetModel::goToRow(int row) {
  if (parts_->edited() == row) return true;
  return submit() && attempt([&] { parts_->source.rows()->AbsolutePosition(row + 1); });
}

bool RecordsetModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  Parts& p = *parts_;
  if (role != Qt::EditRole || !flags(index).testFlag(Qt::ItemIsEditable)) return false;
  const QPersistentModelIndex at(index);
  const QPointer<RecordsetModel> self(this);
  if (!goToRow(index.row()) || !self || !at.isValid()) return false;
  const bool isTaken =
      attempt([&] { p.source.rows()->Fields().Item(Long(at.column()))->Value(toVariant(value)); });
  if (self && isTaken) emit dataChanged(at, at);
  return isTaken;
}

bool RecordsetModel::submit() {
  const int row = parts_->edited();
  if (row < 0) return true;
  const QPointer<RecordsetModel> self(this);
  if (!attempt([this] { parts_->source.rows()->Update(); })) return false;
  if (self) emit dataChanged(index(row, 0), index(row, columnCount() - 1));
  return true;
}

void RecordsetModel::revert() {
  const int row = parts_->edited();
  if (row < 0) return;
  if (attempt([this] { parts_->source.rows()->CancelUpdate(); }))
    emit dataChanged(index(row, 0), index(row, columnCount() - 1));
}

bool RecordsetModel::addRow(const QVariantMap& values) {
  Parts& p = *parts_;
  const QPointer<RecordsetModel> self(this);
  if (!p.isOpen() || !submit() || !self) return false;
  const host::RecordsetPtr rows = p.source.rows();
  const bool isAdded = attempt([&] {
    rows->AddNew();
    try {
      for (auto it = values.begin(); it != values.end(); ++it)
        rows->Fields().Item(fromQt(it.key()))->Value(toVariant(it.value()));
      rows->Update();
    } catch (...) {
      rows->CancelUpdate();
      throw;
    }
  });
  if (self && isAdded) p.source.refresh();
  return isAdded;
}

bool RecordsetModel::removeRows(int row, int count, const QModelIndex& parent) {
  Parts& p = *parts_;
  if (parent.isValid() || row < 0 || count < 1 || row + count > rowCount() || !p.isEditable)
    return false;
  const QPointer<RecordsetModel> self(this);
  for (int i = row + count - 1; i >= row; --i) {
    if (p.edited() == i) revert();
    if (!goToRow(i) || !self) return false;
    const bool isDeleted = attempt([&] {
      host::Recordset& rows = *p.source.rows();
      rows.Delete();
      if (rows.EditMode() == host::EditMode::Delete) rows.MoveNext();
    });
    if (!self) return false;
    if (!isDeleted) return false;
    p.source.refresh();
  }
  return true;
}

void RecordsetModel::sort(int column, Qt::SortOrder order) {
  Parts& p = *parts_;
  if (!p.isOpen() || column >= columnCount()) return;
  const QPointer<RecordsetModel> self(this);
  if (!submit() || !self) return;
  const String text = column < 0 ? String()
                                 : FieldNameText(p.source.field(column)) +
                                       (order == Qt::AscendingOrder ? u" ASC" : u" DESC");
  if (attempt([&] { p.source.rows()->Sort(text); }) && self) p.source.refresh();
}

}  // namespace tessaria::qt
