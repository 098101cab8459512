// Saving the row of a RecordForm: checks, the transaction, refusals, and other users' changes.
#include <QScopedValueRollback>

#include "hosts/qt/items/form_fields.h"
#include "hosts/qt/program/modal_box.h"
#include "hosts/qt/record/choice_box.h"
#include "hosts/qt/record/conflict_window.h"
#include "hosts/qt/record/record_form.h"
#include "hosts/qt/record/row_saving.h"
#include "hosts/qt/record/save_failure.h"
#include "tessaria/host/application.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/settle.h"
#include "tessaria/qt/text.h"

namespace tessaria::qt {

void RecordForm::leaveRow(bool& refused) {
  if (refused || (!parts_->isBusy && !isChanged())) return;
  if (parts_->isBusy) {
    refused = true;
    return;
  }
  const QPointer<RecordForm> self(this);
  refused = !(parts_->wasChecked || check()) || !self;
  if (refused || !isChanged()) return;
  refused = !write() || !self;
}

// --- Checks

bool RecordForm::check() {
  const auto parts = parts_;
  const QScopedValueRollback busy(parts->isBusy, true);
  const QPointer<RecordForm> self(this);
  bool refused = false;
  const auto announce = [&] { emit saving(refused); };
  if (!guarded(parts->form, announce) || !self || refused) return false;
  if (!settleForSaving(*parts->form) || !self) return false;
  QList<QPointer<TsText>> fields;
  for (TsText* field : parts->fields()) fields << field;
  for (const auto& field : fields) {
    if (!field || !field->isFieldEnabled()) continue;
    if (!checkForSaving(*field) || !self) return false;
  }
  return checkItems() && self && checkRow();
}

bool RecordForm::checkRow() {
  const auto parts = parts_;
  const QPointer<RecordForm> self(this);
  std::optional<Refusal> refusal;
  if (parts->check && !guarded(parts->form, [&] { refusal = parts->check(); })) return false;
  if (!self || !refusal) return self && !refusal;
  const QPointer<TsText> field(refusal->field);
  if (field) bringToOperator(*field);
  tell(host::box::Exclamation, refusal->text);
  if (field) field->setFocus(Qt::OtherFocusReason);
  return false;
}

// --- Writing

/// Until it is stored, or the operator goes back to the form.
bool RecordForm::write() {
  const auto parts = parts_;
  const QScopedValueRollback busy(parts->isBusy, true);
  const QPointer<RecordForm> self(this);
  // The hook may not leave the row, which has no edit then.
  parts->data->markRowChanged();
  if (parts->isUnknown && !ask(parts->texts.unknownQuestion())) return false;
  while (self) {
    const std::exception_ptr error = writeOnce();
    if (!self) return false;
    if (!error) break;
    if (!resolve(error)) return false;
  }
  if (!self) return false;
  parts->isMarked = parts->isStale = parts->isUnknown = parts->overwritesItems = false;
  for (const auto& items : parts->items)
    if (items) items->accept();
  guarded(parts->form, [this] { emit saved(); });
  return true;
}

/// What keeps the row from being stored; null when it is stored.
std::exception_ptr RecordForm::writeOnce() {
  const auto parts = parts_;
  const boundary::Entry entry;
  RowSaving saving{parts->rows(), parts->data->connection(), wholeHook(),
                   fromQt(parts->versionColumn), parts->hasMore()};
  std::exception_ptr error;
  try {
    if (!saving.rows) throw HostError(errors::ObjectNotSet);
    saveRow(saving);
  } catch (...) {
    error = std::current_exception();
  }
  parts->wasSent = saving.wasSent;
  return error;
}

/// Whether to write again.
bool RecordForm::resolve(const std::exception_ptr& error) {
  const SaveFailure failure(error);
  const host::RecordsetPtr rows = parts_->rows();
  if (failure.isRowChanged() && !isNew() && rows && rows->Recovery()) {
    const boundary::Entry entry;
    try {
      return resolveConflict(failure);
    } catch (...) {
      tellFailure(SaveFailure(std::current_exception()));
      return false;
    }
  }
  tellFailure(failure);
  return false;
}

void RecordForm::tellFailure(const SaveFailure& failure) {
  const auto parts = parts_;
  const QPointer<RecordForm> self(this);
  const host::RecordsetPtr rows = parts->rows();
  const bool isInDoubt = failure.isInDoubt();
  parts->isStale = parts->isStale || isInDoubt || failure.isRowChanged();
  const bool isKnownByRow = rows && rows->IsInDoubt();
  if (isInDoubt && parts->wasSent) {
    // What is noted from now on was not part of the transaction.
    parts->isUnknown = !isKnownByRow && parts->hasMore();
    if (isKnownByRow) parts->isMarked = false;
  }
  const bool isLost = parts->data && parts->data->connection() &&
                      parts->data->connection()->State() == host::state::Closed;
  const QString cause = failure.cause(isLost);
  QString details = failure.details();
  QString words;
  if (parts->words && guarded(parts->form, [&] { words = parts->words(details); }) &&
      !words.isEmpty())
    details = words;
  if (!self) return;
  tell(host::box::Stop, isInDoubt ? parts->texts.inDoubt(details, isKnownByRow)
                                  : parts->texts.refusal(cause, details));
  if (!self) return;
  tellNotSaved(isInDoubt ? parts->texts.inDoubtLine() : parts->texts.refusalLine(cause));
}

void RecordForm::tellNotSaved(const QString& reason) {
  guarded(parts_->form, [&] { emit notSaved(reason); });
}

// --- Other users' changes

/// Whether to write again. Raises the errors of reading the row.
bool RecordForm::resolveConflict(const SaveFailure& failure) {
  const auto parts = parts_;
  const host::RecordsetPtr rows = parts->rows();
  const host::StoredRowPtr stored = rows->Recovery()->ReadStored();
  if (!stored) return decideOnDeleted();
  const ConflictView view{parts->fields(), parts->captions, parts->hidden,
                          parts->versionColumn.toLower()};
  QList<ConflictingColumn> columns = conflictOf(*rows, *stored, view);
  if (columns.isEmpty()) {
    // The hook has met a changed row of its own.
    tellFailure(failure);
    return false;
  }
  const QPointer<RecordForm> self(this);
  if (!choose(columns) || !self) {
    if (self) parts->isStale = true;
    if (self) tellNotSaved(parts->texts.conflictLine());
    return false;
  }
  takeChoice(*rows, stored, columns);
  parts->overwritesItems = true;
  if (parts->data) parts->data->refreshForm();
  if (self) enterAgain(parts->form);
  return self;
}

/// Shows the window; false when the operator goes back.
bool RecordForm::choose(QList<ConflictingColumn>& columns) {
  const bool anyShown = std::any_of(columns.begin(), columns.end(),
                                    [](const ConflictingColumn& c) { return c.isShown; });
  QWidget* const over = parts_->form->window();
  const QPointer<ConflictWindow> window(new ConflictWindow(
      windowOfBox(over),
      anyShown ? parts_->texts.conflictIntroduction() : parts_->texts.otherChangesIntroduction(),
      columns));
  window->setWindowTitle(parts_->texts.conflictTitle());
  const QPointer<QWidget> under(runBox(*window, over));
  const bool isChosen = window && window->result() == QDialog::Accepted;
  if (isChosen) columns = window->columns();
  delete window;
  returnTo(under);
  return isChosen;
}

bool RecordForm::decideOnDeleted() {
  const auto parts = parts_;
  const QPointer<RecordForm> self(this);
  enum Answer { SaveAsNew, Discard };
  const QStringList answers{parts->texts.saveAsNewAnswer(), QStringLiteral("&Descartar"),
                            QStringLiteral("&Voltar")};
  const qsizetype answer = chooseInBox(*parts->form, parts->texts.deletedQuestion(), answers);
  if (!self) return false;
  if (answer == SaveAsNew) {
    parts->rows()->Recovery()->Rebase(nullptr);
    parts->overwritesItems = true;
    return true;
  }
  parts->isStale = true;
  tellNotSaved(parts->texts.deletedLine());
  if (self && answer == Discard) {
    parts->isBusy = false;
    discard();
  }
  return false;
}

}  // namespace tessaria::qt
