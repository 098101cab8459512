// Tables of the memory database.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "tessaria/error.h"
#include "tessaria/export.h"
#include "tessaria/host/data.h"

namespace tessaria::memory {

/// Error number of a value that a field's type refuses.
inline constexpr Long kRefusedValue = -2147217887;

/// A column as its record sets report it.
struct TESSARIA_MEMORY_API Column {
  String Name;
  Long Type = host::type::VarWChar;
  Long DefinedSize = 50;
  bool Nullable = true;
  bool Updatable = true;
  Long Precision = 0;
  Long NumericScale = 0;

  /// Bits of `host::attribute`.
  Long Attributes() const;
};

using Row = std::vector<Variant>;

/// The answer to a statement: no columns for a statement that has no result rows.
struct TESSARIA_MEMORY_API Rows {
  std::vector<Column> Columns;
  std::vector<Row> Cells;
};

/// Whether a type number is one of the text types.
TESSARIA_MEMORY_API bool IsTextType(Long type);
/// The value as a column of that type holds it; Null for Null, and for a blank in a column that is
/// not text. Errors: 13 a text that holds no such value, 6 out of range, -2147217887 a text that is
/// too long or Null where it is not allowed.
TESSARIA_MEMORY_API Variant ValueOfType(const Column& column, const Variant& value);
/// Position of a column by name, without regard to case; no value when there is none.
TESSARIA_MEMORY_API std::optional<std::size_t> ColumnByName(const std::vector<Column>& columns,
                                                            StringView name);

/// A table that record sets read and write and that tests change behind their back. Values are
/// brought to their columns' types as they come in, with the errors of `ValueOfType`, and exact
/// numbers to their columns' scale when a precision is given.
class TESSARIA_MEMORY_API Table {
 public:
  /// A row by its lasting number; the version counts its changes.
  struct Stored {
    Long Id = 0;
    Long Version = 0;
    Row Cells;
  };

  explicit Table(std::vector<Column> columns, std::vector<Row> rows = {});

  const std::vector<Column>& Columns() const { return columns_; }
  const std::vector<Stored>& Rows() const { return rows_; }

  // --- For record sets. The faults below can refuse the calls; error -2147217864 for a row that
  // --- was changed or deleted since `version`.
  /// Adds a row and returns it as it is stored.
  Stored Insert(Row cells);
  /// Replaces the cells of a row and returns it as it is stored.
  Stored Update(Long id, Long version, Row cells);
  /// Deletes a row.
  void Delete(Long id, Long version);
  /// Raises the error that `RefuseField` has set for the column.
  void CheckField(const String& column) const;

  /// The row of that number; nullptr when there is none.
  const Stored* Find(Long id) const;

  // --- What another user does; rows count from 0.
  /// Adds a row at the end.
  void Append(Row cells);
  /// Stores a text that the column's type does not accept ("infinity" as a date), unchanged.
  void KeepText(std::size_t row, const String& column, const String& text);
  /// Changes one cell.
  void Change(std::size_t row, const String& column, const Variant& value);
  /// Deletes a row.
  void Remove(std::size_t row);

  /// Sets what a trigger of the database does to a row that a record set writes.
  void ChangeWhatIsWritten(std::function<void(Row&)> trigger) { trigger_ = std::move(trigger); }

  // --- Faults.
  /// Assigning a field of that column raises the error until `AcceptField`.
  void RefuseField(const String& column, HostError error);
  /// Ends what `RefuseField` has set.
  void AcceptField(const String& column);
  /// The next insert, update or deletion raises the error.
  void RefuseNextWrite(HostError error) { refusal_ = std::move(error); }

 private:
  void CheckWrite();
  Variant Storable(std::size_t column, const Variant& value) const;
  Row Typed(Row cells) const;
  void RunTrigger(Row& cells) const;
  std::size_t RequireColumn(const String& name) const;
  void Put(std::size_t row, std::size_t column, Variant value);
  std::vector<Stored>::iterator Unchanged(Long id, Long version);

  std::vector<Column> columns_;
  std::vector<Stored> rows_;
  Long lastId_ = 0;
  std::map<String, HostError> refusedFields_;  ///< by name in lower case
  std::optional<HostError> refusal_;
  std::function<void(Row&)> trigger_;
};

using TablePtr = std::shared_ptr<Table>;

}  // namespace tessaria::memory
