#include "apps/demo/order_lines.h"

#include <QLabel>
#include <algorithm>
#include <cmath>
#include <numeric>

#include "apps/demo/field_helpers.h"
#include "apps/demo/form_loader.h"
#include "apps/demo/lookups.h"
#include "tessaria/conversion.h"
#include "tessaria/format.h"
#include "tessaria/qt/text.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::demo {
namespace {

QString rowsOf(const QString& order) {
  return QStringLiteral(
             "select pedido, item, produto, quantidade, preco from itens_pedido "
             "where pedido = '%1' order by item")
      .arg(order);
}

Variant valueIn(host::Recordset& rows, const char16_t* column) {
  return rows.Fields().Item(column)->Value();
}

}  // namespace

QString OrderLines::nameOf(const char* field, int line) {
  return QLatin1String(field) + QString::number(line + 1);
}

OrderLines::OrderLines(QWidget& form)
    : QObject(&form), total_(widgetOf<QLabel>(form, "totalPedido")) {
  const auto find = [&](const char* field, int line) {
    return widgetOf<qt::TsText>(form, nameOf(field, line).toLatin1().constData());
  };
  for (int i = 0; i < kCount; ++i) {
    Line& line = lines_[static_cast<std::size_t>(i)];
    line = {find("produto", i), find("descricao", i), find("quantidade", i),
            find("preco", i),   find("total", i),     {}};
    useLookup(productsLookup(), line.product, line.description);
    connectLine(line);
  }
}

void OrderLines::connectLine(Line& line) {
  connect(line.product, &qt::TsText::browseReturn, this, [this, &line](bool& changed) {
    if (changed) productChosen(line);
  });
  for (qt::TsText* number : {line.quantity, line.price})
    connect(number, &qt::TsText::browseReturn, this, [this](bool& changed) {
      if (changed) showTotals();
    });
}

/// A description that is being typed reports its code at each key.
void OrderLines::productChosen(Line& line) {
  const QString product = codeIn(line.product);
  if (product == line.priced) return;
  line.priced = product;
  const Variant price = returned(line.product, u"preco");
  line.price->setValue(price.IsNull() || price.IsEmpty() ? 0 : CDbl(price));
  showTotals();
}

// --- Rows ----------------------------------------------------------------------------------------

void OrderLines::load(host::Connection& connection, const QString& order) {
  loaded_ = {};
  if (!order.isEmpty()) {
    const auto rows = connection.Execute(qt::fromQt(rowsOf(order)));
    for (; !rows->Eof(); rows->MoveNext())
      loaded_.at(static_cast<std::size_t>(CLng(valueIn(*rows, u"item")) - 1)) = {
          qt::toQt(CStr(valueIn(*rows, u"produto"))), CDbl(valueIn(*rows, u"quantidade")),
          CDbl(valueIn(*rows, u"preco"))};
  }
  for (std::size_t i = 0; i < lines_.size(); ++i) show(lines_[i], loaded_[i]);
  showTotals();
}

void OrderLines::show(Line& line, const Content& content) {
  giveCode(line.product,
           content.product.isEmpty() ? Variant::Null() : Variant(qt::fromQt(content.product)));
  line.quantity->setValue(content.quantity);
  line.price->setValue(content.price);
  line.priced = content.product;
}

void OrderLines::write(host::Connection& connection, const QString& order) const {
  connection.Execute(
      qt::fromQt(QStringLiteral("delete from itens_pedido where pedido = '%1'").arg(order)));
  const auto rows = connection.OpenRecordset(qt::fromQt(rowsOf(order)), host::CursorType::Static,
                                             host::LockType::Optimistic);
  const auto set = [&](const char16_t* column, const Variant& value) {
    rows->Fields().Item(column)->Value(value);
  };
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const Content content = contentOf(lines_[i]);
    if (content.product.isEmpty()) continue;
    rows->AddNew();
    set(u"pedido", qt::fromQt(order));
    set(u"item", static_cast<Long>(i + 1));
    set(u"produto", qt::fromQt(content.product));
    set(u"quantidade", content.quantity);
    set(u"preco", content.price);
    rows->Update();
  }
}

// --- What the fields hold ------------------------------------------------------------------------

OrderLines::Content OrderLines::contentOf(const Line& line) {
  return {codeIn(line.product), line.quantity->value().toDouble(), line.price->value().toDouble()};
}

/// Rounded as the database does: by the digits that are shown.
double OrderLines::totalOf(const Line& line) {
  const Content content = contentOf(line);
  const double cents = std::round(content.price * 100) * std::round(content.quantity * 100);
  return std::floor(cents / 100 + 0.5) / 100;
}

double OrderLines::total() const {
  return std::accumulate(lines_.begin(), lines_.end(), 0.0,
                         [](double sum, const Line& line) { return sum + totalOf(line); });
}

void OrderLines::showTotals() {
  for (Line& line : lines_) line.total->setValue(totalOf(line));
  total_->setText(qt::toQt(Format(total(), u"#,##0.00")));
  emit changed();
}

bool OrderLines::isChanged() const {
  for (std::size_t i = 0; i < lines_.size(); ++i)
    if (!(contentOf(lines_[i]) == loaded_[i])) return true;
  return false;
}

bool OrderLines::isEmpty() const {
  return std::all_of(lines_.begin(), lines_.end(),
                     [](const Line& line) { return codeIn(line.product).isEmpty(); });
}

QString OrderLines::fault(qt::TsText*& where) const {
  for (const Line& line : lines_) {
    const Content content = contentOf(line);
    const bool hasProduct = !content.product.isEmpty();
    if (hasProduct && content.quantity <= 0) {
      where = line.quantity;
      return QStringLiteral("Falta a quantidade, Verifique Por Favor");
    }
    if (!hasProduct && content.quantity > 0) {
      where = line.product;
      return QStringLiteral("Falta o produto, Verifique Por Favor");
    }
  }
  if (!isEmpty()) return {};
  where = lines_.front().product;
  return QStringLiteral("O pedido não tem itens, Verifique Por Favor");
}

}  // namespace tessaria::demo
