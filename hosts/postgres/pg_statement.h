// Statements of a connection of the client library.
#pragma once

#include <memory>
#include <vector>

#include "hosts/postgres/wire.h"
#include "hosts/sql/driver/link.h"
#include "hosts/sql/values/arrived_text.h"

namespace tessaria::postgres {

/// The results of a batch are taken one at a time while the server prepares the next. All rows of
/// one result are one block.
class PgStatement final : public sql::Statement {
 public:
  explicit PgStatement(std::shared_ptr<Wire> wire) : wire_(std::move(wire)), batch_(wire_) {}

  void Run(const String& text) override;
  std::int64_t RunWith(const String& text, const std::vector<sql::Parameter>& values) override;
  sql::Columns Describe() override;
  void Bind(const sql::Columns& columns) override;
  std::uint32_t Fetch() override;
  void Take(sql::ColumnStore& store) override;
  bool NextResult() override;
  void KeepRest() override { batch_.KeepRest(); }

 private:
  void StandOn(Result result);
  void AppendColumn(sql::ColumnStore& store, int column) const;

  std::shared_ptr<Wire> wire_;
  Batch batch_;
  Result result_;
  bool isFetched_ = false;  // whether the rows of the present result were announced
  std::vector<sql::ArrivingForm> forms_;
};

}  // namespace tessaria::postgres
