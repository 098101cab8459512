#include "apps/demo/customer_form.h"

#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include "apps/demo/database.h"
#include "apps/demo/failure.h"
#include "apps/demo/form_loader.h"
#include "apps/demo/messages.h"
#include "hosts/qt/adodc.h"
#include "hosts/qt/focus_cycle.h"
#include "hosts/qt/metatypes.h"
#include "hosts/qt/text.h"
#include "hosts/qt/tstext.h"
#include "hosts/qt/variants.h"
#include "runtime/conversion.h"

namespace tessaria::demo {
namespace {

constexpr char kFields[][12] = {"codigo", "nome",     "documento", "nascimento",
                                "cep",    "endereco", "uf",        "telefone",
                                "email",  "limite",   "senha",     "observacao"};

constexpr char16_t kEnter = 13;
constexpr int kCodeLength = 5;
constexpr int kFixedLineLength = 10;  // digits, with the area code

const QString kCpf = QStringLiteral("###.###.###-##");
const QString kCnpj = QStringLiteral("##.###.###/####-##");
const QString kFixedLine = QStringLiteral("(##) ####-####");
const QString kMobile = QStringLiteral("(##) #####-####");

void useMask(qt::TsText* field, const QString& mask) {
  if (field->mascara() != mask) field->setMascara(mask);
}

/// A value that was selected by a statement of one row.
QString single(const host::ConnectionPtr& connection, const QString& statement) {
  const auto rows = connection->Execute(qt::fromQt(statement));
  if (rows->Eof()) return {};
  const Variant value = rows->Fields().Item(0)->Value();
  return value.IsNull() ? QString() : qt::toQt(CStr(value));
}

/// Enter goes on to the next field as Tab does.
void moveOnWithEnter(qt::TsText* field) {
  QObject::connect(field, &qt::TsText::keyPress, field, [field](qint16& key) {
    if (key != kEnter) return;
    key = 0;
    QWidget* box = field->window()->focusWidget();
    QCoreApplication::postEvent(box, new QKeyEvent(QEvent::KeyPress, Qt::Key_Tab, {}));
    QCoreApplication::postEvent(box, new QKeyEvent(QEvent::KeyRelease, Qt::Key_Tab, {}));
  });
}

}  // namespace

CustomerForm::CustomerForm(Database& database, QWidget* parent)
    : QWidget(parent), database_(database) {
  setProperty("dbForm", QVariant::fromValue(database.connection()));
  loadForm(QStringLiteral("customer_form.ui"), *this);
  findWidgets();
  loadRows();
  connectFields();
  connectButtons();
}

void CustomerForm::findWidgets() {
  for (const char* name : kFields) fields_ << widgetOf<qt::TsText>(*this, name);
  rows_ = widgetOf<qt::Adodc>(*this, "dados");
  code_ = widgetOf<qt::TsText>(*this, "codigo");
  search_ = widgetOf<qt::TsText>(*this, "localizar");
  document_ = widgetOf<qt::TsText>(*this, "documento");
  telephone_ = widgetOf<qt::TsText>(*this, "telefone");
  password_ = widgetOf<qt::TsText>(*this, "senha");
  documentLabel_ = widgetOf<QLabel>(*this, "lblDocumento");
  birthLabel_ = widgetOf<QLabel>(*this, "lblNascimento");
  passwordState_ = widgetOf<QLabel>(*this, "situacaoSenha");
  natural_ = widgetOf<QRadioButton>(*this, "fisica");
  legal_ = widgetOf<QRadioButton>(*this, "juridica");
  new_ = widgetOf<QPushButton>(*this, "btnNovo");
  save_ = widgetOf<QPushButton>(*this, "btnSalvar");
  cancel_ = widgetOf<QPushButton>(*this, "btnCancelar");
  delete_ = widgetOf<QPushButton>(*this, "btnExcluir");
}

void CustomerForm::loadRows() {
  rows_->setConnection(database_.connection());
  try {
    rows_->open();
  } catch (const HostError& error) {
    throw Failure(QStringLiteral("O banco de dados não tem a tabela de clientes deste programa. "
                                 "Carregue-a com apps/demo/data/load.sql.\n\n%1")
                      .arg(qt::toQt(error.Description())));
  }
}

void CustomerForm::connectFields() {
  for (qt::TsText* field : fields_) moveOnWithEnter(field);
  moveOnWithEnter(search_);
  // The last field to show: the first row stands in all of them then.
  connect(fields_.last(), &qt::TsText::shown, this, &CustomerForm::rowShown, Qt::QueuedConnection);
  connect(natural_, &QRadioButton::toggled, this,
          [this](bool on) { showPerson(on ? Person::Natural : Person::Legal); });
  connect(telephone_, &qt::TsText::browseReturn, this, [this] { fitTelephone(); });
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now && telephone_->isAncestorOf(now)) useMask(telephone_, kMobile);
  });
  connect(password_, &qt::TsText::browseReturn, this, [this](bool& changed) {
    if (changed) takePassword();
  });
  connect(search_, &qt::TsText::browseReturn, this, [this](bool& changed) {
    if (!changed || !search_->lastValidaStatus()) return;
    const QString code = search_->value().toString();
    search_->setValue(QVariant::fromValue(nullptr));
    // The field is still being left: the rows move afterwards.
    QMetaObject::invokeMethod(
        this, [this, code] { goToCode(code); }, Qt::QueuedConnection);
  });
}

