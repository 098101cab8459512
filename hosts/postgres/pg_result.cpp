#include "hosts/postgres/pg_result.h"

#include <string>

#include "tessaria/utf8.h"

namespace tessaria::postgres {
namespace {

// Of a connection that is gone, and of a fault that the client library itself has found.
constexpr const char* kLossState = "08S01";
constexpr const char* kGeneralState = "HY000";

std::string FieldOf(const PGresult* result, int field) {
  const char* const text = PQresultErrorField(result, field);
  return text == nullptr ? std::string() : text;
}

String WithoutLineEnd(std::string_view text) {
  const std::size_t last = text.find_last_not_of("\r\n ");
  return FromUtf8(text.substr(0, last + 1));
}

String ServerText(const PGresult* result) {
  String text =
      FromUtf8(FieldOf(result, PG_DIAG_SEVERITY) + ": " + FieldOf(result, PG_DIAG_MESSAGE_PRIMARY));
  const std::string detail = FieldOf(result, PG_DIAG_MESSAGE_DETAIL);
  const std::string hint = FieldOf(result, PG_DIAG_MESSAGE_HINT);
  if (!detail.empty()) text += u"\r\nDETAIL: " + FromUtf8(detail);
  if (!hint.empty()) text += u"\r\nHINT: " + FromUtf8(hint);
  return text;
}

}  // namespace

bool IsError(const PGresult* result) {
  const ExecStatusType status = PQresultStatus(result);
  return status == PGRES_FATAL_ERROR || status == PGRES_BAD_RESPONSE;
}

DriverError ErrorOf(PGconn* connection, const PGresult* result) {
  std::string state = FieldOf(result, PG_DIAG_SQLSTATE);
  if (!state.empty()) return {std::move(state), ServerText(result)};
  DriverError error = ConnectionError(connection, kLossState);
  // After a failed sending only a reading tells that the server is gone.
  if (PQstatus(connection) == CONNECTION_OK) PQconsumeInput(connection);
  if (PQstatus(connection) == CONNECTION_BAD) return error;
  return {kGeneralState, error.Description()};
}

DriverError ConnectionError(const PGconn* connection, const char* state) {
  String text = WithoutLineEnd(PQerrorMessage(connection));
  if (text.empty()) text = u"A biblioteca do PostgreSQL não informou a causa do erro.";
  return {state, std::move(text)};
}

}  // namespace tessaria::postgres
