#include "apps/demo/record_form.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <utility>

#include "apps/demo/database.h"
#include "apps/demo/failure.h"
#include "apps/demo/field_helpers.h"
#include "apps/demo/form_loader.h"
#include "apps/demo/messages.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/metatypes.h"
#include "tessaria/qt/pages.h"
#include "tessaria/qt/settle.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::demo {
namespace {

const QString kRefused = QStringLiteral("o banco de dados recusou");
const QString kGap = QStringLiteral("\n\n");
const QString kCancelled = QStringLiteral("a operação foi cancelada");
const QString kConnectionLost = QStringLiteral("a conexão com o banco de dados caiu");

}  // namespace

Variant single(const Database& database, const QString& statement) {
  const auto rows = database.connection()->Execute(qt::fromQt(statement));
  return rows->Eof() ? Variant::Null() : rows->Fields().Item(0)->Value();
}

RecordForm::RecordForm(Database& database, const QString& file, RecordKind kind, QWidget* parent)
    : QWidget(parent), database_(database), kind_(std::move(kind)) {
  setProperty("dbForm", QVariant::fromValue(database.connection()));
  loadForm(file, *this);
  findWidgets();
  loadRows();
}

void RecordForm::start() {
  connectFields();
  connectButtons();
}

void RecordForm::findWidgets() {
  for (const QString& name : kind_.fields) fields_ << field(name.toLatin1().constData());
  rows_ = widgetOf<qt::Adodc>(*this, "dados");
  rows_->setNavigationKeys(false);  // the window's menu has keys of its own
  key_ = field(kind_.keyField.toLatin1().constData());
  search_ = field("localizar");
  new_ = widgetOf<QPushButton>(*this, "btnNovo");
  save_ = widgetOf<QPushButton>(*this, "btnSalvar");
  cancel_ = widgetOf<QPushButton>(*this, "btnCancelar");
  delete_ = widgetOf<QPushButton>(*this, "btnExcluir");
}

qt::TsText* RecordForm::field(const char* name) const { return widgetOf<qt::TsText>(*this, name); }

void RecordForm::loadRows() {
  rows_->setConnection(database_.connection());
  try {
    rows_->open();
  } catch (const HostError& error) {
    throw Failure(QStringLiteral("O banco de dados não tem a tabela de %1 deste programa. "
                                 "Carregue-a com apps/demo/data/load.sql.\n\n%2")
                      .arg(kind_.table, qt::toQt(error.Description())));
  }
}

void RecordForm::connectFields() {
  for (qt::TsText* each : findChildren<qt::TsText*>()) moveOnWithEnter(each);
  for (qt::TsText* each : fields_) watchInput(each);
  // The last field is shown last: all fields then hold the first row.
  connect(fields_.last(), &qt::TsText::shown, this, &RecordForm::rowShown, Qt::QueuedConnection);
  connect(search_, &qt::TsText::browseReturn, this, [this](bool& changed) {
    if (!changed || !search_->lastValidaStatus()) return;
    const QString key = search_->value().toString();
    search_->setValue(QVariant::fromValue(nullptr));
    // The field is still being left, so the rows move afterwards.
    QMetaObject::invokeMethod(
        this, [this, key] { goTo(key); }, Qt::QueuedConnection);
  });
}

/// A field's input is in the row, or kept by the form, once the field was left for anything but the
/// Cancel button.
void RecordForm::watchInput(qt::TsText* each) {
  constexpr qint16 kWithoutKey = 0, kBackspace = 8, kBlank = 32, kDelete = 46;
  connect(each, &qt::TsText::keyPress, this, [this](qint16& key) {
    if (key == kBackspace || key >= kBlank) noteInput();
  });
  connect(each, &qt::TsText::keyDown, this, [this](qint16& key) {
    if (key == kDelete) noteInput();
  });
  connect(each, &qt::TsText::keyUp, this, [this](qint16& key) {
    if (key == kWithoutKey) noteInput();
  });
  connect(each, &qt::TsText::browseReturn, this, [this, each] {
    if (each->lastValidaStatus() && window()->focusWidget() != cancel_) hasTyped_ = false;
  });
}

void RecordForm::noteInput() {
  hasTyped_ = true;
  emit typed();
}

void RecordForm::connectButtons() {
  connect(new_, &QPushButton::clicked, this, &RecordForm::addRecord);
  connect(save_, &QPushButton::clicked, this, &RecordForm::save);
  connect(cancel_, &QPushButton::clicked, this, &RecordForm::cancel);
  connect(delete_, &QPushButton::clicked, this, &RecordForm::deleteRecord);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now && isAncestorOf(now) && !qobject_cast<QPushButton*>(now)) worked_ = now;
  });
  connect(rows_, &qt::Adodc::leavingRow, this,
          [this](bool& refused) { refused = !check() || !write(); });
  for (const auto moved : {&qt::Adodc::moved, &qt::Adodc::rowAdded, &qt::Adodc::rowSaved,
                           &qt::Adodc::rowCancelled, &qt::Adodc::rowDeleted})
    connect(rows_, moved, this, &RecordForm::rowShown);
}

