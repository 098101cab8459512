#include "apps/demo/customer_orders.h"

#include <QHeaderView>
#include <QTableView>

#include "apps/demo/database.h"
#include "tessaria/error.h"
#include "tessaria/qt/text.h"

namespace tessaria::demo {
namespace {

constexpr int kMargins = 12;   // pixels, beside the text of a cell
constexpr int kStretched = 2;  // the column of the city
constexpr const char* kCaptions[] = {"Pedido", "Data", "Cidade", "Pagamento", "Entrega", "Total"};
constexpr int kTotal = 5;

QString statementFor(const QString& customer) {
  return QStringLiteral(
             "select p.numero, p.data, c.nome || '/' || p.uf as cidade, f.descricao, p.entrega, "
             "(select coalesce(sum(i.total), 0) from itens_pedido i where i.pedido = p.numero) "
             "as total "
             "from pedidos p join cidades c on c.codigo = p.cidade "
             "join condicoes_pagamento f on f.codigo = p.condicao "
             "where p.cliente = '%1' order by p.data desc, p.numero desc")
      .arg(customer);
}

}  // namespace

CustomerOrders::CustomerOrders(const Database& database, QTableView* view)
    : database_(database), view_(view) {
  view_->setModel(&model_);
  view_->verticalHeader()->hide();
  view_->horizontalHeader()->setHighlightSections(false);
  view_->horizontalHeader()->setMinimumSectionSize(
      view_->fontMetrics().horizontalAdvance(QStringLiteral("00/00/0000")) + kMargins);
}

int CustomerOrders::show(const QString& customer) {
  try {
    model_.setRows(database_.connection()->OpenRecordset(
        qt::fromQt(statementFor(customer)), host::CursorType::Static, host::LockType::ReadOnly));
    arrange();
  } catch (const HostError&) {
    // The form itself reports that the database does not answer.
    model_.setRows(nullptr);
  }
  // An empty list is grey, as a field is in which there is nothing to do.
  view_->setEnabled(model_.rowCount() > 0);
  return model_.rowCount();
}

void CustomerOrders::arrange() {
  for (int column = 0; column < model_.columnCount(); ++column)
    model_.setCaption(column, QString::fromUtf8(kCaptions[column]));
  model_.setFormat(kTotal, QStringLiteral("#,##0.00"));
  view_->resizeColumnsToContents();
  view_->resizeRowsToContents();
  view_->horizontalHeader()->setSectionResizeMode(kStretched, QHeaderView::Stretch);
}

}  // namespace tessaria::demo
