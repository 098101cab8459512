// The rows of a record set as a Qt model.
#pragma once

#include <QAbstractTableModel>
#include <exception>
#include <functional>
#include <vector>

#include "tessaria/host/data.h"

namespace tessaria::qt {

/// Shows the rows that were read; more are read when the view reaches their end. A failed read
/// ends that: it is reported once, and the rows count as incomplete from then on.
class RecordModel final : public QAbstractTableModel {
  Q_OBJECT

 public:
  using QAbstractTableModel::QAbstractTableModel;

  const host::RecordsetPtr& rows() const { return rows_; }
  /// A null record set empties the model. Columns take the names of the fields.
  void setRows(host::RecordsetPtr rows);
  /// Updates the model after rows were read or reordered.
  void refresh();
  /// Reads the rows from one to another, as far as there are any, which the view is about to show.
  /// False when that is not possible now. A failure goes to the listener and ends the reading.
  bool hold(int first, int last);
  /// Notes a read that failed outside this model.
  void noteFailure();
  /// Whether rows are missing that will not be read any more.
  bool hasFailed() const { return failed_; }

  QString caption(int column) const { return columns_[std::size_t(column)].caption; }
  void setCaption(int column, const QString& caption);
  const String& format(int column) const { return columns_[std::size_t(column)].format; }
  void setFormat(int column, const String& pattern);
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
    Long type;
    Long size;
  };
  bool isOpen() const;
  std::exception_ptr readOn(int rows);
  QString text(const QModelIndex& index) const;
  QVariant alignment(int column) const;

  host::RecordsetPtr rows_;
  std::vector<Column> columns_;
  int shown_ = 0;  ///< rows that the view knows of
  bool failed_ = false;
  bool paused_ = false;  ///< missing rows are not asked for before the next movement
};

}  // namespace tessaria::qt
