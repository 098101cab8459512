// Record sets over vectors.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/host/data.h"
#include "tessaria/memory/criteria.h"
#include "tessaria/memory/table.h"

namespace tessaria::memory {

/// Where the rows of a record set come from and go to.
class TESSARIA_MEMORY_API RowSource {
 public:
  RowSource() = default;
  RowSource(const RowSource&) = delete;
  RowSource& operator=(const RowSource&) = delete;
  virtual ~RowSource() = default;

  /// The rows of a statement, and where they come from.
  struct Answer {
    std::vector<Column> Columns;
    std::vector<Table::Stored> Rows;
    TablePtr Origin;                 ///< where edits go; null when the rows cannot be written
    std::vector<std::size_t> Key{};  ///< columns by which a row is found; empty when there is none
  };
  /// Runs the statement, again for a requery.
  virtual Answer Run() = 0;
  /// Runs `change`, which modifies the table. Raises an error before that when nothing can be
  /// written now, and error -2147217663 when a test makes its answer get lost.
  virtual void Write(const std::function<void()>& change) = 0;
  virtual bool InTransaction() const = 0;
  /// How many transactions have begun.
  virtual Long Transactions() const = 0;
};

/// Rows in memory, with the contract of a record set.
class TESSARIA_MEMORY_API Recordset final : public host::Recordset,
                                            public host::RowRecovery,
                                            public std::enable_shared_from_this<Recordset> {
 public:
  /// Runs the source. Rows without columns give a closed record set.
  static std::shared_ptr<Recordset> Open(std::unique_ptr<RowSource> rows, String source);
  ~Recordset() override;

  Long State() const override { return open_ ? host::state::Open : host::state::Closed; }
  bool Bof() const override;
  bool Eof() const override;
  host::Fields& Fields() override;
  Long RecordCount() override;
  Long AbsolutePosition() const override;

  void MoveFirst() override;
  void MoveLast() override;
  void MoveNext() override;
  void MovePrevious() override;
  void AbsolutePosition(Long row) override;
  void Find(const String& criteria) override;
  void Sort(const String& order) override;
  String Sort() const override { return order_; }

  host::EditMode EditMode() const override;
  bool IsInDoubt() const override;
  void AddNew() override;
  void Update() override;
  void CancelUpdate() override;
  void Delete() override;
  void Requery() override;
  void Close() override;
  Long RowsRead() const override;
  bool Complete() const override { return true; }
  bool FetchMore(Long) override { return false; }
  Variant ValueAt(Long row, Long ordinal) const override;
  String Source() const override { return source_; }
  host::RowRecovery* Recovery() override { return origin_ ? this : nullptr; }

  // RowRecovery
  Variant Former(Long ordinal) const override;
  void TakeBack(bool mayBeStored) override;
  bool FindOut() override;
  host::StoredRowPtr ReadStored() override;
  void Rebase(const host::StoredRowPtr& stored) override;

  // --- What its fields and its connection ask ----------------------------------------------------
  /// Closes without a check: the connection is gone.
  void Drop();
  /// Error 3704 when closed.
  const std::vector<Column>& Columns() const;
  /// The value in the current row, by column from 0, the pending edit included.
  Variant Value(std::size_t column) const;
  void Value(std::size_t column, const Variant& value);

 private:
  class FieldList;
  // The write to the current row whose answer was lost.
  enum class Doubt { None, Edit, Deletion };

  // What a transaction has written of the current row, until the record set moves.
  struct Written {
    Long Transaction;
    host::EditMode Mode;
    std::ptrdiff_t Position;  ///< before a new row was added
    Table::Stored Before;     ///< of a new row nothing
    Row Edit;
  };

  Recordset(std::unique_ptr<RowSource> rows, String source);
  void Load();
  void RequireOpen() const;
  /// Error 3021 without a current row.
  void RequireRow() const;
  void RequireUpdatable() const;
  bool IsOnRow() const;
  /// Before a move: writes the pending edit.
  void Settle();
  void Write(Doubt doubt, const std::function<void()>& change);
  /// Finds out whether the edit in doubt was stored.
  bool SettleDoubt();
  void NoteWritten(Written written);
  Table::Stored& StoredRowInHand();
  const Table::Stored* FindInserted() const;
  void DropEdit();
  void ShowNewRow(Table::Stored row);
  void ApplyOrder();
  std::ptrdiff_t Count() const { return static_cast<std::ptrdiff_t>(rows_.size()); }
  const Row& CurrentCells() const;

  std::unique_ptr<RowSource> rowSource_;
  String source_;
  bool open_ = false;
  std::vector<Column> columns_;
  std::vector<Table::Stored> rows_;  ///< as ordered; the numbers keep the statement's order
  TablePtr origin_;
  String order_;
  std::ptrdiff_t position_ = 0;  ///< -1 at BOF, the count at EOF
  bool onDeleted_ = false;       ///< the row before `position_` was deleted under the cursor
  host::EditMode editMode_ = host::EditMode::None;
  Row edit_;
  Doubt doubt_ = Doubt::None;
  Row sent_;  ///< the edit in doubt as it was sent
  std::optional<Written> written_;
  std::vector<std::size_t> key_;  ///< columns by which a new row is found
  std::unique_ptr<FieldList> fields_;
};

}  // namespace tessaria::memory
