// The record set over a driver.
#pragma once

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "hosts/sql/rows/find_criterion.h"
#include "hosts/sql/rows/row_writer.h"
#include "hosts/sql/rows/shown_rows.h"
#include "hosts/sql/rows/sort_order.h"
#include "tessaria/host/data.h"

namespace tessaria::sql {

class SqlRecordset;

/// One column. Pointers to it keep the record set alive; after that is closed, every member raises
/// 3704.
class SqlField final : public host::Field {
 public:
  SqlField(SqlRecordset& recordset, std::size_t column) : recordset_(recordset), column_(column) {}

  String Name() const override;
  Long Type() const override;
  Long Attributes() const override;
  Long DefinedSize() const override;
  Long Precision() const override;
  Long NumericScale() const override;
  Variant Value() const override;
  void Value(const Variant& value) override;

 private:
  const Column& Info() const;

  SqlRecordset& recordset_;
  std::size_t column_;
};

/// The columns of a record set.
class SqlFields final : public host::Fields {
 public:
  explicit SqlFields(SqlRecordset& recordset) : recordset_(recordset) {}

  Long Count() const override;
  host::FieldPtr Item(Long ordinal) const override;
  host::FieldPtr Item(const String& name) const override;

  /// Creates fields for columns that have none yet; a field lives as long as the record set.
  void Provide(std::size_t columns);

 private:
  host::FieldPtr Pointer(std::size_t column) const;

  SqlRecordset& recordset_;
  mutable std::deque<SqlField> fields_;
};

/// Created with `std::make_shared`.
class SqlRecordset final : public host::Recordset,
                           public host::RowRecovery,
                           public std::enable_shared_from_this<SqlRecordset> {
 public:
  /// Runs the statement. `source` is what the application asked for.
  SqlRecordset(SessionPtr session, StatementFacts facts, String source, host::LockType lock);
  /// Rows that need no statement: `open` creates them, again at each requery.
  SqlRecordset(SessionPtr session, std::function<std::shared_ptr<RowTable>()> open);
  /// A closed record set, as a statement without rows returns it.
  SqlRecordset(SessionPtr session, String source);
  ~SqlRecordset() override;

  Long State() const override;
  bool Bof() const override;
  bool Eof() const override;
  host::Fields& Fields() override { return fields_; }
  Long RecordCount() override;
  Long AbsolutePosition() const override;

  void MoveFirst() override;
  void MoveLast() override;
  void MoveNext() override;
  void MovePrevious() override;
  void AbsolutePosition(Long row) override;
  void Find(const String& criteria) override;
  void Sort(const String& order) override;
  String Sort() const override { return sort_; }

  host::EditMode EditMode() const override;
  bool IsInDoubt() const override;
  void AddNew() override;
  void Update() override;
  void CancelUpdate() override;
  void Delete() override;
  void Requery() override;
  void Close() override;
  Long RowsRead() const override;
  bool Complete() const override;
  bool FetchMore(Long rows) override;
  Variant ValueAt(Long row, Long ordinal) const override;
  bool Holds(Long row) const override;
  bool Hold(Long first, Long last) override;
  Long PositionIfKnown() const override;
  String Source() const override { return source_; }
  host::RowRecovery* Recovery() override { return writer_ ? this : nullptr; }

  // RowRecovery
  Variant Former(Long ordinal) const override;
  void TakeBack(bool mayBeStored) override;
  bool FindOut() override;
  host::StoredRowPtr ReadStored() override;
  void Rebase(const host::StoredRowPtr& stored) override;

  /// For the fields. All of them raise 3704 when closed.
  const Columns& ColumnInfo() const;
  bool IsWritable(std::size_t column) const;
  bool TakesBack(std::size_t column, const Variant& value) const;
  Variant FieldValue(std::size_t column) const;
  void FieldValue(std::size_t column, const Variant& value);

 private:
  // Which write to the current row has lost its answer.
  enum class Doubt { None, Edit, Deletion };

  // What the program's transaction has written of the current row, until it moves.
  struct Written {
    std::uint64_t transaction;
    host::EditMode edit;
    RowId row;
    std::int64_t position;  // before a new row was added
    ColumnStore before;     // empty for a new row
    Changes changes;
  };

  // The row number of the position before the first row.
  static constexpr std::int64_t kBof = -1;

  // While the server is waited for, something that runs meanwhile may let go of the record set.
  std::shared_ptr<const SqlRecordset> Keep() const { return weak_from_this().lock(); }
  void Run();
  RowTable& Table() const;
  bool HasRow(std::int64_t position) const;
  bool StandsOnRow() const;
  RowId CurrentRow() const { return shown_->At(position_); }
  void Show(std::shared_ptr<RowTable> table);
  bool SortAtServer(const std::vector<SortKey>& keys);
  std::optional<std::size_t> FirstOrderOf(const std::vector<SortKey>& keys) const;
  std::int64_t FirstMatch(const FindCriterion& criterion, std::int64_t position) const;
  std::optional<std::uint32_t> RowsBefore(const FindCriterion& criterion) const;
  std::vector<SortKey> WithOwnOrder(std::vector<SortKey> keys) const;
  void MoveTo(std::int64_t position);
  void RequireUpdatable() const;
  void RequireRow() const;
  template <class Write>
  auto Send(Doubt doubt, Write write);
  void WriteEdit();
  bool SettleDoubt();
  std::size_t ColumnOf(Long ordinal) const;
  ColumnStore CellsOf(RowId row) const;
  void NoteWritten(Written written);
  void BecomeNew();
  void DropEdit();
  void ShowNewRow(ColumnStore values);
  void HideRow(RowId row);

  SessionPtr session_;
  std::function<std::shared_ptr<RowTable>()> open_;  // empty for the rows of a statement
  StatementFacts facts_;
  String source_;
  host::LockType lock_ = host::LockType::ReadOnly;
  SqlFields fields_;
  std::shared_ptr<RowTable> table_;  // null when closed
  std::optional<RowWriter> writer_;  // empty when the rows cannot be written
  std::optional<ShownRows> shown_;   // of the table
  String sort_;
  // The column of the first order at the server, and of the statement's own.
  std::optional<std::size_t> firstOrder_;
  std::int64_t position_ = 0;  // from 0; after the last row at the end
  bool onDeleted_ = false;     // the row at `position_` is the one after the deleted row
  host::EditMode edit_ = host::EditMode::None;
  Changes changes_;
  Doubt doubt_ = Doubt::None;
  Changes sent_;  // the changes of the edit in doubt
  std::optional<Written> written_;
};

}  // namespace tessaria::sql
