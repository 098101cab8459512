#include "hosts/sql/errors/driver_error.h"

#include <string_view>

namespace tessaria::sql {
namespace {

struct StateRule {
  std::string_view start;
  Long number;
};

// The first prefix that matches decides. The last ones are those of ODBC 2, which a connection of
// the program may speak.
constexpr StateRule kStateRules[] = {
    {"22", errors::ValueRefused},         {"23", errors::IntegrityViolation},
    {"28", errors::AuthenticationFailed}, {"42", errors::ErrorsInCommand},
    {"57014", errors::TimeOut},           {"55P03", errors::TimeOut},
    {"HY008", errors::TimeOut},           {"HYT", errors::TimeOut},
    {"S1008", errors::TimeOut},           {"S1T", errors::TimeOut},
    {"37", errors::ErrorsInCommand},      {"S00", errors::ErrorsInCommand},
};

// 57P0x: the server was shut down, crashed, or is just starting.
constexpr std::string_view kLossStates[] = {"08", "57P01", "57P02", "57P03"};
// A connection that could not be made.
constexpr std::string_view kNotConnectedStates[] = {"08001", "08004"};
constexpr std::string_view kNotSupportedStates[] = {"IM001", "HYC00", "HY091", "HY092",
                                                    "S1C00", "S1091", "S1092"};

template <std::size_t N>
bool StartsWithAny(const std::string& state, const std::string_view (&starts)[N]) {
  for (const std::string_view start : starts) {
    if (std::string_view(state).substr(0, start.size()) == start) return true;
  }
  return false;
}

}  // namespace

DriverError::DriverError(std::string state, String description)
    : HostError(NumberOfState(state), std::move(description)), state_(std::move(state)) {}

bool DriverError::IsConnectionLoss() const noexcept { return StartsWithAny(state_, kLossStates); }

bool DriverError::IsNotSupported() const noexcept {
  return StartsWithAny(state_, kNotSupportedStates);
}

DriverError InWords(const DriverError& error) {
  if (!error.IsConnectionLoss() || StartsWithAny(error.SqlState(), kNotConnectedStates))
    return error;
  return {error.SqlState(),
          u"A conexão com o banco de dados foi perdida.\r\n" + error.Description()};
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

}  // namespace tessaria::sql
