// Database access: connection, record set, fields.
#pragma once

#include <memory>
#include <vector>

#include "tessaria/export.h"
#include "tessaria/variant.h"

namespace tessaria::host {

/// Data types of fields, by the data layer's numbers.
namespace type {
inline constexpr Long SmallInt = 2;
inline constexpr Long Integer = 3;
inline constexpr Long Single = 4;
inline constexpr Long Double = 5;
inline constexpr Long Currency = 6;
inline constexpr Long Date = 7;
inline constexpr Long Boolean = 11;
inline constexpr Long Decimal = 14;
inline constexpr Long TinyInt = 16;
inline constexpr Long Binary = 128;
inline constexpr Long Char = 129;
inline constexpr Long WChar = 130;
inline constexpr Long Numeric = 131;
inline constexpr Long DBDate = 133;
inline constexpr Long DBTime = 134;
inline constexpr Long DBTimeStamp = 135;
inline constexpr Long VarChar = 200;
inline constexpr Long VarWChar = 202;
}  // namespace type

/// Bits of `Field::Attributes`.
namespace attribute {
inline constexpr Long IsNullable = 0x20;  ///< the field accepts Null
inline constexpr Long MayBeNull = 0x40;   ///< the field may read as Null
inline constexpr Long Updatable = 0x04;   ///< the field can be written
}  // namespace attribute

/// `State` of connections and record sets.
namespace state {
inline constexpr Long Closed = 0;
inline constexpr Long Open = 1;
}  // namespace state

/// How a record set may move. The library's record sets are static, whichever is asked for.
enum class CursorType : Long { ForwardOnly = 0, Keyset = 1, Dynamic = 2, Static = 3 };
/// Whether a record set can be written, and when a row is locked.
enum class LockType : Long { ReadOnly = 1, Pessimistic = 2, Optimistic = 3, BatchOptimistic = 4 };
/// The kind of a record set's pending edit.
enum class EditMode : Long { None = 0, InProgress = 1, Add = 2, Delete = 4 };
/// Which rows a call works on: the current one.
enum class Affect : Long { Current = 1 };
/// What `Connection::OpenSchema` describes, by the data layer's numbers.
enum class SchemaKind : Long { Columns = 4, Tables = 20, PrimaryKeys = 28 };

/// The tables that a schema is requested for: names as the schema of the tables spells them, with
/// the same capitals; an empty name stands for all.
struct TESSARIA_CORE_API SchemaRestrictions {
  String Catalog, Schema, Table;
};

/// One column of a record set, seen at its current row. Usable only while its record set is open:
/// afterwards every member raises 3704.
class TESSARIA_CORE_API Field : public Object {
 public:
  virtual String Name() const = 0;
  /// One of the numbers of `type`.
  virtual Long Type() const = 0;
  /// Bits of `attribute`.
  virtual Long Attributes() const = 0;
  /// Size in characters (text) or bytes. Bounded texts only; 0 when there is none or it is unknown.
  virtual Long DefinedSize() const = 0;
  /// Digits in all, for numbers; 0 when unknown.
  virtual Long Precision() const = 0;
  /// Digits after the decimal mark, for numbers.
  virtual Long NumericScale() const = 0;
  /// The value in the current row, the pending edit included. Numbers and dates are returned in the
  /// kind of their type; a stored value that the kind cannot hold is returned as text: an infinite
  /// date or one outside the years 100 to 9999, "NaN", a number with more digits than a Decimal has
  /// (with a comma). Error 3021 at BOF or EOF.
  virtual Variant Value() const = 0;
  /// Starts or continues the edit of the current row. Assigning a value equal to the present one is
  /// not an edit; nor is assigning the text of a stored value that is returned as text. Exact types
  /// compare exactly, a Double with as many digits as distinguish it from its neighbours; Single
  /// and Double types as such, dates to the second. Errors: 3021 no row, 3251 not updatable, 13 or
  /// -2147217887 a value that the type refuses, 5 a text with a character of code 0 or half of a
  /// surrogate pair; the row then keeps its present value.
  virtual void Value(const Variant& value) = 0;
};

using FieldPtr = std::shared_ptr<Field>;

/// The columns of a record set.
class TESSARIA_CORE_API Fields {
 public:
  Fields() = default;
  Fields(const Fields&) = delete;
  Fields& operator=(const Fields&) = delete;
  virtual ~Fields() = default;

