// Statements of an ODBC driver.
#pragma once

#include <memory>
#include <optional>
#include <utility>

#include "hosts/odbc/block_reader.h"
#include "hosts/odbc/line.h"
#include "hosts/sql/driver/link.h"

namespace tessaria::odbc {

class OdbcStatement final : public sql::Statement {
 public:
  explicit OdbcStatement(std::shared_ptr<Line> line);
  OdbcStatement(const OdbcStatement&) = delete;
  OdbcStatement& operator=(const OdbcStatement&) = delete;
  ~OdbcStatement() override { line_->Release(std::move(handle_)); }

  void Run(const String& text) override;
  std::int64_t RunWith(const String& text, const std::vector<sql::Parameter>& values) override;
  sql::Columns Describe() override;
  void Bind(const sql::Columns& columns) override;
  std::uint32_t Fetch() override;
  void Take(sql::ColumnStore& store) override { reader_->Take(store); }
  bool NextResult() override;
  /// Of a batch, the driver takes in everything at once.
  void KeepRest() override {}

  /// The first column of the first row of the present result, a short text; empty when there is
  /// none.
  String FirstText();

  SQLHSTMT Get() const { return handle_->get(); }
  /// As the line's.
  void Check(SQLRETURN result) { line_->Check(result, SQL_HANDLE_STMT, Get()); }

 private:
  SQLRETURN Send(const String& text);

  std::shared_ptr<Line> line_;
  std::shared_ptr<StatementHandle> handle_;  // shared with a request to cancel it
  std::optional<BlockReader> reader_;
};

}  // namespace tessaria::odbc
