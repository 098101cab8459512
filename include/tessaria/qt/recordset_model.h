// A record set as a Qt model, for views, mappers and everything else that works with models.
#pragma once

#include <QAnyStringView>
#include <QIdentityProxyModel>
#include <QVariantMap>
#include <memory>

#include "tessaria/export.h"
#include "tessaria/host/data.h"

namespace tessaria::qt {

/// The rows of a record set, a column for each of its fields. Rows are read as a view comes to
/// them; those of a large result stay at the server until they are shown.
///
/// `Qt::DisplayRole` is the text in the Portuguese form, `Qt::EditRole` the value as
/// `toQVariant` gives it. Numbers are aligned to the right.
///
/// While `isEditable()`, cells can be changed when their columns can. A change is the pending edit
/// of its row: it is written by `submit()`, which delegates and mappers call, and before another
/// row is changed; `revert()` drops it. The record set's current row moves with the edits, so give
/// a model that is edited a record set of its own, and not that of a data control.
///
/// What the database refuses leaves the edit as it was typed: the call returns false, and `failed`
/// tells why, or a box when nothing is connected to it.
class TESSARIA_QT_API RecordsetModel final : public QIdentityProxyModel {
  Q_OBJECT
  Q_PROPERTY(bool editable READ isEditable WRITE setEditable)

 public:
  explicit RecordsetModel(QObject* parent = nullptr);
  /// Shows these rows.
  explicit RecordsetModel(host::RecordsetPtr rows, QObject* parent = nullptr);
  ~RecordsetModel() override;

  /// The rows that are shown; null for none.
  host::RecordsetPtr rows() const;
  /// Shows other rows, or none for a null record set. An edit that is pending stays with its record
  /// set. Captions and formats begin anew.
  void setRows(host::RecordsetPtr rows);
  /// The column of a field, without regard to case; -1 when there is none.
  int columnOf(QAnyStringView field) const;
  /// The heading of a column; at first the name of its field. Error 9 for a column that there is
  /// not.
  void setCaption(int column, const QString& caption);
  /// A pattern of `Format` for the texts of a column: "dd/mm/yyyy", "#,##0.00". Error as above.
  void setFormat(int column, const QString& pattern);

  /// Whether cells can be changed; false at first.
  bool isEditable() const;
  void setEditable(bool editable);
  /// Writes a new row at the end, by the names of its fields. False when it is refused; nothing of
  /// it is kept then.
  bool addRow(const QVariantMap& values);
  /// The row with the pending edit, from 0; -1 for none.
  int editedRow() const;

  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  /// Orders the rows by a column, after the pending edit is written.
  void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;
  /// Deletes rows in the database, from the last to the first. False when one is refused; those
  /// behind it are deleted then.
  bool removeRows(int row, int count, const QModelIndex& parent = {}) override;

 public slots:  // NOLINT
  /// Writes the pending edit. True without one.
  bool submit() override;
  /// Drops the pending edit.
  void revert() override;

 signals:
  /// The database has refused something, or rows could not be read.
  void failed(int number, const QString& description);

 private:
  struct Parts;

  template <class Body>
  bool attempt(Body&& body);
  bool goToRow(int row);
  void readMissing();
  void requireColumn(int column) const;

  std::unique_ptr<Parts> parts_;
};

}  // namespace tessaria::qt
