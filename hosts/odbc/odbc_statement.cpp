#include "hosts/odbc/odbc_statement.h"

#include <array>

#include "hosts/odbc/describe.h"
#include "hosts/odbc/diagnostics.h"
#include "hosts/odbc/wide.h"

namespace tessaria::odbc {
namespace {

// A statement that waits for the server, which another thread may cancel.
class Running {
 public:
  Running(Line& line, std::shared_ptr<StatementHandle> statement) : line_(line) {
    line_.Running(std::move(statement));
  }
  Running(const Running&) = delete;
  Running& operator=(const Running&) = delete;
  ~Running() { line_.Running(nullptr); }

 private:
  Line& line_;
};

}  // namespace

OdbcStatement::OdbcStatement(std::shared_ptr<Line> line)
    : line_(std::move(line)), handle_(std::make_shared<StatementHandle>(line_->Get())) {
  // A driver that does not support escapes has none to leave alone.
  const SQLRETURN result =
      SQLSetStmtAttrW(Get(), SQL_ATTR_NOSCAN, reinterpret_cast<SQLPOINTER>(SQL_NOSCAN_ON), 0);
  if (!SQL_SUCCEEDED(result)) {
    const DriverError error = DiagnosticsOf(SQL_HANDLE_STMT, Get());
    if (!error.IsNotSupported()) throw error;
  }
  // A driver that does not support time-outs runs without one.
  if (line_->StatementTimeout() == 0) return;
  const auto seconds = static_cast<SQLULEN>(line_->StatementTimeout());
  SQLSetStmtAttrW(Get(), SQL_ATTR_QUERY_TIMEOUT, reinterpret_cast<SQLPOINTER>(seconds), 0);
}

SQLRETURN OdbcStatement::Send(const String& text) {
  SQLFreeStmt(Get(), SQL_CLOSE);
  const Running running(*line_, handle_);
  const SQLRETURN result =
      SQLExecDirectW(Get(), Wide(text.c_str()), static_cast<SQLINTEGER>(text.size()));
  Check(result);
  return result;
}

void OdbcStatement::Run(const String& text) { Send(text); }

std::int64_t OdbcStatement::RunWith(const String& text, const std::vector<sql::Parameter>& values) {
  std::vector<SQLLEN> lengths(values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    const sql::Parameter& value = values[i];
    lengths[i] = static_cast<SQLLEN>(value.text.size() * sizeof(char16_t));
    Check(SQLBindParameter(Get(), static_cast<SQLUSMALLINT>(i + 1), SQL_PARAM_INPUT, SQL_C_WCHAR,
                           static_cast<SQLSMALLINT>(value.sqlType), value.size,
                           static_cast<SQLSMALLINT>(value.decimals), Wide(value.text.c_str()),
                           lengths[i], &lengths[i]));
  }
  const SQLRETURN result = Send(text);
  SQLFreeStmt(Get(), SQL_RESET_PARAMS);
  // The statement has been executed; if the driver cannot count now, the number stays unknown.
  SQLLEN rows = 0;
  if (result != SQL_NO_DATA && !SQL_SUCCEEDED(SQLRowCount(Get(), &rows))) rows = -1;
  return rows;
}

String OdbcStatement::FirstText() {
  std::array<char16_t, 128> text{};
  SQLLEN bytes = 0;
  const SQLRETURN result = SQLFetch(Get());
  Check(result);
  if (result == SQL_NO_DATA) return {};
  Check(SQLGetData(Get(), 1, SQL_C_WCHAR, text.data(), sizeof text, &bytes));
  return bytes == SQL_NULL_DATA ? String() : String(text.data());
}

sql::Columns OdbcStatement::Describe() { return DescribeColumns(Get(), line_->IsPostgres()); }

void OdbcStatement::Bind(const sql::Columns& columns) {
  reader_.emplace(Get(), columns, line_->Rereads());
}

std::uint32_t OdbcStatement::Fetch() {
  const Running running(*line_, handle_);
  try {
    return reader_->Fetch();
  } catch (const DriverError& error) {
    line_->NoteLoss(error);
    throw sql::InWords(error);
  }
}

bool OdbcStatement::NextResult() {
  const Running running(*line_, handle_);
  const SQLRETURN result = SQLMoreResults(Get());
  Check(result);
  return result != SQL_NO_DATA;
}

}  // namespace tessaria::odbc