// --- The row on the screen -----------------------------------------------------------------------

QString RecordForm::capitalNoun() const { return kind_.noun.at(0).toUpper() + kind_.noun.mid(1); }

QString RecordForm::criteriaOf(const QString& key) const {
  return QStringLiteral("%1 = '%2'").arg(kind_.key, key);
}

bool RecordForm::isNewRow() const {
  const auto rows = rows_->recordSet();
  return rows && rows->EditMode() == host::EditMode::Add;
}

QString RecordForm::fieldInRow(const QString& column) const {
  const auto rows = rows_->recordSet();
  if (!rows || ((rows->Eof() || rows->Bof()) && !isNewRow())) return {};
  return textOf(rows->Fields().Item(qt::fromQt(column))->Value());
}

void RecordForm::rowShown() {
  isStale_ = false;
  hasTyped_ = false;
  emit notice(std::exchange(nextNotice_, {}));
  qt::guarded(this, [this] {
    key_->setEnabled(isNewRow());
    delete_->setEnabled(!isNewRow());
    showRow();
  });
  qt::enterAgain(this);
}

void RecordForm::moveFirst() { rows_->moveFirst(); }
void RecordForm::movePrevious() { rows_->movePrevious(); }
void RecordForm::moveNext() { rows_->moveNext(); }
void RecordForm::moveLast() { rows_->moveLast(); }

void RecordForm::startSearch() { search_->setFocus(Qt::ShortcutFocusReason); }

void RecordForm::goTo(const QString& key) {
  const QString found = QStringLiteral("%1 %2.").arg(capitalNoun(), key);
  if (rows_->findRow(criteriaOf(key))) return emit notice(found);
  // Another user may have added it since the rows were read.
  if (rows_->isEditPending() || !rows_->refresh()) return;
  if (rows_->findRow(criteriaOf(key))) return emit notice(found);
  emit notice(QStringLiteral("O %1 %2 não existe.").arg(kind_.noun, key));
}

void RecordForm::reload() {
  const QString key = keyInRow();
  if (!database_.isReachable())
    return warn(QStringLiteral("O servidor do banco de dados não responde."));
  if (!rows_->refresh()) return;
  rows_->findRow(criteriaOf(key));
  emit notice(QStringLiteral("%1s lidos de novo.").arg(capitalNoun()));
}

bool RecordForm::hasUnsavedInput() const { return hasTyped_ || rows_->isEditPending(); }

void RecordForm::focusFirstField() {
  for (qt::TsText* each : fields_)
    if (each->isFieldEnabled()) return each->setFocus(Qt::OtherFocusReason);
}

// --- New, cancel, delete -------------------------------------------------------------------------

void RecordForm::addRecord() {
  if (!rows_->addRow()) return;
  qt::guarded(this, [this] {
    key_->setValue(proposedKey());
    proposeRow();
  });
  key_->setFocus();
  emit notice(QStringLiteral("%1 novo.").arg(capitalNoun()));
}

QString RecordForm::proposedKey() const {
  const QString statement =
      QStringLiteral("select lpad((coalesce(max(%1), '0')::integer + 1)::text, %2, '0') from %3")
          .arg(kind_.key)
          .arg(kind_.keyLength)
          .arg(kind_.table);
  return textOf(single(database_, statement)).right(kind_.keyLength);
}

void RecordForm::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
  cancel_->setFocus();
  qt::settleLeftField(this);
  cancel_->click();
}

void RecordForm::cancel() {
  const bool wasStale = isStale_;
  const bool hadInput = hasUnsavedInput();
  const QString key = keyInRow();
  if (!mayDropInput() || !rows_->cancelRow()) return;
  if (wasStale && rows_->refresh()) rows_->findRow(criteriaOf(key));
  emit notice(hadInput ? QStringLiteral("O que foi digitado foi desfeito.")
                       : QStringLiteral("Nada a desfazer."));
  goOnWorking();
}

/// A button had the focus while it acted; the operator continues in the field.
void RecordForm::goOnWorking() {
  if (worked_) worked_->setFocus();
}

bool RecordForm::mayDropInput() {
  if (!hasUnsavedInput()) return true;
  if (ask(QStringLiteral("O %1 não foi salvo. Desfazer o que foi digitado?").arg(kind_.noun)))
    return true;
  goOnWorking();
  return false;
}

