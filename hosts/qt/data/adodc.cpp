#include "tessaria/qt/adodc.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QShortcut>
#include <QToolButton>

#include "hosts/qt/conversion/colours.h"
#include "hosts/qt/conversion/drawn_icon.h"
#include "hosts/qt/data/pending_edit.h"
#include "hosts/qt/data/row_in_doubt.h"
#include "hosts/qt/form/control_pointer.h"
#include "hosts/qt/form/first_show.h"
#include "hosts/qt/form/widget_tree.h"
#include "tessaria/field_settings.h"
#include "tessaria/qt/design_time.h"
#include "tessaria/qt/form.h"
#include "tessaria/qt/host.h"
#include "tessaria/qt/settle.h"
#include "tessaria/qt/text.h"
#include "tessaria/text.h"

namespace tessaria::qt {
namespace {

Adodc::ConnectionFactory& factory() {
  static thread_local Adodc::ConnectionFactory instance;
  return instance;
}

host::Recordset& require(const host::RecordsetPtr& rows) {
  if (!rows) throw HostError(errors::ObjectNotSet);
  return *rows;
}

bool hasRow(const host::Recordset& rows) { return !rows.Bof() && !rows.Eof(); }

bool isWritable(host::Recordset& rows) {
  for (Long i = 0; i < rows.Fields().Count(); ++i)
    if ((rows.Fields().Item(i)->Attributes() & host::attribute::Updatable) != 0) return true;
  return false;
}

/// Moves from before the first row, or from after the last one, back onto it.
void stayOnARow(host::Recordset& rows) {
  if (rows.Bof() && rows.Eof()) return;
  if (rows.Eof()) rows.MoveLast();
  if (rows.Bof()) rows.MoveFirst();
}

/// Moves from a deleted row to the next one, or to the last.
void leaveDeletedRow(host::Recordset& rows) {
  if (rows.EditMode() != host::EditMode::Delete) return;
  rows.MoveNext();
  stayOnARow(rows);
}

/// Whether there is a row to move from.
bool standsOnRow(host::Recordset& rows) {
  leaveDeletedRow(rows);
  return hasRow(rows);
}

struct Navigation {
  DrawnShape shape;
  const char* name;
  const char* keys;
  bool (Adodc::*move)();
};

constexpr Navigation kNavigation[] = {
    {DrawnShape::First, "Primeiro", "Alt+Home", &Adodc::moveFirst},
    {DrawnShape::Previous, "Anterior", "Alt+PgUp", &Adodc::movePrevious},
    {DrawnShape::Next, "Próximo", "Alt+PgDown", &Adodc::moveNext},
    {DrawnShape::Last, "Último", "Alt+End", &Adodc::moveLast},
};

/// Its picture stands out from its form, in a dark one too.
class StepButton final : public QToolButton {
 public:
  StepButton(DrawnShape shape, QWidget* parent) : QToolButton(parent), shape_(shape) { showIcon(); }

 protected:
  void changeEvent(QEvent* event) override {
    if (event->type() == QEvent::PaletteChange) showIcon();
    QToolButton::changeEvent(event);
  }

 private:
  void showIcon() { setIcon(drawnIcon(shape_, isDark(palette()))); }