  virtual Long Count() const = 0;
  /// By ordinal, from 0. Error 3265 outside the columns.
  virtual FieldPtr Item(Long ordinal) const = 0;
  /// By name, without regard to case. Error 3265 when there is none.
  virtual FieldPtr Item(const String& name) const = 0;
};

class Connection;

/// A row as the database held it at one moment.
class TESSARIA_CORE_API StoredRow : public Object {
 public:
  /// By ordinal, from 0, among the columns of the record set that read it. Error 3265 outside them.
  virtual Variant Value(Long ordinal) const = 0;
};

using StoredRowPtr = std::shared_ptr<const StoredRow>;

/// What a record set knows about its current row beside its values: for a program that saves a row
/// together with other statements, or that has met a row which another user has changed.
class TESSARIA_CORE_API RowRecovery {
 public:
  RowRecovery() = default;
  RowRecovery(const RowRecovery&) = delete;
  RowRecovery& operator=(const RowRecovery&) = delete;
  virtual ~RowRecovery() = default;

  /// The value that the row had before the pending edit; Null in a new row. Errors 3021 without a
  /// row, 3265 outside the columns.
  virtual Variant Former(Long ordinal) const = 0;
  /// Makes the edit that `Update` has written since the transaction began pending again, as it was
  /// typed, because the transaction was undone or its outcome is unknown; `mayBeStored` says the
  /// latter, and the edit is in doubt then. Several updates of the row come back as one edit. To be
  /// called before the current row changes and before another transaction begins. Does nothing when
  /// nothing was written. Asks the server nothing.
  virtual void TakeBack(bool mayBeStored) = 0;
  /// Finds out what became of an edit in doubt. True when it was stored: what was typed since then
  /// is the pending edit, if anything was. False when it was not: it is pending, and no longer in
  /// doubt. Errors: -2147217663 when it cannot be determined, and those of reading.
  virtual bool FindOut() = 0;
  /// Reads the row that is current, by its key, as it is in the database now; null when it no
  /// longer exists. Changes neither the row nor its edit. Error 3021 for a new row.
  virtual StoredRowPtr ReadStored() = 0;
  /// Takes a row of `ReadStored` as the one that was read: `Update` is then refused when that one
  /// has changed, and what the edit has in common with it is no change any more. With null the row
  /// was deleted: its edit becomes that of a new row with all its values, and a row without an edit
  /// leaves the record set as after `Delete`.
  virtual void Rebase(const StoredRowPtr& stored) = 0;
};

/// The rows of a statement as of one moment: static, scrollable. Rows of a large result may stay at
/// the server until they are asked for; a step to one of these reads it, and a failure of that
/// leaves the current row as it was.
///
/// Moving off an edited row writes the edit first; when that is refused the record set stays
/// on the row with the edit intact and the error is raised.
///
/// A write that the database accepted is final: the edit ends even when something fails afterwards,
/// such as reading further rows. When the connection is lost before the answer arrives, it is
/// unknown whether the row was stored. Error -2147217663 says so, the edit stays as it was typed,
/// and nothing is sent again automatically. Once the connection is open again:
/// - Writing again first looks for the row by its key. An edit that was stored is complete; what
///   was typed since then is written on top of it. An edit that was not stored is written now. A
///   deletion is checked in the same way. Values count as stored when the row holds what their
///   columns make of them (a number at the column's scale, a text without padding).
/// - When the row is neither as it was read nor as it was written (another user changed it, or the
///   database changed what it was given), the outcome cannot be determined: writing it raises the
///   same error until the edit is discarded and the rows are read again.
/// - A new row whose key the database generates cannot be found this way. Writing it raises the
///   same error until `Requery` has read the rows again, which keeps the new row as a pending edit:
///   the program looks for it among the rows (`ValueAt`) and then writes or discards it. The same
///   applies when a row with its key exists with other values.
///
/// Inside a transaction the loss rolls everything back, so the write was not stored and the error
/// is the driver's own. The same number reports a `CommitTrans` whose answer is lost.
class TESSARIA_CORE_API Recordset : public Object {
 public:
  /// 0 closed, 1 open (`state`).
  virtual Long State() const = 0;
  virtual bool Bof() const = 0;
  virtual bool Eof() const = 0;
  virtual host::Fields& Fields() = 0;
  /// The total number of rows. Reads to the end, or asks the server.
  virtual Long RecordCount() = 0;
  /// Row number from 1; -1 at BOF (or no rows), -3 at EOF.
  virtual Long AbsolutePosition() const = 0;

