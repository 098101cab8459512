// The calls of a session that wait for its server. Each owns all that it uses: it may be left.
#include <algorithm>
#include <utility>

#include "hosts/sql/driver/bounded_call.h"
#include "hosts/sql/session/session.h"
#include "runtime/well_formed.h"

namespace tessaria::sql {
namespace {

constexpr StringView kInTheWay =
    u"Linhas de listas deste programa, que ainda estavam no servidor, podiam estar no caminho e "
    u"foram lidas por inteiro. Tente outra vez.";

// What a driver may ask the server for one answer of its catalogue, at the most.
constexpr int kCatalogueStatements = 4;

// The statements in a text of this layer or of the program, at the most.
int StatementsIn(StringView text) {
  return 1 + static_cast<int>(std::count(text.begin(), text.end(), u';'));
}

}  // namespace

// `statements` are in the call, at the most.
void Session::Await(std::function<void()> call, int statements, bool isBracket) {
  const auto keep = weak_from_this().lock();  // something that runs meanwhile may let go of it
  const LinkPtr link = RequireLink();
  const auto bound = std::chrono::seconds(commandTimeout_) * statements;
  // The server bounds its statements itself; its answer is late only when something is wrong.
  const auto time = bound.count() > 0 ? bound + kSilence : bound;
  try {
    patience_->Await(std::move(call), {link, time, !adoption_.has_value(), isBracket});
  } catch (const DriverError& error) {
    NoteLoss();
    if (!error.IsLockTimeOut() || !HoldInTheWay()) throw;
    throw DriverError(error.SqlState(), error.Description() + u"\r\n" + String(kInTheWay));
  } catch (...) {
    NoteLoss();
    throw;
  }
}

// A call of which nobody needs the answer. Windows live on meanwhile. A server that is silent is
// given up even when the program has no view: letting go of rows must not take for ever.
void Session::Tidy(std::function<void()> call, std::chrono::seconds time, bool isBracket) noexcept {
  const auto keep = weak_from_this().lock();  // something that runs meanwhile may let go of it
  try {
    const CallTerms terms{link_, time, !adoption_.has_value(), isBracket};
    adoption_ ? patience_->Await(std::move(call), terms)
              : patience_->AwaitApart(std::move(call), terms);
  } catch (...) {
    // Where the connection is lost, its next use raises the error.
  }
  NoteLoss();
}

void Session::NoteLoss() noexcept {
  if (link_ && link_->IsLost()) reconnection_.NoteLoss();
}

std::uint32_t Session::Fetch(Statement& statement) {
  std::uint32_t rows = 0;
  if (RequireLink()->RowsArriveWithRun()) {
    rows = statement.Fetch();
  } else {
    const auto fetched = std::make_shared<std::uint32_t>(0);
    Await([fetched, kept = statement.shared_from_this()] { *fetched = kept->Fetch(); });
    rows = *fetched;
  }
  patience_->NoteRows(static_cast<Long>(rows));
  return rows;
}

bool Session::NextResult(Statement& statement) {
  if (RequireLink()->RowsArriveWithRun()) return statement.NextResult();
  const auto isThere = std::make_shared<bool>(false);
  Await([isThere, kept = statement.shared_from_this()] { *isThere = kept->NextResult(); });
  return *isThere;
}

// Runs a text after `lead`, which holds so many statements; stands on the last result.
void Session::RunAfter(Statement& statement, const String& lead, int leading, const String& text,
                       int results) {
  String whole = lead + text;
  const int statements = StatementsIn(whole);
  Await(
      [kept = statement.shared_from_this(), whole = std::move(whole), last = leading + results] {
        kept->Run(whole);
        for (int i = 1; i < last; ++i) kept->NextResult();
      },
      statements);
}

std::int64_t Session::ExecuteWith(Statement& statement, const String& text,
                                  std::vector<Parameter> values) {
  RequireWellFormed(text);
  for (const Parameter& value : values) RequireWellFormed(value.text);
  const Patience::Request request(*patience_);
  struct Sent {
    String text;
    std::vector<Parameter> values;
    std::int64_t rows = 0;
  };
  const auto sent = std::make_shared<Sent>(Sent{text, std::move(values)});
  const auto call = [sent, kept = statement.shared_from_this()] {
    sent->rows = kept->RunWith(sent->text, sent->values);
  };
  Enclose([&] { Await(call, StatementsIn(text)); });
  return sent->rows;
}

void Session::RunPlain(const String& text) { RunApart(text, false); }

// Around statements: the operator gives up the statement, and not this.
void Session::RunBracket(const String& text) { RunApart(text, true); }

void Session::RunApart(const String& text, bool isBracket) {
  RequireWellFormed(text);
  const auto call = [statement = InnerStatement(), text] {
    statement->Run(text);
    while (statement->NextResult()) continue;
  };
  Await(call, StatementsIn(text), isBracket);
}

void Session::RunCatalogue(std::function<void(Link&)> ask) {
  patience_->RequireIdle();
  Reconnect();
  const LinkPtr link = RequireLink();
  if (!link->RunsBesideRows() || adoption_) Settle();
  const Patience::Request request(*patience_);
  const auto call = [link, ask = std::move(ask)] { ask(*link); };
  Enclose([&] { Await(call, kCatalogueStatements); });
}

void Session::KeepRest(Statement& statement, int results) {
  if (RequireLink()->RowsArriveWithRun()) return;
  Await([kept = statement.shared_from_this()] { kept->KeepRest(); }, results);
}

}  // namespace tessaria::sql