  DrawnShape shape_;
};

}  // namespace

Adodc::Adodc(QWidget* parent) : QWidget(parent), label_(new QLabel(this)) {
  install();
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  for (const Navigation& step : kNavigation) {
    if (step.move == &Adodc::moveNext) row->addWidget(label_, 1);
    row->addWidget(addButton(int(step.shape), QString::fromUtf8(step.name),
                             QKeySequence(QLatin1String(step.keys)), step.move));
  }
  setNavigationKeys(true);
  label_->setAlignment(Qt::AlignCenter);
  label_->setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  showPosition();
}

Adodc::Adodc(const DataControlSettings& settings, QWidget* parent) : Adodc(parent) {
  setObjectName(toQt(settings.name));
  setRecordSource(toQt(settings.recordSource));
  setConnectionString(toQt(settings.connectionString));
  setCaption(toQt(settings.caption));
  setNavigationKeys(settings.navigationKeys);
  setRefreshesForm(settings.refreshesForm);
}

Adodc::~Adodc() = default;

/// The keys work anywhere in the window and do not move the focus.
QToolButton* Adodc::addButton(int shape, const QString& name, const QKeySequence& keys,
                              bool (Adodc::*move)()) {
  auto* button = new StepButton(static_cast<DrawnShape>(shape), this);
  button->setAccessibleName(name);
  button->setFocusPolicy(Qt::ClickFocus);
  connect(button, &QToolButton::clicked, this, [this, move] { (this->*move)(); });
  auto* shortcut = new QShortcut(keys, this);
  const auto pressed = [this, move] { moveByKey(move); };
  connect(shortcut, &QShortcut::activated, this, pressed);
  connect(shortcut, &QShortcut::activatedAmbiguously, this, pressed);
  buttons_ << button;
  shortcuts_ << shortcut;
  return button;
}

bool Adodc::navigationKeys() const { return shortcuts_.first()->isEnabled(); }

void Adodc::setNavigationKeys(bool move) {
  for (qsizetype i = 0; i < buttons_.size(); ++i) {
    shortcuts_[i]->setEnabled(move);
    const QString name = buttons_[i]->accessibleName();
    const QString keys = shortcuts_[i]->key().toString(QKeySequence::NativeText);
    buttons_[i]->setToolTip(move ? QStringLiteral("%1 (%2)").arg(name, keys) : name);
  }
}

/// If a window has several data controls, the one whose field has the focus moves.
void Adodc::moveByKey(bool (Adodc::*move)()) {
  Adodc* target = this;
  Surface* field = surfaceOf(window()->focusWidget());
  if (field && !field->dataSource().isEmpty())
    for (Adodc* other : formOf(&field->widget())->findChildren<Adodc*>())
      if (other->objectName().compare(field->dataSource(), Qt::CaseInsensitive) == 0)
        target = other;
  if (target->isEnabled() && target->buttons_.first()->isEnabled()) (target->*move)();
}

// --- Where the rows come from

QString Adodc::connectionString() const {
  return connection_ ? toQt(connection_->ConnectionString()) : connectionString_;
}

void Adodc::setConnectionString(const QString& text) {
  connectionString_ = text;
  setConnection(nullptr);
}

void Adodc::setRecordSource(const QString& source) {
  recordSource_ = source;
  designFailure_.reset();
}

void Adodc::setCaption(const QString& text) {
  caption_ = text;
  showPosition();
}

void Adodc::setConnection(host::ConnectionPtr connection) {
  connection_ = std::move(connection);
  designFailure_.reset();
}

void Adodc::setConnectionFactory(ConnectionFactory make) { factory() = std::move(make); }

// A connection that was lost is opened by the statement that asks the operator.
void Adodc::ensureConnection() {
  if (!connection_ && connectionString_.isEmpty()) connection_ = connectionOf(*formOf(this));
  if (!connection_ && factory()) connection_ = factory()(connectionString_);
  if (!connection_) throw HostError(errors::InvalidConnection);
  if (connection_->State() == host::state::Closed && !connection_->IsLost()) connection_->Open();
}

QString Adodc::designError() const {
  return designFailure_ ? toQt(designFailure_->Description()) : QString();
}

// Every bound field asks for the rows of a form under design, which a dead server delays each time.
void Adodc::open() {
  if (!formUnderDesign(this)) return openRows();
  if (designFailure_) throw HostError(*designFailure_);
  try {
    openRows();
  } catch (const HostError& error) {
    designFailure_ = error;
    throw;
  }
}

void Adodc::openRows() {
  ensureConnection();
  recordSet_ = connection_->OpenRecordset(fromQt(recordSource_), host::CursorType::Static,
                                          host::LockType::Optimistic);
  showPosition();
}

void Adodc::formShown() {
  if (recordSet_ || recordSource_.isEmpty()) return;
  if (connectionString().isEmpty() && !connectionOf(*formOf(this))) return;
  guarded(this, [this] { open(); });
}

bool Adodc::refresh() {
  const QPointer<Adodc> self(this);
  if (!settleField() || !mayLeaveRow()) return false;
  const bool opened = guarded(this, [this] {
    ensureConnection();
    if (isEditPending()) writeOrLookFor(*recordSet_);
    open();
  });
  if (!opened || !self) return false;
  loadRow();
  if (self) tell(&Adodc::moved);
  return true;
}

// --- Moves and edits

/// A field that refuses has told the operator why. A row that the program has deleted accepts no
/// text.
bool Adodc::settleField() {
  if (recordSet_ && recordSet_->State() != host::state::Closed &&
      recordSet_->EditMode() == host::EditMode::Delete)
    return true;
  const QPointer<Adodc> self(this);
  return settle(this) && self;
}

bool Adodc::mayLeaveRow() {
  if (!isEditPending() && !rowMarked_) return true;
  const QPointer<Adodc> self(this);
  bool refused = false;
  const bool answered = guarded(this, [&] { emit leavingRow(refused); });
  return answered && self && !refused;
}

/// The operation is done, whatever a handler does.
void Adodc::tell(void (Adodc::*signal)()) {
  guarded(this, [&] { emit(this->*signal)(); });
}

bool Adodc::run(const Work& work, void (Adodc::*done)()) {
  const QPointer<Adodc> self(this);
  if (!settleField() || !mayLeaveRow()) return false;
  if (!guarded(this, [&] { work(require(recordSet_)); }) || !self) return false;
  loadRow();
  if (self) tell(done);
  return true;
}

bool Adodc::moveFirst() {
  return run(
      [](host::Recordset& rows) {
        if (standsOnRow(rows)) rows.MoveFirst();
      },
      &Adodc::moved);
}

bool Adodc::movePrevious() {
  return run(
      [](host::Recordset& rows) {
        if (hasRow(rows)) rows.MovePrevious();
        stayOnARow(rows);
      },
      &Adodc::moved);
}

bool Adodc::moveNext() {
  return run(
      [](host::Recordset& rows) {
        if (hasRow(rows)) rows.MoveNext();
        stayOnARow(rows);
      },
      &Adodc::moved);
}

bool Adodc::moveLast() {
  return run(
      [](host::Recordset& rows) {
        if (standsOnRow(rows)) rows.MoveLast();
      },
      &Adodc::moved);
}

bool Adodc::findRow(const QString& criteria) {
  bool found = false;
  return run(
             [&](host::Recordset& rows) {
               if (!standsOnRow(rows)) return;
               const Long before = rows.AbsolutePosition();
               rows.MoveFirst();
               try {
                 rows.Find(fromQt(criteria));
               } catch (...) {
                 rows.AbsolutePosition(before);
                 throw;
               }
               found = !rows.Eof();
               if (!found) rows.AbsolutePosition(before);
             },
             &Adodc::moved) &&
         found;
}

bool Adodc::isEditPending() const {
  return recordSet_ && recordSet_->State() != host::state::Closed && hasEdit(*recordSet_);
}

bool Adodc::addRow() {
  return run([](host::Recordset& rows) { rows.AddNew(); }, &Adodc::rowAdded);
}

bool Adodc::beginFirstRow() {
  if (!recordSet_ || recordSet_->State() == host::state::Closed || hasEdit(*recordSet_) ||
      !recordSet_->Bof() || !recordSet_->Eof())
    return false;
  const bool isBegun = guarded(this, [this] {
    if (isWritable(*recordSet_)) recordSet_->AddNew();
  });
  showPosition();
  return isBegun && hasEdit(*recordSet_);
}

bool Adodc::saveRow() {
  return run(
      [](host::Recordset& rows) {
        if (hasEdit(rows)) rows.Update();
      },
      &Adodc::rowSaved);
}

bool Adodc::cancelRow() {
  const QPointer<Adodc> self(this);
  bool inDoubt = false;
  auto edit = host::EditMode::None;
  // The text in the focused field is discarded too: it is not settled.
  const bool dropped = guarded(this, [&] {
    host::Recordset& rows = require(recordSet_);
    inDoubt = rows.IsInDoubt();
    edit = rows.EditMode();
    if (hasEdit(rows)) rows.CancelUpdate();
    leaveDeletedRow(rows);
    stayOnARow(rows);
  });
  if (!dropped || !self) return false;
  loadRow();
  if (self && inDoubt) guarded(this, [edit] { tellGivenUpInDoubt(edit); });
  if (self) tell(&Adodc::rowCancelled);
  return true;
}

bool Adodc::deleteRow() {
  const QPointer<Adodc> self(this);
  bool inDoubt = false;
  const bool deleted = guarded(this, [&] {
    host::Recordset& rows = require(recordSet_);
    inDoubt = rows.IsInDoubt() && rows.EditMode() == host::EditMode::Add;
    rows.Delete();
  });
  if (!deleted || !self) return false;
  // The row is deleted even if the step to the next one fails. A new row was only dropped.
  const bool stepped = guarded(this, [this] {
    leaveDeletedRow(*recordSet_);
    stayOnARow(*recordSet_);
  });
  if (!self) return false;
  // The rows before it have been read already.
  if (!stepped) guarded(this, [this] { recordSet_->MovePrevious(); });
  if (!self) return false;
  loadRow();
  if (self && inDoubt) guarded(this, [] { tellGivenUpInDoubt(host::EditMode::Add); });
  if (self) tell(&Adodc::rowDeleted);
  return true;
}

bool Adodc::readRowAgain() {
  const QPointer<Adodc> self(this);
  const bool isRead = guarded(this, [this] {
    host::Recordset& rows = require(recordSet_);
    if (hasEdit(rows)) rows.CancelUpdate();
    if (hasRow(rows)) {
      host::RowRecovery* recovery = rows.Recovery();
      if (!recovery) throw HostError(errors::NotUpdatable);
      recovery->Rebase(recovery->ReadStored());
    }
    leaveDeletedRow(rows);
    stayOnARow(rows);
  });
  if (!isRead || !self) return false;
  loadRow();
  if (self) tell(&Adodc::moved);
  return true;
}

void Adodc::loadRow() {
  const QPointer<Adodc> self(this);
  rowMarked_ = false;
  showPosition();
  if (refreshesForm_) {
    refreshForm();
    if (!self) return;
    enterAgain(this);
  }
  if (self) showPosition();
}

void Adodc::refreshForm() {
  const QString name = objectName();
  QList<ControlPointer<Surface>> controls;
  for (Surface* control : inLoadOrder(formOf(this)))
    if (control->dataSource().compare(name, Qt::CaseInsensitive) == 0) controls << control;
  for (const auto& control : controls)
    if (control) control->refresh();
}

void Adodc::unhandled(int number, const QString& description) { emit error(number, description); }

// --- Looks

void Adodc::showPosition() {
  QString text = caption_;
  guarded(this, [&] {
    if (!text.isEmpty() || !recordSet_ || recordSet_->State() == host::state::Closed) return;
    const bool isNew = recordSet_->EditMode() == host::EditMode::Add;
    const Long row = isNew ? 0 : recordSet_->PositionIfKnown();
    text = isNew      ? QStringLiteral("Novo registro")
           : row == 0 ? QStringLiteral("Registro novo, gravado")
           : row > 0  ? QStringLiteral("Registro %1").arg(row)
                      : QStringLiteral("Sem registros");
  });
  label_->setText(text);
  enableButtons();
}

/// The buttons stay enabled at either end: a move there still writes the pending edit.
void Adodc::enableButtons() {
  bool anyRow = false;
  guarded(this, [&] {
    anyRow = recordSet_ && recordSet_->State() != host::state::Closed && hasRow(*recordSet_);
  });
  for (QToolButton* button : buttons_) button->setEnabled(anyRow);
}

}  // namespace tessaria::qt