void CustomerForm::connectButtons() {
  connect(new_, &QPushButton::clicked, this, &CustomerForm::addCustomer);
  connect(save_, &QPushButton::clicked, this, &CustomerForm::save);
  connect(cancel_, &QPushButton::clicked, this, &CustomerForm::cancel);
  connect(delete_, &QPushButton::clicked, this, &CustomerForm::deleteCustomer);
  connect(rows_, &qt::Adodc::leavingRow, this,
          [this](bool& refused) { refused = !checkCustomer() || !writeRow(); });
  for (const auto moved : {&qt::Adodc::moved, &qt::Adodc::rowAdded, &qt::Adodc::rowSaved,
                           &qt::Adodc::rowCancelled, &qt::Adodc::rowDeleted})
    connect(rows_, moved, this, &CustomerForm::rowShown);
}

// --- The row on the screen -----------------------------------------------------------------------

QString CustomerForm::fieldInRow(const char16_t* name) const {
  const auto& rows = rows_->recordSet();
  if (!rows || ((rows->Eof() || rows->Bof()) && rows->EditMode() != host::EditMode::Add)) return {};
  const Variant value = rows->Fields().Item(String(name))->Value();
  return value.IsNull() ? QString() : qt::toQt(CStr(value));
}

QString CustomerForm::codeInRow() const { return fieldInRow(u"codigo"); }

void CustomerForm::rowShown() {
  isStale_ = false;
  qt::guarded(this, [this] {
    const bool isNew = rows_->recordSet()->EditMode() == host::EditMode::Add;
    code_->setEnabled(isNew);
    delete_->setEnabled(!isNew);
    // The mask decides what of the number is shown, so it comes first.
    showPerson(personOf(fieldInRow(u"cpf_cnpj")));
    document_->refresh();
    fitTelephone();
    password_->setValue(QVariant::fromValue(nullptr));
    showPasswordState();
  });
  qt::FocusCycle::of(window())->enterAgain();
}

void CustomerForm::moveFirst() { rows_->moveFirst(); }
void CustomerForm::movePrevious() { rows_->movePrevious(); }
void CustomerForm::moveNext() { rows_->moveNext(); }
void CustomerForm::moveLast() { rows_->moveLast(); }

void CustomerForm::startSearch() { search_->setFocus(Qt::ShortcutFocusReason); }

void CustomerForm::goToCode(const QString& code) {
  const QString criteria = QStringLiteral("codigo = '%1'").arg(code);
  if (rows_->findRow(criteria)) return emit notice(QStringLiteral("Cliente %1.").arg(code));
  // Another user may have added it since the rows were read.
  if (rows_->isEditPending() || !rows_->refresh()) return;
  if (rows_->findRow(criteria)) return emit notice(QStringLiteral("Cliente %1.").arg(code));
  emit notice(QStringLiteral("O cliente %1 não existe.").arg(code));
}

void CustomerForm::reload() {
  const QString code = codeInRow();
  if (!database_.isReachable())
    return warn(QStringLiteral("O servidor do banco de dados não responde."));
  if (!rows_->refresh()) return;
  rows_->findRow(QStringLiteral("codigo = '%1'").arg(code));
  emit notice(QStringLiteral("Clientes lidos de novo."));
}

bool CustomerForm::hasUnsavedInput() const {
  const auto* box = qobject_cast<QLineEdit*>(window()->focusWidget());
  return rows_->isEditPending() || (box && isAncestorOf(box) && box->isModified());
}

// --- New, cancel, delete -------------------------------------------------------------------------

void CustomerForm::addCustomer() {
  if (!rows_->addRow()) return;
  qt::guarded(this, [this] { proposeCode(); });
  code_->setFocus();
  emit notice(QStringLiteral("Cliente novo."));
}

void CustomerForm::proposeCode() {
  code_->setValue(single(database_.connection(),
                         QStringLiteral("select lpad((coalesce(max(codigo), '0')::integer + 1)"
                                        "::text, 5, '0') from clientes"))
                      .right(kCodeLength));
}

void CustomerForm::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape) return QWidget::keyPressEvent(event);
  cancel_->setFocus();
  qt::FocusCycle::of(window())->settlePending();
  cancel_->click();
}

void CustomerForm::cancel() {
  const bool wasStale = isStale_;
  const QString code = codeInRow();
  if (!rows_->cancelRow()) return;
  if (wasStale && rows_->refresh()) rows_->findRow(QStringLiteral("codigo = '%1'").arg(code));
  emit notice(QStringLiteral("O que foi digitado foi desfeito."));
}

void CustomerForm::deleteCustomer() {
  const QString code = codeInRow();
  if (code.isEmpty()) return;
  if (!ask(QStringLiteral("Excluir o cliente %1, %2?").arg(code, fieldInRow(u"nome")))) return;
  if (rows_->deleteRow()) emit notice(QStringLiteral("Cliente %1 excluído.").arg(code));
}

