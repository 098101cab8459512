#include "hosts/qt/adodc.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPointer>
#include <QStyle>
#include <QToolButton>

#include "hosts/qt/focus_cycle.h"
#include "hosts/qt/form_events.h"
#include "hosts/qt/host.h"
#include "hosts/qt/text.h"
#include "hosts/qt/tstext.h"
#include "hosts/qt/widget_tree.h"
#include "runtime/text.h"

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

/// From before the first row or behind the last one back onto it.
void stayOnARow(host::Recordset& rows) {
  if (rows.Bof() && rows.Eof()) return;
  if (rows.Eof()) rows.MoveLast();
  if (rows.Bof()) rows.MoveFirst();
}

}  // namespace

Adodc::Adodc(QWidget* parent) : QWidget(parent), label_(new QLabel(this)) {
  install();
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  row->addWidget(addButton(QStyle::SP_MediaSkipBackward, tr("Primeiro"), &Adodc::moveFirst));
  row->addWidget(addButton(QStyle::SP_MediaSeekBackward, tr("Anterior"), &Adodc::movePrevious));
  row->addWidget(label_, 1);
  row->addWidget(addButton(QStyle::SP_MediaSeekForward, tr("Próximo"), &Adodc::moveNext));
  row->addWidget(addButton(QStyle::SP_MediaSkipForward, tr("Último"), &Adodc::moveLast));
  label_->setAlignment(Qt::AlignCenter);
  label_->setTextFormat(Qt::PlainText);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  showPosition();
}

Adodc::~Adodc() = default;

QToolButton* Adodc::addButton(int icon, const QString& name, bool (Adodc::*move)()) {
  auto* button = new QToolButton(this);
  button->setIcon(style()->standardIcon(static_cast<QStyle::StandardPixmap>(icon)));
  button->setAccessibleName(name);
  button->setToolTip(name);
  button->setFocusPolicy(Qt::ClickFocus);
  connect(button, &QToolButton::clicked, this, [this, move] { (this->*move)(); });
  buttons_ << button;
  return button;
}

// --- Where the rows come from
// ---------------------------------------------------------------------

QString Adodc::connectionString() const {
  return connection_ ? toQt(connection_->ConnectionString()) : connectionString_;
}

void Adodc::setConnectionString(const QString& text) {
  connectionString_ = text;
  connection_ = nullptr;
}

void Adodc::setRecordSource(const QString& source) { recordSource_ = source; }

void Adodc::setCaption(const QString& text) {
  caption_ = text;
  showPosition();
}

void Adodc::setConnection(host::ConnectionPtr connection) { connection_ = std::move(connection); }

void Adodc::setConnectionFactory(ConnectionFactory make) { factory() = std::move(make); }

void Adodc::open() {
  if (!connection_ && factory()) connection_ = factory()(connectionString_);
  if (!connection_) throw HostError(errors::InvalidConnection);
  if (connection_->State() == host::state::Closed) connection_->Open();
  recordSet_ = connection_->OpenRecordset(fromQt(recordSource_), host::CursorType::Static,
                                          host::LockType::Optimistic);
  showPosition();
}

void Adodc::openAtFirstShow() {
  if (recordSet_ || recordSource_.isEmpty() || connectionString().isEmpty()) return;
  guarded(this, [this] { open(); });
}

bool Adodc::refresh() {
  const QPointer<Adodc> self(this);
  if (!settleField() || !mayLeaveRow()) return false;
  if (!guarded(this, [this] { open(); }) || !self) return false;
  loadRow();
  if (self) emit moved();
  return true;
}

// --- Moves and edits
// ------------------------------------------------------------------------------

/// A field that refuses has told the operator why.
bool Adodc::settleField() {
  const QPointer<Adodc> self(this);
  return settle(this) && self;
}

