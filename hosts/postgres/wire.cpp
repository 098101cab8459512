#include "hosts/postgres/wire.h"

#include <utility>

#include "hosts/postgres/lent_connection.h"
#include "hosts/postgres/line_end.h"
#include "hosts/sql/driver/bounded_call.h"

namespace tessaria::postgres {
namespace {

// Dates and numbers arrive in the form that this layer reads, whatever the database is set to.
constexpr const char* kSettings =
    "SET DateStyle = 'ISO'; SET extra_float_digits = 3; SET bytea_output = 'hex'";

// The later of two equal keywords counts: the program's own time-out may replace the general one.
std::vector<std::pair<std::string, std::string>> AllPairs(const ConnectionOptions& options,
                                                          Long timeout) {
  std::vector<std::pair<std::string, std::string>> pairs;
  if (timeout > 0) pairs.emplace_back("connect_timeout", std::to_string(timeout));
  // A way that has gone is noticed within a minute or two.
  pairs.emplace_back("keepalives_idle", "60");
  pairs.emplace_back("tcp_user_timeout", "60000");
  pairs.insert(pairs.end(), options.pairs.begin(), options.pairs.end());
  pairs.emplace_back("client_encoding", "UTF8");
  return pairs;
}

PGconn* Connect(const ConnectionOptions& options, Long timeout) {
  const auto pairs = AllPairs(options, timeout);
  std::vector<const char*> names, values;
  for (const auto& [name, value] : pairs) {
    names.push_back(name.c_str());
    values.push_back(value.c_str());
  }
  names.push_back(nullptr);
  values.push_back(nullptr);
  return PQconnectdbParams(names.data(), values.data(), options.isWhole ? 1 : 0);
}

// The library gives no SQLSTATE for a connection that could not be opened.
constexpr const char* kRefusalState = "08001";

// Ends a transfer of table data, which a program cannot take part in through this layer.
void EndCopy(PGconn* connection, ExecStatusType status) {
  if (status == PGRES_COPY_IN) PQputCopyEnd(connection, "COPY");
  char* line = nullptr;
  while (status == PGRES_COPY_OUT && PQgetCopyData(connection, &line, 0) > 0) PQfreemem(line);
}

bool IsCopy(const PGresult* result) {
  const ExecStatusType status = PQresultStatus(result);
  return status == PGRES_COPY_IN || status == PGRES_COPY_OUT;
}

}  // namespace

Wire::Wire(const ConnectionOptions& options, Long timeout, sql::SettingsScope scope)
    : connection_(Connect(options, timeout)) {
  if (PQstatus(Get()) != CONNECTION_OK) throw ConnectionError(Get(), kRefusalState);
  line_ = LineEnd(PQsocket(Get()));
  cancel_.reset(PQgetCancel(Get()), PQfreeCancel);
  PQsetNoticeProcessor(
      Get(), [](void*, const char*) {}, nullptr);
  const bool isSession = scope == sql::SettingsScope::Session;
  for (const std::string& text : {std::string(isSession ? kSettings : ""), options.statements}) {
    if (text.empty()) continue;
    const Result result(PQexec(Get(), text.c_str()));
    RequireSound(result.get());
  }
}

Wire::Wire(PGconn* lent, std::function<bool()> isThere)
    : connection_(lent, ConnectionEnd{true}), isThere_(std::move(isThere)) {
  process_ = PQbackendPID(lent);
  RequireFree();
  cancel_.reset(PQgetCancel(Get()), PQfreeCancel);
}

// For good: the program may connect again, even at the same address.
bool Wire::IsLost() const noexcept {
  if (isThere_ && !isThere_()) lost_ = true;
  return lost_;
}

void Wire::RequireFree() {
  if (PQstatus(Get()) != CONNECTION_OK || PQbackendPID(Get()) != process_) {
    lost_ = true;
    throw HostError(errors::InvalidConnection,
                    u"A conexão do programa com o PostgreSQL está fechada ou foi perdida.");
  }
  RequireUsable(Get());
}

// The library waits without a bound until the server has signalled the process that runs the
// statement.
bool Wire::Cancel() noexcept {
  return sql::IsOverWithin(sql::kSilence, [cancel = cancel_] {
    char reason[256];
    PQcancel(cancel.get(), reason, sizeof reason);
  });
}

void Wire::GiveUp() noexcept {
  lost_ = true;
  if (!connection_.get_deleter().isLent) line_.End();
}

void Wire::Fail(const DriverError& error) {
  if (error.IsConnectionLoss() || PQstatus(Get()) == CONNECTION_BAD) lost_ = true;
  throw sql::InWords(error);
}

void Wire::RequireSound(const PGresult* result) {
  if (result == nullptr || IsError(result)) Fail(ErrorOf(Get(), result));
  if (IsCopy(result)) {
    Fail({"0A000", u"O comando COPY só funciona entre o servidor e os arquivos dele."});
  }
}

void Wire::Settle() {
  const auto batch = underWay_;
  if (batch == nullptr) return;
  KeepRest();
  if (batch->failure) throw DriverError(*batch->failure);
}

// A batch that ends meanwhile, because its call was left, is not touched.
void Wire::KeepRest() {
  const auto batch = underWay_;
  try {
    while (Result result = Take()) batch->results.push_back(std::move(result));
  } catch (const DriverError& error) {
    batch->failure = error;
  }
}

Result Wire::Ask(const std::string& text, const Values& values) {
  Settle();
  std::vector<const char*> texts;
  for (const auto& value : values) texts.push_back(value ? value->c_str() : nullptr);
  Result result(PQexecParams(Get(), text.c_str(), static_cast<int>(texts.size()), nullptr,
                             texts.data(), nullptr, nullptr, 0));
  RequireSound(result.get());
  return result;
}

void Wire::Send(const std::shared_ptr<Received>& batch, const std::string& text) {
  if (PQsendQuery(Get(), text.c_str()) == 0) Fail(ErrorOf(Get(), nullptr));
  underWay_ = batch;
}

// The next result of the batch under way; a null pointer when there is none and the connection is
// free.
Result Wire::Receive() noexcept {
  Result result(PQgetResult(Get()));
  if (result == nullptr) underWay_ = nullptr;
  if (IsCopy(result.get())) EndCopy(Get(), PQresultStatus(result.get()));
  return result;
}

void Wire::Discard() noexcept {
  while (Receive() != nullptr) continue;
  if (PQstatus(Get()) == CONNECTION_BAD) lost_ = true;
}

// An error ends the whole batch.
Result Wire::Take() {
  Result result = Receive();
  if (result == nullptr) return result;
  try {
    RequireSound(result.get());
  } catch (...) {
    Discard();
    throw;
  }
  return result;
}

void Batch::Send(const std::string& text) {
  Drop();
  wire_->Settle();
  wire_->Send(received_, text);
}

Result Batch::Next() {
  auto& [results, failure] = *received_;
  if (!results.empty()) {
    Result result = std::move(results.front());
    results.pop_front();
    return result;
  }
  if (failure) throw DriverError(*std::exchange(failure, std::nullopt));
  return IsUnderWay() ? wire_->Take() : nullptr;
}

void Batch::KeepRest() {
  if (IsUnderWay()) wire_->KeepRest();
}

void Batch::Drop() noexcept {
  // A line that was given up may still be in use by the call that was left, and so may what it has
  // received.
  if (!wire_->IsLost() && IsUnderWay()) wire_->Discard();
  received_ = std::make_shared<Received>();
}

}  // namespace tessaria::postgres
