#include "hosts/odbc/diagnostics.h"

#include <sqlext.h>

#include <array>

#include "hosts/odbc/wide.h"

namespace tessaria::odbc {
namespace {

std::string Narrow(const char16_t* text, std::size_t length) {
  std::string result;
  for (std::size_t i = 0; i < length; ++i) result += static_cast<char>(text[i]);
  return result;
}

// The text of one record, however long it is.
String MessageOf(SQLSMALLINT type, SQLHANDLE handle, SQLSMALLINT record, std::string& state) {
  std::array<char16_t, 6> stateText{};
  String message(512, u'\0');
  for (;;) {
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN result =
        SQLGetDiagRecW(type, handle, record, Wide(stateText.data()), &native, Wide(message.data()),
                       static_cast<SQLSMALLINT>(message.size()), &length);
    if (!SQL_SUCCEEDED(result)) return {};
    state = Narrow(stateText.data(), 5);
    if (length < static_cast<SQLSMALLINT>(message.size())) {
      message.resize(static_cast<std::size_t>(length));
      return message;
    }
    message.resize(static_cast<std::size_t>(length) + 1);
  }
}

}  // namespace

DriverError DiagnosticsOf(SQLSMALLINT type, SQLHANDLE handle) {
  std::string state = "HY000";
  String text = MessageOf(type, handle, 1, state);
  for (SQLSMALLINT record = 2; !text.empty(); ++record) {
    std::string ignored;
    const String more = MessageOf(type, handle, record, ignored);
    if (more.empty()) break;
    text += u"\r\n" + more;
  }
  if (text.empty()) text = u"O driver ODBC não informou a causa do erro.";
  return DriverError(std::move(state), std::move(text));
}

void Check(SQLRETURN result, SQLSMALLINT type, SQLHANDLE handle) {
  if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
  throw DiagnosticsOf(type, handle);
}

}  // namespace tessaria::odbc
