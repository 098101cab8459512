// A million rows that are read on demand.
#pragma once

#include <algorithm>
#include <functional>
#include <memory>
#include <string>

#include "tessaria/error.h"
#include "tessaria/host/data.h"

namespace tessaria::qt::tests {

/// Two columns, the row's number and a name. Reading can be made to fail at a row.
class LongRows final : public host::Recordset, private host::Fields {
 public:
  explicit LongRows(Long count) : count_(count), read_(std::min<Long>(count, 1000)) {}

  /// Reading fails at this row; 0 for never.
  Long failsAt = 0;
  /// Called before a move to either end; may throw.
  std::function<void()> OnMove;
  /// The number of calls that asked for more rows.
  int fetches = 0;

  Long State() const override { return host::state::Open; }
  bool Bof() const override { return count_ == 0; }
  bool Eof() const override { return count_ == 0; }
  host::Fields& Fields() override { return *this; }
  Long RecordCount() override { return readTo(count_), count_; }
  Long AbsolutePosition() const override { return count_ == 0 ? -1 : position_; }
  void MoveFirst() override { moveTo(1); }
  void MoveLast() override { moveTo(RecordCount()); }
  void MoveNext() override { AbsolutePosition(position_ + 1); }
  void MovePrevious() override { AbsolutePosition(position_ - 1); }
  void AbsolutePosition(Long row) override {
    if (row < 1 || row > count_) throw HostError(errors::NoCurrentRecord);
    readTo(row);
    position_ = row;
  }
  void Find(const String&) override {}
  void Sort(const String& order) override { order_ = order; }
  String Sort() const override { return order_; }
  host::EditMode EditMode() const override { return host::EditMode::None; }
  bool IsInDoubt() const override { return false; }
  void AddNew() override {}
  void Update() override {}
  void CancelUpdate() override {}
  void Delete() override {}
  void Requery() override {}
  void Close() override {}
  String Source() const override { return u"longa"; }
  Long RowsRead() const override { return read_; }
  bool Complete() const override { return read_ == count_; }
  bool FetchMore(Long rows) override {
    ++fetches;
    const Long before = read_;
    readTo(std::min(count_, read_ + rows));
    return read_ > before;
  }
  Variant ValueAt(Long row, Long ordinal) const override {
    if (row < 1 || row > read_) throw HostError(errors::NoCurrentRecord);
    if (ordinal == 0) return row;
    return u"Nome " + fromNumber(row);
  }

 private:
  class Column final : public host::Field {
   public:
    Column(const LongRows& rows, Long ordinal) : rows_(rows), ordinal_(ordinal) {}
    String Name() const override { return ordinal_ == 0 ? u"codigo" : u"nome"; }
    Long Type() const override {
      return ordinal_ == 0 ? host::type::Integer : host::type::VarWChar;
    }
    Long Attributes() const override { return 0; }
    Long DefinedSize() const override { return 30; }
    Long Precision() const override { return 0; }
    Long NumericScale() const override { return 0; }
    Variant Value() const override { return rows_.ValueAt(rows_.position_, ordinal_); }
    void Value(const Variant&) override {}

   private:
    const LongRows& rows_;
    Long ordinal_;
  };

  static String fromNumber(Long number) {
    const auto digits = std::to_string(number);
    return {digits.begin(), digits.end()};
  }
  void moveTo(Long row) {
    if (OnMove) OnMove();
    position_ = row;
  }
  void readTo(Long row) {
    if (failsAt > 0 && row >= failsAt) {
      read_ = std::max(read_, failsAt - 1);
      throw HostError(errors::ProviderError, u"A conexão com o servidor caiu.");
    }
    read_ = std::max(read_, row);
  }

  Long Count() const override { return 2; }
  host::FieldPtr Item(Long ordinal) const override {
    return std::make_shared<Column>(*this, ordinal);
  }
  host::FieldPtr Item(const String&) const override { return Item(0); }

  Long count_;
  Long read_;
  Long position_ = 1;
  String order_;
};

}  // namespace tessaria::qt::tests