void RecordForm::deleteRecord() {
  const QString key = keyInRow();
  if (key.isEmpty()) return;
  if (!ask(QStringLiteral("Excluir o %1 %2, %3?").arg(kind_.noun, key, describeRow()))) return;
  if (rows_->deleteRow()) emit notice(QStringLiteral("%1 %2 excluído.").arg(capitalNoun(), key));
}

// --- Saving --------------------------------------------------------------------------------------

bool RecordForm::save() {
  if (!check()) return false;
  if (!rows_->isEditPending()) {
    emit notice(QStringLiteral("Nada a salvar: o %1 está como no banco de dados.").arg(kind_.noun));
    return true;
  }
  return write() && rows_->saveRow();
}

/// Fields check that they are filled only when a button has the focus, so the Save button gets it
/// meanwhile.
bool RecordForm::check() {
  if (!database_.isReachable()) {
    warn(QStringLiteral("O %1 não foi salvo: o servidor do banco de dados não responde.\n\n"
                        "O que foi digitado continua na tela. Salve de novo quando o servidor "
                        "voltar, ou use Arquivo, Reconectar ao banco de dados.")
             .arg(kind_.noun));
    emit notSaved(QStringLiteral("Não salvo: o servidor do banco de dados não responde."));
    goOnWorking();
    return false;
  }
  save_->setFocus();
  qt::settleLeftField(this);
  if (window()->focusWidget() != save_ || !checkFields()) return false;
  goOnWorking();
  return true;
}

bool RecordForm::checkFields() {
  for (qt::TsText* each : fields_)
    if (each->isFieldEnabled() && !each->valida()) return false;
  return checkRow() && checkKeyIsFree();
}

bool RecordForm::refuse(qt::TsText* field, const QString& text) {
  qt::showPagesOf(field);
  tell(text);
  field->setFocus();
  return false;
}

bool RecordForm::checkKeyIsFree() {
  // A key that is taken may belong to this row itself.
  if (!isNewRow() || isInDoubt()) return true;
  QString taken;
  const bool asked = qt::guarded(this, [&] {
    const QString statement = QStringLiteral("select %1 from %2 where %3")
                                  .arg(kind_.takenText, kind_.table, criteriaOf(keyInRow()));
    taken = textOf(single(database_, statement));
  });
  if (!asked) return false;
  return taken.isEmpty() || refuse(key_, taken);
}

void RecordForm::writeRow() { rows_->recordSet()->Update(); }

bool RecordForm::write() {
  const QString written =
      QStringLiteral("%1 %2, %3, salvo.").arg(capitalNoun(), keyInRow(), describeRow());
  try {
    writeRow();
  } catch (const HostError& error) {
    tellRefusal(error);
    database_.isReachable();  // the fields look things up on the same connection
    return false;
  }
  emit notice(written);
  nextNotice_ = written;  // this row, or another one, is then shown again
  return true;
}

bool RecordForm::isInDoubt() const {
  const auto rows = rows_->recordSet();
  return rows && rows->IsInDoubt();
}

void RecordForm::tellRefusal(const HostError& error) {
  isStale_ = error.Number() == errors::RowChanged || error.Number() == errors::WriteInDoubt;
  if (error.Number() == errors::WriteInDoubt) return tellDoubt(error);
  const bool isLost = error.Number() == errors::InvalidConnection ||
                      database_.connection()->State() == host::state::Closed;
  const QString cause = isLost                                ? kConnectionLost
                        : error.Number() == errors::Cancelled ? kCancelled
                                                              : kRefused;
  const QString told = cause == kCancelled ? QString() : qt::toQt(error.Description()) + kGap;
  const QString reason =
      isStale_ ? QStringLiteral(
                     "outro usuário alterou ou excluiu este %1 depois que ele foi "
                     "lido. Nada foi gravado por cima.\n\nO que foi digitado continua "
                     "na tela. Cancelar mostra o %1 como está agora.")
                     .arg(kind_.noun)
               : cause + QLatin1Char('.') + kGap + told +
                     QStringLiteral("O que foi digitado continua na tela.");
  warn(QStringLiteral("O %1 não foi salvo: %2").arg(kind_.noun, reason));
  emit notSaved(isStale_ ? QStringLiteral("Não salvo: outro usuário alterou o %1.").arg(kind_.noun)
                         : QStringLiteral("Não salvo: %1.").arg(cause));
}

void RecordForm::tellDoubt(const HostError& error) {
  warn(QStringLiteral("Não se sabe se o %1 foi salvo.\n\n%2\n\nO que foi digitado continua na "
                      "tela. Salvar outra vez confere antes de gravar; Cancelar mostra o %1 como "
                      "está no banco de dados.")
           .arg(kind_.noun, qt::toQt(error.Description())));
  emit notSaved(QStringLiteral("Não se sabe se o %1 foi salvo.").arg(kind_.noun));
}

}  // namespace tessaria::demo
