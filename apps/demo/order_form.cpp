#include "apps/demo/order_form.h"

#include <QDate>

#include "apps/demo/database.h"
#include "apps/demo/field_helpers.h"
#include "apps/demo/form_loader.h"
#include "apps/demo/lookups.h"
#include "apps/demo/order_items.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::demo {
namespace {

RecordKind orderKind() {
  return {QStringLiteral("pedido"), QStringLiteral("pedidos"),
          QStringLiteral("numero"), 6,
          QStringLiteral("numero"), QStringLiteral("'O pedido ' || numero || ' já existe.'")};
}

}  // namespace

OrderForm::OrderForm(Database& database, QWidget* parent)
    : RecordForm(database, QStringLiteral("order_form.ui"), orderKind(), parent),
      items_(widgetOf<qt::ItemGrid>(*this, "grade")),
      date_(field("dataPedido")),
      customer_(field("cliente")),
      customerName_(field("nomeCliente")),
      state_(field("uf")),
      city_(field("cidade")),
      paymentTerm_(field("condicao")),
      delivery_(field("entrega")) {
  useLookup(customersLookup(), customer_, customerName_);
  useLookup(statesLookup(), state_, field("estado"));
  useLookup(citiesLookup(), city_, field("nomeCidade"));
  useLookup(paymentTermsLookup(), paymentTerm_, field("nomeCondicao"));
  keepCityInState(state_, city_);
  connect(customer_, &qt::TsText::browseReturn, this, [this](bool& changed) {
    if (changed) customerChosen();
  });
  items_->setSettings(orderItems());
  items_->setRowCheck(refusalOf);
  proposePrices(*items_);
  record().addItems(items_);
  // The items are not part of the row: its version changes with them.
  record().setVersionColumn(QStringLiteral("versao"));
  start();
}

// --- The row on the screen -----------------------------------------------------------------------

void OrderForm::showRow() { proposedFor_ = codeIn(customer_); }

void OrderForm::proposeRow() { date_->setValue(QDate::currentDate()); }

/// The customer sets the state, the city and the terms of payment. A name that is being typed
/// reports its code at each key.
void OrderForm::customerChosen() {
  const QString customer = codeIn(customer_);
  if (customer == proposedFor_) return;
  proposedFor_ = customer;
  if (customer.isEmpty()) return;
  giveCode(state_, returned(customer_, u"uf"));
  giveCode(city_, returned(customer_, u"cidade"));
  giveCode(paymentTerm_, returned(customer_, u"condicao"));
}

QString OrderForm::describeRow() const { return customerName_->text(); }

std::optional<RecordForm::Refusal> OrderForm::checkRow() {
  const QVariant delivery = delivery_->value();
  if (!delivery.isNull() && delivery.toDate() < date_->value().toDate())
    return Refusal{delivery_, QStringLiteral("A entrega não pode ser antes do pedido.")};
  if (!items_->isEmpty()) return {};
  return Refusal{items_->field("produto"),
                 QStringLiteral("O pedido não tem itens, Verifique Por Favor")};
}

}  // namespace tessaria::demo