bool Adodc::mayLeaveRow() {
  if (!isEditPending()) return true;
  const QPointer<Adodc> self(this);
  bool refused = false;
  emit leavingRow(refused);
  return self && !refused;
}

bool Adodc::run(const Work& work, void (Adodc::*done)()) {
  const QPointer<Adodc> self(this);
  if (!settleField() || !mayLeaveRow()) return false;
  if (!guarded(this, [&] { work(require(recordSet_)); }) || !self) return false;
  loadRow();
  if (self) emit(this->*done)();
  return true;
}

bool Adodc::moveFirst() {
  return run(
      [](host::Recordset& rows) {
        if (hasRow(rows)) rows.MoveFirst();
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
        if (hasRow(rows)) rows.MoveLast();
      },
      &Adodc::moved);
}

bool Adodc::findRow(const QString& criteria) {
  bool found = false;
  return run(
             [&](host::Recordset& rows) {
               if (!hasRow(rows)) return;
               const Long before = rows.AbsolutePosition();
               rows.MoveFirst();
               rows.Find(fromQt(criteria));
               found = !rows.Eof();
               if (!found) rows.AbsolutePosition(before);
             },
             &Adodc::moved) &&
         found;
}

bool Adodc::isEditPending() const {
  return recordSet_ && recordSet_->State() != host::state::Closed &&
         recordSet_->EditMode() != host::EditMode::None;
}

bool Adodc::addRow() {
  return run([](host::Recordset& rows) { rows.AddNew(); }, &Adodc::rowAdded);
}

bool Adodc::saveRow() {
  return run(
      [](host::Recordset& rows) {
        if (rows.EditMode() != host::EditMode::None) rows.Update();
      },
      &Adodc::rowSaved);
}

bool Adodc::cancelRow() {
  const QPointer<Adodc> self(this);
  // What stands in the focused field is given up too: it is not settled.
  const bool dropped = guarded(this, [this] {
    host::Recordset& rows = require(recordSet_);
    if (rows.EditMode() != host::EditMode::None) rows.CancelUpdate();
    stayOnARow(rows);
  });
  if (!dropped || !self) return false;
  loadRow();
  if (self) emit rowCancelled();
  return true;
}

bool Adodc::deleteRow() {
  const QPointer<Adodc> self(this);
  const bool deleted = guarded(this, [this] {
    host::Recordset& rows = require(recordSet_);
    rows.Delete();
    if (!rows.Eof()) rows.MoveNext();
    stayOnARow(rows);
  });
  if (!deleted || !self) return false;
  loadRow();
  if (self) emit rowDeleted();
  return true;
}

void Adodc::loadRow() {
  const QPointer<Adodc> self(this);
  showPosition();
  if (refreshesForm_) {
    refreshForm();
    if (!self) return;
    if (FocusCycle* cycle = FocusCycle::existing(window())) cycle->enterAgain();
  }
  if (self) showPosition();
}

void Adodc::refreshForm() {
  const QString name = objectName();
  QList<QPointer<TsText>> controls;
  for (TsText* control : inLoadOrder(formOf(this)))
    if (control->dataSource().compare(name, Qt::CaseInsensitive) == 0) controls << control;
  for (const auto& control : controls)
    if (control) control->refresh();
}

void Adodc::unhandled(int number, const QString& description) { emit error(number, description); }

// --- Looks
// ----------------------------------------------------------------------------------------

void Adodc::showPosition() {
  QString text = caption_;
  guarded(this, [&] {
    if (!text.isEmpty() || !recordSet_ || recordSet_->State() == host::state::Closed) return;
    const bool isNew = recordSet_->EditMode() == host::EditMode::Add;
    const Long row = recordSet_->AbsolutePosition();
    text = isNew     ? QStringLiteral("Novo registro")
           : row > 0 ? QStringLiteral("Registro %1").arg(row)
                     : QStringLiteral("Sem registros");
  });
  label_->setText(text);
}

}  // namespace tessaria::qt
