#include "tessaria/qt/record_form.h"

#include <QDialog>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QWidget>

#include "hosts/qt/boundary/handles.h"
#include "hosts/qt/data/pending_edit.h"
#include "hosts/qt/form/widget_tree.h"
#include "hosts/qt/items/form_fields.h"
#include "hosts/qt/record/choice_box.h"
#include "hosts/qt/record/record_form.h"
#include "tessaria/compare.h"
#include "tessaria/host/application.h"
#include "tessaria/qt/event_boundary.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/variants.h"
#include "tessaria/thread_state.h"
#include "tessaria/tstext.h"

namespace tessaria::qt {
namespace {

Adodc* dataControlOf(QWidget* form, const QString& name) {
  for (Adodc* data : formOf(form)->findChildren<Adodc*>())
    if (data->objectName().compare(name, Qt::CaseInsensitive) == 0) return data;
  return nullptr;
}

bool isBound(const TsText& field) {
  return !field.dataSource().isEmpty() && !field.dataField().isEmpty();
}

/// Escape hides a dialog without a close event.
bool closesWindow(const QWidget& window, const QEvent& event) {
  if (event.type() == QEvent::Close) return true;
  return event.type() == QEvent::KeyPress && qobject_cast<const QDialog*>(&window) &&
         static_cast<const QKeyEvent&>(event).matches(QKeySequence::Cancel);
}

}  // namespace

host::RecordsetPtr RecordForm::Parts::rows() const {
  const host::RecordsetPtr rows = data ? data->recordSet() : nullptr;
  return rows && rows->State() != host::state::Closed ? rows : nullptr;
}

QList<TsText*> RecordForm::Parts::fields() const {
  if (!form || !data) return {};
  QList<TsText*> fields = fieldsInTabOrder(*form, *data);
  fields.removeIf([this](TsText* field) { return isIgnored(field); });
  return fields;
}

RecordForm::RecordForm(QWidget* form, Adodc* data)
    : RecordForm(form, data, data ? data->objectName() : QString()) {}

RecordForm::RecordForm(QWidget* form, const QString& dataName)
    : RecordForm(form, dataControlOf(form, dataName), dataName) {}

RecordForm::RecordForm(QWidget* form, Adodc* data, const QString& dataName)
    : QObject(form), parts_(std::make_shared<Parts>()) {
  parts_->form = form;
  parts_->data = data;
  parts_->dataName = dataName;
  form->installEventFilter(this);
  if (!data) return;
  connect(data, &Adodc::leavingRow, this, &RecordForm::leaveRow);
  for (const auto shown : {&Adodc::moved, &Adodc::rowAdded, &Adodc::rowSaved, &Adodc::rowCancelled,
                           &Adodc::rowDeleted})
    connect(data, shown, this, &RecordForm::rowShown);
  for (const auto shown :
       {&Adodc::moved, &Adodc::rowAdded, &Adodc::rowCancelled, &Adodc::rowDeleted})
    connect(data, shown, this, &RecordForm::loadItems);
  watchFields();
}

RecordForm::~RecordForm() = default;

// --- What the program tells

void RecordForm::setRecordName(const QString& nameWithArticle) {
  parts_->texts = RecordTexts(nameWithArticle);
}
void RecordForm::setDescription(std::function<QString()> describe) {
  parts_->describe = std::move(describe);
}
void RecordForm::setRefusalWords(std::function<QString(const QString& details)> words) {
  parts_->words = std::move(words);
}
void RecordForm::setCheck(Check check) { parts_->check = std::move(check); }
void RecordForm::setTransactionHook(TransactionHook hook) { parts_->hook = std::move(hook); }
void RecordForm::setVersionColumn(const QString& column) { parts_->versionColumn = column; }
void RecordForm::ignore(TsText* field) { parts_->ignored << field; }
void RecordForm::setColumnCaption(const QString& column, const QString& caption) {
  parts_->captions.insert(column.toLower(), caption);
}
void RecordForm::hideColumn(const QString& column) { parts_->hidden << column.toLower(); }

// --- Changes

bool RecordForm::isNew() const {
  const auto rows = parts_->rows();
  return rows && rows->EditMode() == host::EditMode::Add;
}

bool RecordForm::isChanged() const {
  const auto rows = parts_->rows();
  if (!rows || parts_->isDropped) return false;
  if (parts_->hasMore() || hasEdit(*rows)) return true;
  const QList<TsText*> fields = parts_->fields();
  return std::any_of(fields.begin(), fields.end(),
                     [](TsText* field) { return field->control().IsTouched(); });
}

void RecordForm::markChanged() {
  if (!parts_->data || !parts_->rows()) return;
  parts_->isMarked = true;
  parts_->data->markRowChanged();
  lookSoon();
}

void RecordForm::watchFields() {
  if (!parts_->form) return;
  for (TsText* field : parts_->form->findChildren<TsText*>()) {
    connect(field, &TsText::changed, this, &RecordForm::lookSoon, Qt::UniqueConnection);
    connect(field, &TsText::browseReturn, this, &RecordForm::lookSoon, Qt::UniqueConnection);
  }
}

/// A text that is typed where there is no row would be written nowhere. One that has been left
/// already, or was picked, is kept by its field alone; a number is 0 there.
void RecordForm::beginFirstRow() {
  const auto rows = parts_->rows();
  if (!rows || parts_->isDropped || hasEdit(*rows) || !rows->Bof() || !rows->Eof()) return;
  for (TsText* field : parts_->fields()) {
    if (!isBound(*field)) continue;
    const Variant value = field->control().Value();
    const bool isTouched = field->control().IsTouched();
    const bool isKept = !isTouched && !value.IsNull() && !Equal(value, Variant());
    if (!isTouched && !isKept) continue;
    if (!hasEdit(*rows) && !parts_->data->beginFirstRow()) return;
    if (isKept) field->setValue(toQVariant(value));
  }
}

/// A field reports a change in the middle of its work, and a new row comes as many changes.
void RecordForm::lookSoon() {
  if (std::exchange(parts_->willLook, true)) return;
  QMetaObject::invokeMethod(this, &RecordForm::look, Qt::QueuedConnection);
}

void RecordForm::look() {
  parts_->willLook = false;
  beginFirstRow();
  const bool changed = isChanged();
  if (std::exchange(parts_->wasChanged, changed) == changed) return;
  guarded(parts_->form, [&] { emit changedStateChanged(changed); });
}

void RecordForm::rowShown() {
  parts_->isMarked = parts_->isStale = parts_->isUnknown = parts_->isDropped = false;
  parts_->overwritesItems = false;
  watchFields();
  lookSoon();
}

// --- Commands

bool RecordForm::hasData() {
  if (parts_->data) return true;
  tell(host::box::Stop,
       QStringLiteral("O formulário não tem o controle de dados \"%1\".").arg(parts_->dataName));
  return false;
}

void RecordForm::tell(Long style, const QString& text) {
  if (!parts_->form) return;
  QWidget* const window = parts_->form->window();
  State().application->ShowMessageBox(handleOf(*window), fromQt(text), style,
                                      fromQt(window->windowTitle()));
}

bool RecordForm::ask(const QString& text) {
  if (!parts_->form) return false;
  QWidget* const window = parts_->form->window();
  const Long style = host::box::YesNo + host::box::Question + host::box::DefaultNo;
  return State().application->ShowMessageBox(handleOf(*window), fromQt(text), style,
                                             fromQt(window->windowTitle())) == host::answer::Yes;
}

bool RecordForm::save() {
  if (!hasData() || parts_->isBusy) return false;
  beginFirstRow();
  if (!isChanged()) return true;
  const QPointer<RecordForm> self(this);
  if (!check() || !self) return false;
  if (!isChanged()) return true;  // what was typed is what the row holds
  const auto parts = parts_;
  const QScopedValueRollback checked(parts->wasChecked, true);
  return parts->data && parts->data->saveRow();
}

bool RecordForm::undo() {
  if (!hasData() || parts_->isBusy) return false;
  const QPointer<RecordForm> self(this);
  if (isChanged() && !ask(parts_->texts.dropQuestion())) return false;
  return self && discard();
}

bool RecordForm::discard() {
  if (!hasData() || parts_->isBusy) return false;
  const auto parts = parts_;
  const host::RecordsetPtr rows = parts->rows();
  const bool isStale = parts->isStale;
  const bool mayBeAdded = rows && rows->IsInDoubt() && isNew();
  if (!parts->data->cancelRow() || !parts->data) return false;
  if (mayBeAdded) return parts->data->refresh();
  return !isStale || parts->data->readRowAgain();
}

bool RecordForm::addRow() { return move(&Adodc::addRow); }
bool RecordForm::moveFirst() { return move(&Adodc::moveFirst); }
bool RecordForm::movePrevious() { return move(&Adodc::movePrevious); }
bool RecordForm::moveNext() { return move(&Adodc::moveNext); }
bool RecordForm::moveLast() { return move(&Adodc::moveLast); }

/// The data control asks by `leavingRow`.
bool RecordForm::move(bool (Adodc::*step)()) {
  beginFirstRow();
  return hasData() && !parts_->isBusy && (parts_->data->*step)();
}

bool RecordForm::deleteRow() {
  if (!hasData() || parts_->isBusy) return false;
  if (isNew()) return undo();
  const auto parts = parts_;
  const host::RecordsetPtr rows = parts->rows();
  if (!rows || rows->Bof() || rows->Eof()) return false;
  QString description;
  if (parts->describe && !guarded(parts->form, [&] { description = parts->describe(); }))
    return false;
  const QPointer<RecordForm> self(this);
  if (!self || !ask(parts->texts.deleteQuestion(description)) || !self) return false;
  bool isOutdated = false;
  const auto watch = connect(parts->data, &Adodc::error, this, [&isOutdated](int number) {
    isOutdated = isOutdated || number == errors::RowChanged;
  });
  const bool isDeleted = parts->data->deleteRow();
  disconnect(watch);
  // The operator has been told that another user changed it, and sees how.
  if (!isDeleted && isOutdated && parts->data) parts->data->readRowAgain();
  return isDeleted;
}

// --- Closing

bool RecordForm::asksOnClose() const { return parts_->asksOnClose; }

void RecordForm::setAsksOnClose(bool ask) {
  if (parts_->asksOnClose && !ask && parts_->window)
    parts_->window->setProperty("asksBeforeClosing", {});
  parts_->asksOnClose = ask;
  watchWindow();
}

/// The form may be put into another window later. The window asks its operator itself whether a
/// field that refuses keeps it open.
void RecordForm::watchWindow() {
  if (!parts_->form) return;
  QWidget* const window = parts_->asksOnClose ? parts_->form->window() : nullptr;
  if (window == parts_->window) return;
  if (parts_->window && parts_->window != parts_->form) parts_->window->removeEventFilter(this);
  parts_->window = window;
  if (!window) return;
  window->installEventFilter(this);
  window->setProperty("asksBeforeClosing", true);
}

bool RecordForm::eventFilter(QObject* object, QEvent* event) {
  if (object == parts_->form && event->type() == QEvent::Show) {
    watchWindow();
    watchFields();
    if (parts_->isDropped) showDroppedSoon();
  }
  if (object == parts_->window && closesWindow(*parts_->window, *event)) {
    const QPointer<QObject> alive(object);
    if (!mayClose() || !alive) {
      event->ignore();
      return true;
    }
  }
  return QObject::eventFilter(object, event);
}

bool RecordForm::mayClose() {
  beginFirstRow();
  if (!isChanged()) return true;
  if (!parts_->form || parts_->isBusy) return false;
  enum Answer { Save, Discard };
  const QPointer<RecordForm> self(this);
  const QStringList answers{QStringLiteral("&Salvar"), QStringLiteral("&Descartar"),
                            QStringLiteral("&Continuar editando")};
  const qsizetype answer = chooseInBox(*parts_->form, parts_->texts.closeQuestion(), answers);
  if (!self) return false;
  if (answer == Save) return save();
  return answer == Discard && dropForClosing();
}

/// The row is loaded again only if the form stays, or is shown once more: a window that closes does
/// not wait for a server.
bool RecordForm::dropForClosing() {
  const host::RecordsetPtr rows = parts_->rows();
  if (!rows || rows->IsInDoubt()) {
    discard();
    return true;
  }
  if (!guarded(parts_->form, [&] { rows->CancelUpdate(); })) return false;
  parts_->isDropped = true;
  lookSoon();
  showDroppedSoon();
  return true;
}

void RecordForm::showDroppedSoon() {
  const auto show = [this] {
    if (parts_->isDropped && parts_->form && parts_->form->isVisible()) discard();
  };
  QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
}

}  // namespace tessaria::qt
