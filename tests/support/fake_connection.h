// A connection with no database: it records its statements and answers them by a script.
#pragma once

#include <deque>
#include <utility>
#include <variant>
#include <vector>

#include "tessaria/error.h"
#include "tessaria/host/data.h"

namespace tessaria::test {

struct FakeColumn {
  String Name;
  Long Type = host::type::VarWChar;
};

/// Columns, and rows with a value for each of them.
struct FakeRows {
  std::vector<FakeColumn> Columns;
  std::vector<std::vector<Variant>> Rows;
};

class FakeRecordset;

class FakeField final : public host::Field {
 public:
  FakeField(const FakeRecordset& owner, Long ordinal) : owner_(owner), ordinal_(ordinal) {}
  String Name() const override;
  Long Type() const override;
  Long Attributes() const override { return host::attribute::MayBeNull; }
  Long DefinedSize() const override { return 0; }
  Long Precision() const override { return 0; }
  Long NumericScale() const override { return 0; }
  Variant Value() const override;
  void Value(const Variant&) override { throw HostError(errors::NotUpdatable); }

 private:
  const FakeColumn& Column() const;

  const FakeRecordset& owner_;
  Long ordinal_;
};

/// Read-only rows that can be walked forward.
class FakeRecordset final : public host::Recordset, private host::Fields {
 public:
  FakeRecordset(String source, FakeRows rows)
      : source_(std::move(source)), data_(std::move(rows)) {}

  Long State() const override { return open_ ? host::state::Open : host::state::Closed; }
  bool Bof() const override { return RequireOpen(), data_.Rows.empty(); }
  bool Eof() const override { return RequireOpen(), row_ >= data_.Rows.size(); }
  host::Fields& Fields() override { return RequireOpen(), *this; }
  Long RecordCount() override { return RequireOpen(), static_cast<Long>(data_.Rows.size()); }
  Long AbsolutePosition() const override { return Eof() ? -3 : static_cast<Long>(row_) + 1; }
  void MoveFirst() override { row_ = 0; }
  void MoveLast() override { row_ = data_.Rows.empty() ? 0 : data_.Rows.size() - 1; }
  void MoveNext() override { ++row_; }
  void MovePrevious() override { Refuse(); }
  void AbsolutePosition(Long) override { Refuse(); }
  void Find(const String&) override { Refuse(); }
  void Sort(const String&) override { Refuse(); }
  String Sort() const override { return {}; }
  host::EditMode EditMode() const override { return host::EditMode::None; }
  void AddNew() override { Refuse(); }
  void Update() override { Refuse(); }
  void CancelUpdate() override { Refuse(); }
  void Delete() override { Refuse(); }
  void Requery() override { Refuse(); }
  void Close() override { open_ = false; }
  String Source() const override { return source_; }

  const FakeRows& Data() const { return RequireOpen(), data_; }
  Variant At(Long ordinal) const {
    if (Eof()) throw HostError(errors::NoCurrentRecord);
    return data_.Rows[row_][static_cast<std::size_t>(ordinal)];
  }

 private:
  void RequireOpen() const {
    if (!open_) throw HostError(errors::ObjectClosed);
  }
  [[noreturn]] static void Refuse() { throw HostError(errors::NotUpdatable); }

  Long Count() const override { return static_cast<Long>(data_.Columns.size()); }
  host::FieldPtr Item(Long ordinal) const override {
    if (ordinal < 0 || ordinal >= Count()) throw HostError(errors::ItemNotFound);
    return std::make_shared<FakeField>(*this, ordinal);
  }
  host::FieldPtr Item(const String& name) const override {
    for (Long i = 0; i < Count(); ++i) {
      if (data_.Columns[static_cast<std::size_t>(i)].Name == name) return Item(i);
    }
    throw HostError(errors::ItemNotFound);
  }

  String source_;
  FakeRows data_;
  std::size_t row_ = 0;
  bool open_ = true;
};

inline const FakeColumn& FakeField::Column() const {
  return owner_.Data().Columns[static_cast<std::size_t>(ordinal_)];
}
inline String FakeField::Name() const { return Column().Name; }
inline Long FakeField::Type() const { return Column().Type; }
inline Variant FakeField::Value() const { return owner_.At(ordinal_); }

/// How a statement reached the connection.
struct FakeStatement {
  String Text;
  bool Executed = false;  ///< by Execute; the rest tells of OpenRecordset
  host::CursorType Cursor = host::CursorType::ForwardOnly;
  host::LockType Lock = host::LockType::ReadOnly;
  Long Options = 0;
};

class FakeConnection final : public host::Connection {
 public:
  String DbmsName = u"ACCESS";
  String DbmsVersion;
  bool IsOpen = true;

  /// Queues the answer of a statement to come. A statement without an answer gets no rows, of
  /// one text column.
  void WillAnswer(FakeRows rows) { script_.emplace_back(std::move(rows)); }
  void WillFail(HostError error) { script_.emplace_back(std::move(error)); }

  const std::vector<FakeStatement>& Statements() const { return statements_; }
  std::vector<String> Texts() const {
    std::vector<String> texts;
    for (const auto& statement : statements_) texts.push_back(statement.Text);
    return texts;
  }
  /// The record sets that were given out, in order.
  const std::vector<std::shared_ptr<FakeRecordset>>& Recordsets() const { return recordsets_; }

  Long State() const override { return IsOpen ? host::state::Open : host::state::Closed; }
  String ConnectionString() const override { return connectionString_; }
  void ConnectionString(const String& text) override { connectionString_ = text; }
  void Open() override { IsOpen = true; }
  void Close() override { IsOpen = false; }
  Variant Properties(const String& name) const override {
    if (!IsOpen) throw HostError(errors::InvalidConnection);
    if (name == u"DBMS Name") return DbmsName;
    if (name == u"DBMS Version") return DbmsVersion;
    throw HostError(errors::ItemNotFound);
  }
  host::RecordsetPtr Execute(const String& statement) override {
    FakeStatement record;
    record.Text = statement;
    record.Executed = true;
    return Answer(std::move(record));
  }
  host::RecordsetPtr OpenRecordset(const String& source, host::CursorType cursor,
                                   host::LockType lock, Long options) override {
    return Answer({source, false, cursor, lock, options});
  }
  void BeginTrans() override {}
  void CommitTrans() override {}
  void RollbackTrans() override {}

 private:
  host::RecordsetPtr Answer(FakeStatement statement) {
    statements_.push_back(statement);
    FakeRows rows{{{u"c"}}, {}};
    if (!script_.empty()) {
      const auto next = std::move(script_.front());
      script_.pop_front();
      if (const auto* error = std::get_if<HostError>(&next)) throw *error;
      rows = std::get<FakeRows>(next);
    }
    recordsets_.push_back(std::make_shared<FakeRecordset>(statement.Text, std::move(rows)));
    return recordsets_.back();
  }

  String connectionString_ = u"DSN=teste";
  std::deque<std::variant<FakeRows, HostError>> script_;
  std::vector<FakeStatement> statements_;
  std::vector<std::shared_ptr<FakeRecordset>> recordsets_;
};

}  // namespace tessaria::test