  virtual void MoveFirst() = 0;
  virtual void MoveLast() = 0;
  /// Both raise 3021 when already past the end in their direction.
  virtual void MoveNext() = 0;
  virtual void MovePrevious() = 0;
  /// Moves to a row number, from 1. Error 3021 outside the rows.
  virtual void AbsolutePosition(Long row) = 0;
  /// Searches forward from the current row, inclusive, for "field op value" (=, <>, <, >, <=, >=,
  /// like with * or % at either end; an unusual field name goes in brackets, with its "]" doubled).
  /// EOF when nothing matches. Values compare in the field's own type: exact numbers with all
  /// digits, a Double with 15 and a Single with 7 (exactly, if the criterion has more), dates to
  /// the second; a stored value that is returned as text and is not a number matches only "<>". A
  /// number may have a point or a comma for decimals. Error 3001 for a criterion that cannot be
  /// read, or "like" on a field that is not text.
  virtual void Find(const String& criteria) = 0;
  /// Orders the rows: field names (unusual ones as above), each with " ASC" or " DESC", separated
  /// by commas; "" restores the statement's order. Moves to the first row. Null comes before every
  /// value; letters count without regard to case, then accents decide. Rows that are at the server
  /// are sorted there, texts by the collation of their column. Rows that are equal keep the
  /// statement's order, at the server that of its first column. Errors: 3265 for an
  /// unknown field, 3001 for an order that cannot be read.
  virtual void Sort(const String& order) = 0;
  virtual String Sort() const = 0;

  virtual host::EditMode EditMode() const = 0;
  /// Whether the answer to a write of the current row was lost, so that it may have been stored.
  virtual bool IsInDoubt() const = 0;
  /// Starts a new row; its fields read as Null until assigned.
  virtual void AddNew() = 0;
  /// Writes the pending edit. Errors: -2147217864 when another user changed or deleted the
  /// row since it was read (nothing is overwritten), -2147217663 when it may have been stored,
  /// the driver's own for the rest. The edit stays pending after an error.
  virtual void Update() = 0;
  /// Discards the pending edit; a new row disappears. An edit in doubt may be stored nevertheless.
  virtual void CancelUpdate() = 0;
  /// Deletes the current row in the database. Errors -2147217864 and -2147217663 as for Update.
  virtual void Delete() = 0;
  /// Runs the statement again and moves to the first row. Error 3219 when an edit is pending,
  /// except for a new row in doubt, which stays pending.
  virtual void Requery() = 0;
  /// Closes the rows. A pending edit is discarded.
  virtual void Close() = 0;

  // For lists of the rows. None of these moves the current row.
  /// The number of rows that are known so far, in the present order.
  virtual Long RowsRead() const = 0;
  /// Whether `RowsRead` covers all rows. Never true after a read that failed.
  virtual bool Complete() const = 0;
  /// Reads up to `rows` further rows. False when there are no more. The error of a read that failed
  /// is raised, again at each call; rows read before it are kept.
  virtual bool FetchMore(Long rows) = 0;
  /// The value in one of these rows, by row number from 1 and ordinal from 0, without the pending
  /// edit. A row that is at the server is read first, with those around it. Errors: 3021 outside
  /// the rows, 3265 outside the columns, those of reading.
  virtual Variant ValueAt(Long row, Long ordinal) const = 0;
  /// Whether `ValueAt` can show the row without waiting.
  virtual bool Holds(Long row) const { return row >= 1 && row <= RowsRead(); }
  /// Reads these rows, as far as there are any, so that they can be shown without waiting. False
  /// while the connection runs another statement. Raises the errors of reading.
  virtual bool Hold(Long /*first*/, Long /*last*/) { return true; }
  /// As `AbsolutePosition`; 0 while the rows before the current one have not been counted, which a
  /// new row needs.
  virtual Long PositionIfKnown() const { return AbsolutePosition(); }

  /// The statement or table that the rows came from.
  virtual String Source() const = 0;

