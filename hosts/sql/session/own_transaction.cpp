// Transactions that a session begins for itself: around a cursor, and around each statement where
// settings reach no further.
#include "hosts/sql/driver/bounded_call.h"
#include "hosts/sql/session/local_settings.h"
#include "hosts/sql/session/session.h"

namespace tessaria::sql {

// What a new transaction needs before its first statement.
void Session::SetLocally(const String& modes) {
  if (!modes.empty()) RunBracket(u"SET TRANSACTION " + modes);
  if (scope_ == SettingsScope::Session || !server_.IsPostgres()) return;
  RunBracket(LocalSettings(commandTimeout_, lockTimeout_));
  Await([link = RequireLink()] { link->NoteProcess(); }, 1, true);
}

void Session::BeginReading() {
  if (adoption_) {
    RunBracket(u"BEGIN; " + OwnSettings());
    inOwnTransaction_ = true;
    return;
  }
  Await([link = RequireLink()] { link->Begin(); }, 1, true);
  inOwnTransaction_ = true;
  SetLocally({});
}

void Session::EndReading() {
  inOwnTransaction_ = false;
  SendEnd(&Link::Commit, u"COMMIT");
}

void Session::AbandonReading() noexcept {
  if (!IsOpen()) return;
  if (!patience_->IsIdle()) {
    leftReading_ = true;
    return;
  }
  inOwnTransaction_ = false;
  const auto undo = [link = link_, isLent = IsAdopted()] {
    isLent ? link->NewStatement()->Run(u"ROLLBACK") : link->Rollback();
  };
  Tidy(undo, kSilence, true);
}

// Whether a statement needs a transaction of its own, for its settings.
bool Session::StandsAlone() const {
  const bool isLocal = scope_ == SettingsScope::Transaction && server_.IsPostgres();
  return (adoption_ || isLocal) && !InTransaction() && !inOwnTransaction_;
}

void Session::InItsScope(const std::function<void()>& work) {
  if (!StandsAlone()) return work();
  try {
    BeginReading();
    work();
  } catch (const DriverError& error) {
    AbandonReading();
    if (!error.IsRefusedInTransaction()) throw;
    return work();
  } catch (...) {
    AbandonReading();
    throw;
  }
  EndReading();
}

}  // namespace tessaria::sql