// --- Saving --------------------------------------------------------------------------------------

bool CustomerForm::save() {
  if (!checkCustomer()) return false;
  if (!rows_->isEditPending()) {
    emit notice(QStringLiteral("Nada a salvar: o cliente está como no banco de dados."));
    return true;
  }
  return writeRow() && rows_->saveRow();
}

/// Fields demand their input only of a button, so the button for it takes the focus meanwhile.
bool CustomerForm::checkCustomer() {
  if (!database_.isReachable()) {
    warn(
        QStringLiteral("O cliente não foi salvo: o servidor do banco de dados não responde.\n\n"
                       "O que foi digitado continua na tela. Salve de novo quando o servidor "
                       "voltar, ou use Arquivo, Reconectar ao banco de dados."));
    emit notice(QStringLiteral("Não salvo: o servidor do banco de dados não responde."));
    return false;
  }
  const QPointer<QWidget> before = window()->focusWidget();
  save_->setFocus();
  qt::FocusCycle::of(window())->settlePending();
  if (window()->focusWidget() != save_ || !checkFields()) return false;
  if (before) before->setFocus();
  return true;
}

bool CustomerForm::checkFields() {
  for (qt::TsText* field : fields_)
    if (field->isFieldEnabled() && !field->valida()) return false;
  return checkDocument() && checkCodeIsFree();
}

bool CustomerForm::refuse(qt::TsText* field, const QString& text) {
  tell(text);
  field->setFocus();
  return false;
}

bool CustomerForm::checkDocument() {
  const QString digits = fieldInRow(u"cpf_cnpj");
  if (digits.isEmpty() || isValidDocument(person(), digits)) return true;
  return refuse(document_, QStringLiteral("%1 não confere, Verifique Por Favor")
                               .arg(person() == Person::Natural ? QStringLiteral("O CPF")
                                                                : QStringLiteral("O CNPJ")));
}

bool CustomerForm::checkCodeIsFree() {
  if (rows_->recordSet()->EditMode() != host::EditMode::Add) return true;
  QString owner;
  const bool asked = qt::guarded(this, [&] {
    owner =
        single(database_.connection(),
               QStringLiteral("select nome from clientes where codigo = '%1'").arg(codeInRow()));
  });
  if (!asked) return false;
  if (owner.isEmpty()) return true;
  return refuse(code_, QStringLiteral("O código %1 já é do cliente %2.").arg(codeInRow(), owner));
}

bool CustomerForm::writeRow() {
  try {
    rows_->recordSet()->Update();
  } catch (const HostError& error) {
    tellRefusal(error);
    return false;
  }
  emit notice(QStringLiteral("Cliente %1, %2, salvo.").arg(codeInRow(), fieldInRow(u"nome")));
  return true;
}

void CustomerForm::tellRefusal(const HostError& error) {
  isStale_ = error.Number() == errors::RowChanged;
  const QString reason =
      isStale_ ? QStringLiteral(
                     "outro usuário alterou ou excluiu este cliente depois que ele foi "
                     "lido. Nada foi gravado por cima.\n\nO que foi digitado continua "
                     "na tela. Cancelar mostra o cliente como está agora.")
               : QStringLiteral(
                     "o banco de dados recusou.\n\n%1\n\nO que foi digitado continua na "
                     "tela.")
                     .arg(qt::toQt(error.Description()));
  warn(QStringLiteral("O cliente não foi salvo: ") + reason);
  emit notice(isStale_ ? QStringLiteral("Não salvo: outro usuário alterou o cliente.")
                       : QStringLiteral("Não salvo: o banco de dados recusou."));
}

// --- Fields that the form looks after itself -----------------------------------------------------

Person CustomerForm::person() const {
  return natural_->isChecked() ? Person::Natural : Person::Legal;
}

void CustomerForm::showPerson(Person person) {
  const bool natural = person == Person::Natural;
  (natural ? natural_ : legal_)->setChecked(true);
  useMask(document_, natural ? kCpf : kCnpj);
  documentLabel_->setText(natural ? QStringLiteral("CPF:") : QStringLiteral("CNPJ:"));
  birthLabel_->setText(natural ? QStringLiteral("Nascimento:") : QStringLiteral("Fundação:"));
}

void CustomerForm::fitTelephone() {
  useMask(telephone_, telephone_->texto().size() == kFixedLineLength ? kFixedLine : kMobile);
}

/// The stored text is never laid into the box: left again, it would be scrambled again.
void CustomerForm::takePassword() {
  qt::guarded(this, [this] {
    rows_->recordSet()->Fields().Item(u"senha")->Value(qt::toVariant(password_->value()));
  });
  password_->setValue(QVariant::fromValue(nullptr));
  passwordState_->setText(QStringLiteral("Será trocada ao salvar."));
}

void CustomerForm::showPasswordState() {
  passwordState_->setText(fieldInRow(u"senha").isEmpty() ? QStringLiteral("Sem senha.")
                                                         : QStringLiteral("Já cadastrada."));
}

}  // namespace tessaria::demo