  /// Null when the rows cannot be written.
  virtual RowRecovery* Recovery() { return nullptr; }
};

using RecordsetPtr = std::shared_ptr<Recordset>;

/// A database connection. Shared with the record sets that it opened.
class TESSARIA_CORE_API Connection : public Object {
 public:
  virtual Long State() const = 0;
  virtual String ConnectionString() const = 0;
  /// In the driver's form. "Pooling=transaction" in it, which the driver does not see, says that a
  /// pooler gives every transaction another session of the server: nothing is set then but for one
  /// transaction, and outside the program's every statement gets one of its own.
  virtual void ConnectionString(const String& text) = 0;
  /// Opens with `ConnectionString`. Errors carry the driver's own text.
  virtual void Open() = 0;
  /// Undoes a transaction in progress and ends every session on the server. Record sets stay
  /// readable: rows of large results that are still at the server are read first, which may take as
  /// long as that, so close what is no longer needed before. Rows that cannot be read then give
  /// their error to whoever asks for them.
  virtual void Close() = 0;
  /// Whether it was lost, so that the next statement of an action asks whether to open it again
  /// (`ThreadState::reconnecting`). It answers for its provider properties then.
  virtual bool CanReconnect() const { return false; }
  /// Whether it was lost since the program opened it, also in a transaction that has not been ended
  /// yet. What opens connections by itself leaves this one to the operator.
  virtual bool IsLost() const { return false; }

  /// Seconds that `Open` waits for a server that does not answer; 15 by default. 0 leaves it to the
  /// driver. Can be assigned only while closed. Errors: 3705 while open, 3001 for a negative
  /// number.
  virtual Long ConnectionTimeout() const = 0;
  virtual void ConnectionTimeout(Long seconds) = 0;
  /// Seconds that one statement may take; 30 by default, 0 for as long as it takes. A statement
  /// that takes longer is given up: error -2147217871, and nothing of it is stored. While the
  /// program has a view for its waits, a server that does not even answer that loses the
  /// connection. Error 3001 for a negative number, here and below.
  virtual Long CommandTimeout() const = 0;
  virtual void CommandTimeout(Long seconds) = 0;
  /// Seconds that a statement waits for what somebody else has locked; 10 by default, 0 for as long
  /// as `CommandTimeout` lets it. Then error -2147217871, and nothing is stored.
  virtual Long LockTimeout() const = 0;
  virtual void LockTimeout(Long seconds) = 0;

  /// A provider property by name. Error 3265 for others, 3709 when the connection is closed. "DBMS
  /// Name", "DBMS Version": texts. "Backslash Escapes": whether the server currently reads a
  /// backslash in a plain text ('...') of a statement as an escape; Null when that is unknown.
  virtual Variant Properties(const String& name) const = 0;
  /// Runs one statement. Rows are returned as a read-only record set; a statement that has no
  /// result rows gives a closed one. A text that holds a second statement is refused. Error 5 for a
  /// text with a character of code 0 or half of a surrogate pair, here and wherever a text goes to
  /// the server. Outside a transaction, error -2147217663 for a statement that is not a plain query
  /// and whose answer is lost with the connection: what it writes may have been stored.
  virtual RecordsetPtr Execute(const String& statement) = 0;
  /// Opens rows of one statement. `Optimistic` makes them writable when they come from one
  /// table and hold its key. `options` -1 leaves open whether the text is a statement.
  virtual RecordsetPtr OpenRecordset(const String& source, CursorType cursor, LockType lock,
                                     Long options = -1) = 0;
  /// Rows about the database itself, read-only; their columns are in schema.h. Tables: includes
  /// views and system tables, distinguished by TABLE_TYPE ("TABLE", "VIEW", ...); ordered by type
  /// and name. Columns: ordered by table, and within a table in its own order; DATA_TYPE is one of
  /// `type`, CHARACTER_MAXIMUM_LENGTH is Null for columns that are not text. PrimaryKeys: in the
  /// order of the key. Errors: 3709 when closed, 3001 for PrimaryKeys without a table.
  virtual RecordsetPtr OpenSchema(SchemaKind kind, const SchemaRestrictions& restrictions = {}) = 0;

  virtual void BeginTrans() = 0;
  /// Error -2147217663 when the answer is lost: the transaction may have been stored.
  virtual void CommitTrans() = 0;
  virtual void RollbackTrans() = 0;
};

using ConnectionPtr = std::shared_ptr<Connection>;

}  // namespace tessaria::host
