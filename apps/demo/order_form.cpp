#include "apps/demo/order_form.h"

#include <QDate>
#include <algorithm>

#include "apps/demo/database.h"
#include "apps/demo/field_helpers.h"
#include "apps/demo/lookups.h"
#include "apps/demo/order_lines.h"
#include "tessaria/conversion.h"
#include "tessaria/qt/adodc.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/tstext.h"
#include "tessaria/stored_match.h"

namespace tessaria::demo {
namespace {

RecordKind orderKind() {
  QStringList fields =
      QStringLiteral(
          "numero dataPedido cliente nomeCliente uf estado cidade nomeCidade condicao "
          "nomeCondicao entrega documento pasta")
          .split(QLatin1Char(' '));
  for (int line = 0; line < OrderLines::kCount; ++line)
    for (const char* field : {"produto", "descricao", "quantidade", "preco"})
      fields << OrderLines::nameOf(field, line);
  return {QStringLiteral("pedido"),
          QStringLiteral("pedidos"),
          QStringLiteral("numero"),
          6,
          QStringLiteral("numero"),
          QStringLiteral("'O pedido ' || numero || ' já existe.'"),
          fields};
}

/// Runs the work in a transaction, which is rolled back when the work fails.
template <class Work>
void atOnce(host::Connection& connection, Work&& work) {
  connection.BeginTrans();
  try {
    work();
    connection.CommitTrans();
  } catch (...) {
    try {
      connection.RollbackTrans();
    } catch (const HostError&) {
      // A server that is gone has rolled it back, and so has one that refused the commit.
    }
    throw;
  }
}

const String kVersion = u"versao";

std::map<String, Variant> valuesOf(host::Recordset& rows) {
  std::map<String, Variant> values;
  for (Long i = 0; i < rows.Fields().Count(); ++i)
    values.emplace(rows.Fields().Item(i)->Name(), rows.Fields().Item(i)->Value());
  values.erase(kVersion);
  return values;
}

bool holds(host::Recordset& row, const std::map<String, Variant>& values) {
  return std::all_of(values.begin(), values.end(), [&](const auto& value) {
    const host::FieldPtr field = row.Fields().Item(value.first);
    const ColumnShape shape{field->Type(), field->DefinedSize(), field->NumericScale()};
    return IsStoredFrom(value.second, field->Value(), shape);
  });
}

}  // namespace

OrderForm::OrderForm(Database& database, QWidget* parent)
    : RecordForm(database, QStringLiteral("order_form.ui"), orderKind(), parent),
      lines_(new OrderLines(*this)),
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
  connect(lines_, &OrderLines::changed, this, &OrderForm::linesChanged);
  start();
}

// --- The row on the screen -----------------------------------------------------------------------

void OrderForm::showRow() {
  sent_.clear();
  const QString version = fieldInRow(qt::toQt(kVersion));
  versionRead_ = version.toInt();
  proposedFor_ = codeIn(customer_);
  lines_->load(*database().connection(), isNewRow() ? QString() : keyInRow());
}

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

/// The lines are not part of the row: a new version number marks the order as changed.
void OrderForm::linesChanged() {
  if (isNewRow() || keyInRow().isEmpty() || !lines_->isChanged()) return;
  qt::guarded(this,
              [this] { rows().recordSet()->Fields().Item(kVersion)->Value(versionRead_ + 1); });
}

QString OrderForm::describeRow() const { return customerName_->text(); }

// --- Saving --------------------------------------------------------------------------------------

bool OrderForm::checkRow() {
  const QVariant delivery = delivery_->value();
  if (!delivery.isNull() && delivery.toDate() < date_->value().toDate())
    return refuse(delivery_, QStringLiteral("A entrega não pode ser antes do pedido."));
  qt::TsText* where = nullptr;
  const QString fault = lines_->fault(where);
  return fault.isEmpty() || refuse(where, fault);
}

/// The head is written through a row of its own, so that the input stays pending until everything
/// is stored. When the answer of a transaction was lost, the stored order shows the outcome.
void OrderForm::writeRow() {
  const QString number = keyInRow();
  if (isInDoubt()) findOut(number);
  try {
    writeAll(number);
  } catch (const HostError& error) {
    if (error.Number() != errors::WriteInDoubt) throw;
    sent_ = valuesOf(*rows().recordSet());
    if (!database().isReachable()) throw;
    if (!findOut(number))
      throw HostError(errors::InvalidConnection, u"O pedido foi lido outra vez: nada foi gravado.");
  }
  qt::guarded(this, [&] { readAgain(number); });
}

void OrderForm::writeAll(const QString& number) {
  host::Connection& connection = *database().connection();
  atOnce(connection, [&] {
    writeHead(number);
    lines_->write(connection, number);
  });
}

host::RecordsetPtr OrderForm::openHead(const QString& number) const {
  const auto source =
      qt::fromQt(QStringLiteral("select * from pedidos where ") + criteriaOf(number));
  return database().connection()->OpenRecordset(source, host::CursorType::Static,
                                                host::LockType::Optimistic);
}

void OrderForm::writeHead(const QString& number) {
  const auto stored = openHead(number);
  const auto version = [&] { return stored->Fields().Item(kVersion); };
  if (versionRead_ == 0)
    stored->AddNew();
  else if (stored->Eof() || CLng(version()->Value()) != versionRead_)
    throw HostError(errors::RowChanged);
  auto& typed = rows().recordSet()->Fields();
  for (Long i = 0; i < typed.Count(); ++i)
    stored->Fields().Item(typed.Item(i)->Name())->Value(typed.Item(i)->Value());
  version()->Value(versionRead_ + 1);
  stored->Update();
}

/// Whether the transaction in doubt was stored: the order then has the next version and the head
/// that was sent. Later input is written on top of it.
bool OrderForm::findOut(const QString& number) {
  const auto stored = openHead(number);
  const Long version = stored->Eof() ? 0 : CLng(stored->Fields().Item(kVersion)->Value());
  const bool isStored = version == versionRead_ + 1 && holds(*stored, sent_);
  if (!isStored && version != versionRead_)
    throw HostError(errors::WriteInDoubt,
                    u"O pedido não está como foi lido nem como foi digitado: outro usuário o "
                    u"alterou desde então. Nada foi gravado agora.");
  sent_.clear();
  if (isStored) versionRead_ = version;
  return isStored;
}

void OrderForm::readAgain(const QString& number) {
  rows().recordSet()->CancelUpdate();
  rows().open();
  rows().recordSet()->Find(qt::fromQt(criteriaOf(number)));
}

}  // namespace tessaria::demo
