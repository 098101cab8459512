#include "apps/demo/customer_form.h"

#include <QApplication>
#include <QLabel>
#include <QRadioButton>
#include <QTabBar>
#include <QTableView>

#include "apps/demo/field_helpers.h"
#include "apps/demo/form_loader.h"
#include "apps/demo/lookups.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/tstext.h"
#include "tessaria/qt/variants.h"
#include "tessaria/validators.h"

namespace tessaria::demo {
namespace {

constexpr int kFixedLineLength = 10;  // digits, with the area code

const QString kCpf = QStringLiteral("###.###.###-##");
const QString kCnpj = QStringLiteral("CC.CCC.CCC/CCCC-##");
const QString kFixedLine = QStringLiteral("(##) ####-####");
const QString kMobile = QStringLiteral("(##) #####-####");

RecordKind customerKind() {
  return {QStringLiteral("cliente"),
          QStringLiteral("clientes"),
          QStringLiteral("codigo"),
          5,
          QStringLiteral("codigo"),
          QStringLiteral("'O código ' || codigo || ' já é do cliente ' || nome || '.'")};
}

void useMask(qt::TsText* field, const QString& mask) {
  if (field->mascara() != mask) field->setMascara(mask);
}

}  // namespace

CustomerForm::CustomerForm(Database& database, QWidget* parent)
    : RecordForm(database, QStringLiteral("customer_form.ui"), customerKind(), parent),
      document_(field("documento")),
      telephone_(field("telefone")),
      password_(field("senha")),
      state_(field("uf")),
      city_(field("cidade")),
      documentLabel_(widgetOf<QLabel>(*this, "lblDocumento")),
      birthLabel_(widgetOf<QLabel>(*this, "lblNascimento")),
      passwordState_(widgetOf<QLabel>(*this, "situacaoSenha")),
      ordersLabel_(widgetOf<QLabel>(*this, "lblPedidos")),
      natural_(widgetOf<QRadioButton>(*this, "fisica")),
      legal_(widgetOf<QRadioButton>(*this, "juridica")),
      orders_(database, widgetOf<QTableView>(*this, "pedidosDoCliente")) {
  findChild<QTabBar*>()->setAccessibleName(QStringLiteral("Páginas do cliente"));
  useLookup(citiesLookup(), city_, field("nomeCidade"));
  keepCityInState(state_, city_);
  document_->setValidator(CpfOrCnpjValidator());
  record().hideColumn(QStringLiteral("senha"));
  connectFields();
  start();
}

void CustomerForm::connectFields() {
  connect(natural_, &QRadioButton::toggled, this,
          [this](bool on) { showPerson(on ? Person::Natural : Person::Legal); });
  connect(telephone_, &qt::TsText::browseReturn, this, [this] { fitTelephone(); });
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now && telephone_->isAncestorOf(now)) useMask(telephone_, kMobile);
  });
  connect(password_, &qt::TsText::browseReturn, this, [this](bool& changed) {
    if (changed) takePassword();
  });
}

void CustomerForm::showRow() {
  // The mask decides which part of the number is shown, so it is set first.
  showPerson(personOf(fieldInRow(QStringLiteral("cpf_cnpj"))));
  document_->refresh();
  fitTelephone();
  password_->setValue(QVariant::fromValue(nullptr));
  showPasswordState();
  showOrders();
}

/// An order may have been saved on the other form.
void CustomerForm::showEvent(QShowEvent* event) {
  RecordForm::showEvent(event);
  showOrders();
}

void CustomerForm::showOrders() {
  const int count = orders_.show(fieldInRow(QStringLiteral("codigo")));
  ordersLabel_->setText(count == 0 ? QStringLiteral("&Pedidos do cliente: nenhum")
                                   : QStringLiteral("&Pedidos do cliente: %1").arg(count));
}

QString CustomerForm::describeRow() const { return fieldInRow(QStringLiteral("nome")); }

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

/// The stored text is never put into the box: leaving the field would scramble it again.
void CustomerForm::takePassword() {
  qt::guarded(this, [this] {
    rows().recordSet()->Fields().Item(u"senha")->Value(qt::toVariant(password_->value()));
  });
  password_->setValue(QVariant::fromValue(nullptr));
  passwordState_->setText(QStringLiteral("Será trocada ao salvar."));
}

void CustomerForm::showPasswordState() {
  passwordState_->setText(fieldInRow(QStringLiteral("senha")).isEmpty()
                              ? QStringLiteral("Sem senha.")
                              : QStringLiteral("Já cadastrada."));
}

}  // namespace tessaria::demo
