// Results of the client library that free themselves, and the errors that it reports.
#pragma once

#include <libpq-fe.h>

#include <memory>
#include <string_view>

#include "hosts/sql/errors/driver_error.h"

namespace tessaria::postgres {

using sql::DriverError;

struct ResultEnd {
  void operator()(PGresult* result) const noexcept { PQclear(result); }
};
using Result = std::unique_ptr<PGresult, ResultEnd>;

bool IsError(const PGresult* result);

/// The error of a result or, without an SQLSTATE of the server or without a result, of its
/// connection. The text is the
/// server's: severity and message, detail and hint, a line each.
DriverError ErrorOf(PGconn* connection, const PGresult* result);

/// The error of a connection that could not be opened or used.
DriverError ConnectionError(const PGconn* connection, const char* state);

/// A cell's bytes. Valid as long as the result. Empty for Null.
inline std::string_view CellOf(const PGresult* result, int row, int column) {
  return {PQgetvalue(result, row, column),
          static_cast<std::size_t>(PQgetlength(result, row, column))};
}

}  // namespace tessaria::postgres
