// What sessions do on connections that belong to the program.
#include <utility>

#include "hosts/sql/session/session.h"

namespace tessaria::sql {
namespace {

constexpr const char* kTransactionFailed = "25P02";
constexpr const char* kNoSuchSavepoint = "3B001";

void RequirePostgres(const Server& server) {
  if (server.IsPostgres()) return;
  throw HostError(
      errors::InvalidConnection,
      u"Só se pode adotar uma conexão com o PostgreSQL; esta é com \"" + server.name + u"\".");
}

}  // namespace

void Session::Adopt(LinkPtr link) {
  link_ = std::move(link);
  adoption_.emplace();
  ReadServer();
  RequirePostgres(server_);
  Settle();
}

// The program may have begun or ended a transaction since the last call, also one of ours.
Standing Session::AskProgram() {
  const LinkPtr link = RequireLink();
  Standing standing = link->ProgramStanding();
  if (standing == Standing::Failed) return standing;
  if (standing == Standing::Idle) {
    adoption_->LearnNoTransaction();
  } else {
    try {
      const StatementPtr question = link->NewStatement();
      const auto answer = std::make_shared<TextRow>();
      Await([question, answer] {
        question->Run(Adoption::Question());
        *answer = FirstRow(*question);
      });
      if (!adoption_->Learn(*answer, standing == Standing::InTransaction)) {
        inTransaction_ = false;
        link_.reset();
        RequireLink();
      }
    } catch (const DriverError& error) {
      if (error.SqlState() != kTransactionFailed) throw;
      return Standing::Failed;
    }
  }
  inTransaction_ = adoption_->IsOwn();
  return standing;
}

// No transaction was open before, so what a failure leaves of one is ours.
void Session::BeginForProgram(const String& modes) {
  try {
    RunPlain(u"BEGIN " + modes + String(Adoption::MarkOwn()));
    AskProgram();
  } catch (...) {
    if (IsOpen()) RunPlain(u"ROLLBACK");
    throw;
  }
  adoption_->NoteOwn();
  inTransaction_ = true;
}

// Without settings, which a savepoint of the program would keep.
void Session::GuardSavepoint(const String& text) {
  RunBracket(u"SAVEPOINT tessaria_statement");
  try {
    RunPlain(text);
  } catch (...) {
    if (IsOpen()) RunBracket(Adoption::Undo());
    throw;
  }
}

// The driver of an adopted connection keeps the mode that the program has given it.
void Session::SendEnd(void (Link::*end)(), const String& text) {
  if (adoption_) return RunPlain(text);
  Await([link = RequireLink(), end] { (*link.*end)(); });
}

void Session::ThrowFailed() {
  throw HostError(errors::ProviderError,
                  u"Um comando da transação do programa falhou: ela só pode ser desfeita "
                  u"(ROLLBACK). Nada foi enviado.");
}

// The program may have ended it, begun another one and made that fail.
void Session::RollbackOwn() {
  try {
    RunPlain(String(Adoption::UndoOwn()));
  } catch (const DriverError& error) {
    if (error.SqlState() != kNoSuchSavepoint) throw;
    ThrowFailed();
  }
}

// Undoes a transaction that was begun here, if it is still open.
void Session::LeaveProgram() noexcept {
  if (!inTransaction_ || !IsOpen()) return;
  try {
    AskProgram();
    if (inTransaction_) RollbackOwn();
  } catch (...) {
    // The connection is gone, or the program reads something there.
  }
}

// One text is one transaction for the server, which ends by itself in either way.
void Session::RunAlone(Statement& statement, const String& text, int results) {
  try {
    RunAfter(statement, OwnSettings(), Adoption::SettingCount(), text, results);
  } catch (const DriverError& error) {
    if (!error.IsRefusedInTransaction()) throw;
    RunAfter(statement, {}, 0, text, results);
  }
  KeepRest(statement, 1);
}

}  // namespace tessaria::sql
