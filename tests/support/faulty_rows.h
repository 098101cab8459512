// Rows of another connection that fail on demand.
#pragma once

#include <memory>
#include <utility>

#include "tessaria/error.h"
#include "tessaria/host/data.h"
#include "tests/support/passing_connection.h"

namespace tessaria::test {

class FaultyRows final : public host::Recordset {
 public:
  host::RecordsetPtr real;
  bool failsMoveNext = false;
  bool failsFind = false;
  bool failsNextFields = false;  ///< once

  Long State() const override { return real->State(); }
  bool Bof() const override { return real->Bof(); }
  bool Eof() const override { return real->Eof(); }
  host::Fields& Fields() override {
    if (std::exchange(failsNextFields, false)) Fail();
    return real->Fields();
  }
  Long RecordCount() override { return real->RecordCount(); }
  Long AbsolutePosition() const override { return real->AbsolutePosition(); }
  void MoveFirst() override { real->MoveFirst(); }
  void MoveLast() override { real->MoveLast(); }
  void MoveNext() override {
    if (failsMoveNext) Fail();
    real->MoveNext();
  }
  void MovePrevious() override { real->MovePrevious(); }
  void AbsolutePosition(Long row) override { real->AbsolutePosition(row); }
  void Find(const String& criteria) override {
    if (failsFind) Fail();
    real->Find(criteria);
  }
  void Sort(const String& order) override { real->Sort(order); }
  String Sort() const override { return real->Sort(); }
  host::EditMode EditMode() const override { return real->EditMode(); }
  bool IsInDoubt() const override { return real->IsInDoubt(); }
  void AddNew() override { real->AddNew(); }
  void Update() override { real->Update(); }
  void CancelUpdate() override { real->CancelUpdate(); }
  void Delete() override { real->Delete(); }
  void Requery() override { real->Requery(); }
  void Close() override { real->Close(); }
  Long RowsRead() const override { return real->RowsRead(); }
  bool Complete() const override { return real->Complete(); }
  bool FetchMore(Long rows) override { return real->FetchMore(rows); }
  Variant ValueAt(Long row, Long ordinal) const override { return real->ValueAt(row, ordinal); }
  String Source() const override { return real->Source(); }

 private:
  [[noreturn]] static void Fail() {
    throw HostError(errors::ProviderError, u"server closed the connection");
  }
};

/// Opens the given rows instead of those of the other connection.
class FaultyConnection final : public PassingConnection {
 public:
  FaultyConnection(host::ConnectionPtr real, std::shared_ptr<FaultyRows> rows)
      : PassingConnection(std::move(real)), rows_(std::move(rows)) {}

  host::RecordsetPtr OpenRecordset(const String& source, host::CursorType cursor,
                                   host::LockType lock, Long options) override {
    rows_->real = real_->OpenRecordset(source, cursor, lock, options);
    return rows_;
  }

 private:
  std::shared_ptr<FaultyRows> rows_;
};

}  // namespace tessaria::test
