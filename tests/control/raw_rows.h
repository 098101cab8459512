// Rows of one field that keeps exactly the assigned value, including its kind.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "tessaria/error.h"
#include "tessaria/host/data.h"

namespace tessaria::test {

/// One row with one field, of any type.
class RawRows final : public host::Recordset, private host::Fields {
 public:
  /// The settings of a test.
  struct {
    String Name = u"campo";
    Long Type = host::type::VarWChar;
    Long Attributes = host::attribute::IsNullable;
    Long DefinedSize = 0;
    bool AtBof = false;
    bool AtEof = false;
    bool IsOpen = true;
    Variant Value;
    /// How the field converts a value; without it the field keeps the value as it is.
    std::function<Variant(const Variant&)> Makes;
    std::optional<HostError> Refusal;
    std::optional<HostError> ReadFault;
    std::optional<HostError> SizeFault;
  } Field;
  /// The values that were written, in order.
  std::vector<Variant> Written;

  Long State() const override { return Field.IsOpen ? host::state::Open : host::state::Closed; }
  bool Bof() const override { return Field.AtBof; }
  bool Eof() const override { return Field.AtEof; }
  host::Fields& Fields() override { return *this; }
  Long RecordCount() override { return 1; }
  Long AbsolutePosition() const override { return 1; }
  void MoveFirst() override {}
  void MoveLast() override {}
  void MoveNext() override { Field.AtEof = true; }
  void MovePrevious() override { Field.AtBof = true; }
  void AbsolutePosition(Long) override {}
  void Find(const String&) override {}
  void Sort(const String&) override {}
  String Sort() const override { return {}; }
  host::EditMode EditMode() const override { return host::EditMode::None; }
  bool IsInDoubt() const override { return false; }
  void AddNew() override {}
  void Update() override {}
  void CancelUpdate() override {}
  void Delete() override {}
  void Requery() override {}
  void Close() override { Field.IsOpen = false; }
  Long RowsRead() const override { return 1; }
  bool Complete() const override { return true; }
  bool FetchMore(Long) override { return false; }
  Variant ValueAt(Long, Long) const override { return Field.Value; }
  String Source() const override { return u"crua"; }

 private:
  class RawField final : public host::Field {
   public:
    explicit RawField(RawRows& rows) : rows_(rows) {}
    String Name() const override { return rows_.Field.Name; }
    Long Type() const override { return rows_.Field.Type; }
    Long Attributes() const override { return rows_.Field.Attributes; }
    Long DefinedSize() const override {
      if (rows_.Field.SizeFault) throw *rows_.Field.SizeFault;
      return rows_.Field.DefinedSize;
    }
    Long Precision() const override { return 0; }
    Long NumericScale() const override { return 0; }
    Variant Value() const override {
      if (rows_.Field.ReadFault) throw *rows_.Field.ReadFault;
      return rows_.Field.Value;
    }
    void Value(const Variant& value) override {
      if (rows_.Field.Refusal) throw *rows_.Field.Refusal;
      rows_.Written.push_back(value);
      rows_.Field.Value = rows_.Field.Makes ? rows_.Field.Makes(value) : value;
    }

   private:
    RawRows& rows_;
  };

  Long Count() const override { return 1; }
  host::FieldPtr Item(Long) const override {
    return std::make_shared<RawField>(const_cast<RawRows&>(*this));
  }
  host::FieldPtr Item(const String&) const override { return Item(0); }
};

}  // namespace tessaria::test
