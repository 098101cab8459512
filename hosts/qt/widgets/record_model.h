// The rows of a record set as a Qt model.
#pragma once

#include <QAbstractTableModel>
#include <QPalette>
#include <exception>
#include <functional>
#include <vector>

#include "tessaria/host/data.h"

namespace tessaria::qt {

/// Shows the rows that were read; more are read when the view reaches their end. A failed read
/// ends that: it is reported once, and the rows count as incomplete from then on. Rows that stay at
/// the server are asked for again with the next movement when they could not be had; that too is
/// reported once, until they come.
class RecordModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  const host::RecordsetPtr& rows() const { return rows_; }
  /// A null record set empties the model. Columns take the names of the fields.
  void setRows(host::RecordsetPtr rows);
  /// A column without caption and field, before that one.
  void insertColumn(int column);
  void removeColumn(int column);
  /// Updates the model after rows were read or reordered.
  void refresh();
  /// Reads the rows from one to another, as far as there are any, which the view is about to show.
  /// False when that is not possible now. A failure goes to the listener.
  bool hold(int first, int last);
  /// Notes a read that failed outside this model.
  void noteFailure();
  /// What the operator is told about rows that are missing after a failure; empty when none are.
  QString warning() const;

  QString caption(int column) const { return columns_[std::size_t(column)].caption; }
  void setCaption(int column, const QString& caption);
  const String& format(int column) const { return columns_[std::size_t(column)].format; }
  void setFormat(int column, const String& pattern);
  const String& field(int column) const { return columns_[std::size_t(column)].field; }
  /// A name that is no field shows nothing.
  void setField(int column, const String& name);
  /// A value as the column shows it. One that does not fit the format is shown without it.
  QString textOf(int column, const Variant& value) const;
  /// Whether the column is shown as one that the list hides.
  void setDimmed(int column, bool dimmed);
  /// Characters that a column needs to show its values.
  int charactersOf(int column) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  bool canFetchMore(const QModelIndex& parent) const override;
  void fetchMore(const QModelIndex& parent) override;

  /// Called with a failure during the view's work. Must not throw.
  std::function<void(const std::exception_ptr& failure)> readingFailed;
  /// Called while the view paints rows that are not held. Must not throw.
  std::function<void()> rowsMissing;

 private:
  struct Column {
    QString caption;
    String format;
    String field;
    Long number = -1;  ///< of the field among those of the rows; -1 for none
    Long type = 0;
    Long size = 0;
    bool isDimmed = false;
  };
  bool isOpen() const;
  void columnChanged(int column);
  bool holdsAll(int first, int last) const;
  std::exception_ptr readOn(int rows);
  QString text(const QModelIndex& index) const;
  QVariant alignment(int column) const;
  QVariant colour(int column, QPalette::ColorRole role) const;

  host::RecordsetPtr rows_;
  std::vector<Column> columns_;
  int shown_ = 0;        ///< rows that the view knows of
  bool failed_ = false;  ///< to read on
  bool lacks_ = false;   ///< rows at the server that could not be had
  bool paused_ = false;  ///< missing rows are not asked for before the next movement
};

}  // namespace tessaria::qt
