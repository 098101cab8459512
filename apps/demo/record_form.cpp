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
#include "tessaria/qt/settle.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::demo {
Variant single(const Database& database, const QString& statement) {
  const auto rows = database.connection()->Execute(qt::fromQt(statement));
  return rows->Eof() ? Variant::Null() : rows->Fields().Item(0)->Value();
}

RecordForm::RecordForm(Database& database, const QString& file, const RecordKind& kind,
                       QWidget* parent)
    : QWidget(parent), database_(database), kind_(kind) {
  setProperty("dbForm", QVariant::fromValue(database.connection()));
  loadForm(file, *this);
  findWidgets();
  record_ = new qt::RecordForm(this, rows_);
  loadRows();
}

void RecordForm::start() {
  connectFields();
  connectButtons();
  connectRecord();
}

void RecordForm::findWidgets() {
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
  // The last field is shown last: all fields then hold the first row.
  connect(findChildren<qt::TsText*>().last(), &qt::TsText::shown, this, &RecordForm::rowShown,
          Qt::QueuedConnection);
  connect(search_, &qt::TsText::browseReturn, this, [this](bool& changed) {
    if (!changed || !search_->lastValidaStatus()) return;
    const QString key = search_->value().toString();
    search_->setValue(QVariant::fromValue(nullptr));
    // The field is still being left, so the rows move afterwards.
    QMetaObject::invokeMethod(
        this, [this, key] { goTo(key); }, Qt::QueuedConnection);
  });
}

void RecordForm::connectButtons() {
  connect(new_, &QPushButton::clicked, this, &RecordForm::addRecord);
  connect(save_, &QPushButton::clicked, this, &RecordForm::save);
  connect(cancel_, &QPushButton::clicked, this, &RecordForm::cancel);
  connect(delete_, &QPushButton::clicked, this, &RecordForm::deleteRecord);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now && isAncestorOf(now) && !qobject_cast<QPushButton*>(now)) worked_ = now;
  });
  for (const auto moved : {&qt::Adodc::moved, &qt::Adodc::rowAdded, &qt::Adodc::rowSaved,
                           &qt::Adodc::rowCancelled, &qt::Adodc::rowDeleted})
    connect(rows_, moved, this, &RecordForm::rowShown);
}

void RecordForm::connectRecord() {
  record_->setRecordName(QStringLiteral("o ") + kind_.noun);
  record_->setDescription([this] { return keyInRow() + QStringLiteral(", ") + describeRow(); });
  record_->ignore(search_);
  record_->setCheck([this] {
    const auto refusal = checkRow();
    return refusal ? refusal : checkKeyIsFree();
  });
  connect(record_, &qt::RecordForm::changedStateChanged, this, [this](bool changed) {
    if (changed) emit typed();
  });
  connect(record_, &qt::RecordForm::saving, this,
          [this](bool& refused) { refused = refused || !serverAnswers(); });
  connect(record_, &qt::RecordForm::saved, this, [this] {
    // This row, or another one, is then shown again.
    nextNotice_ = QStringLiteral("%1 %2, %3, salvo.").arg(capitalNoun(), keyInRow(), describeRow());
  });
  connect(record_, &qt::RecordForm::notSaved, this, [this](const QString& reason) {
    emit notSaved(reason);
    database_.isReachable();  // the fields look things up on the same connection
  });
}

// --- The row on the screen -----------------------------------------------------------------------

QString RecordForm::capitalNoun() const { return kind_.noun.at(0).toUpper() + kind_.noun.mid(1); }

QString RecordForm::criteriaOf(const QString& key) const {
  return QStringLiteral("%1 = '%2'").arg(kind_.key, key);
}

QString RecordForm::fieldInRow(const QString& column) const {
  const auto rows = rows_->recordSet();
  if (!rows || ((rows->Eof() || rows->Bof()) && !record_->isNew())) return {};
  return textOf(rows->Fields().Item(qt::fromQt(column))->Value());
}

void RecordForm::rowShown() {
  emit notice(std::exchange(nextNotice_, {}));
  qt::guarded(this, [this] {
    key_->setEnabled(record_->isNew());
    delete_->setEnabled(!record_->isNew());
    showRow();
  });
  qt::enterAgain(this);
}

void RecordForm::moveFirst() { record_->moveFirst(); }
void RecordForm::movePrevious() { record_->movePrevious(); }
void RecordForm::moveNext() { record_->moveNext(); }
void RecordForm::moveLast() { record_->moveLast(); }

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

void RecordForm::focusFirstField() {
  for (qt::TsText* each : findChildren<qt::TsText*>())
    if (each != search_ && each->isFieldEnabled()) return each->setFocus(Qt::OtherFocusReason);
}

// --- New, save, cancel, delete -------------------------------------------------------------------

void RecordForm::addRecord() {
  if (!record_->addRow()) return;
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
  const bool hadInput = isChanged();
  if (record_->undo())
    emit notice(hadInput ? QStringLiteral("O que foi digitado foi desfeito.")
                         : QStringLiteral("Nada a desfazer."));
  goOnWorking();
}

/// A button had the focus while it acted; the operator continues in the field.
void RecordForm::goOnWorking() {
  if (worked_ && qobject_cast<QPushButton*>(window()->focusWidget())) worked_->setFocus();
}

void RecordForm::deleteRecord() {
  const QString key = keyInRow();
  if (!key.isEmpty() && record_->deleteRow())
    emit notice(QStringLiteral("%1 %2 excluído.").arg(capitalNoun(), key));
}

bool RecordForm::save() {
  if (!isChanged())
    emit notice(QStringLiteral("Nada a salvar: o %1 está como no banco de dados.").arg(kind_.noun));
  const bool isSaved = record_->save();
  goOnWorking();
  return isSaved;
}

/// Without a server no field could be checked.
bool RecordForm::serverAnswers() {
  if (database_.isReachable()) return true;
  warn(QStringLiteral("O %1 não foi salvo: o servidor do banco de dados não responde.\n\n"
                      "O que foi digitado continua na tela. Salve de novo quando o servidor "
                      "voltar, ou use Arquivo, Reconectar ao banco de dados.")
           .arg(kind_.noun));
  emit notSaved(QStringLiteral("Não salvo: o servidor do banco de dados não responde."));
  return false;
}

/// A key that is taken may belong to this row itself, once its answer was lost.
std::optional<RecordForm::Refusal> RecordForm::checkKeyIsFree() const {
  if (!record_->isNew() || rows_->recordSet()->IsInDoubt()) return {};
  const QString statement = QStringLiteral("select %1 from %2 where %3")
                                .arg(kind_.takenText, kind_.table, criteriaOf(keyInRow()));
  const QString taken = textOf(single(database_, statement));
  if (taken.isEmpty()) return {};
  return Refusal{key_, taken};
}

}  // namespace tessaria::demo
