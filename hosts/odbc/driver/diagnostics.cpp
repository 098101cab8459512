#include "hosts/odbc/driver/diagnostics.h"

#include <sqlext.h>

#include <array>
#include <string_view>

#include "hosts/odbc/driver/wide.h"

namespace tessaria::odbc {
namespace {

struct StateRule {
  std::string_view start;
  Long number;
};

// The first prefix that matches decides.
constexpr StateRule kStateRules[] = {
    {"22", errors::ValueRefused},         {"23", errors::IntegrityViolation},
    {"28", errors::AuthenticationFailed}, {"42", errors::ErrorsInCommand},
    {"57014", errors::TimeOut},           {"HYT", errors::TimeOut},
};

// 57P0x: the server was shut down, crashed, or is just starting.
constexpr std::string_view kLossStates[] = {"08", "57P01", "57P02", "57P03"};
constexpr std::string_view kNotSupportedStates[] = {"IM001", "HYC00", "HY091", "HY092"};

template <std::size_t N>
bool StartsWithAny(const std::string& state, const std::string_view (&starts)[N]) {
  for (const std::string_view start : starts) {
    if (std::string_view(state).substr(0, start.size()) == start) return true;
  }
  return false;
}

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

OdbcError::OdbcError(std::string state, String description)
    : HostError(NumberOfState(state), std::move(description)), state_(std::move(state)) {}

bool OdbcError::IsConnectionLoss() const noexcept { return StartsWithAny(state_, kLossStates); }

bool OdbcError::IsNotSupported() const noexcept {
  return StartsWithAny(state_, kNotSupportedStates);
}

HostError InDoubt(StringView text, const HostError& loss) {
  return {errors::WriteInDoubt, String(text) + u"\r\n" + loss.Description()};
}

Long NumberOfState(const std::string& state) {
  for (const StateRule& rule : kStateRules) {
    if (std::string_view(state).substr(0, rule.start.size()) == rule.start) return rule.number;
  }
  return errors::ProviderError;
}

OdbcError DiagnosticsOf(SQLSMALLINT type, SQLHANDLE handle) {
  std::string state = "HY000";
  String text = MessageOf(type, handle, 1, state);
  for (SQLSMALLINT record = 2; !text.empty(); ++record) {
    std::string ignored;
    const String more = MessageOf(type, handle, record, ignored);
    if (more.empty()) break;
    text += u"\r\n" + more;
  }
  if (text.empty()) text = u"O driver ODBC não informou a causa do erro.";
  return OdbcError(std::move(state), std::move(text));
}

void Check(SQLRETURN result, SQLSMALLINT type, SQLHANDLE handle) {
  if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return;
  throw DiagnosticsOf(type, handle);
}

}  // namespace tessaria::odbc
