#include "apps/demo/order_items.h"

#include <cmath>
#include <memory>

#include "apps/demo/field_helpers.h"
#include "apps/demo/lookups.h"
#include "tessaria/conversion.h"
#include "tessaria/qt/tstext.h"

namespace tessaria::demo {
namespace {

FieldSettings amount(const char16_t* column, const char16_t* mask, Long length) {
  return {.name = column,
          .mask = mask,
          .maxLength = length,
          .type = DataType::Number,
          .promptInclude = true,
          .dataField = column,
          .cancelButton = u"btnCancelar"};
}

/// Rounded as the database does: by the digits that are shown.
double totalOf(const qt::ItemRow& item) {
  const double cents =
      std::round(item.number("preco") * 100) * std::round(item.number("quantidade") * 100);
  return std::floor(cents / 100 + 0.5) / 100;
}

}  // namespace

qt::ItemSettings orderItems() {
  const FieldPair product = MakePair(productsLookup(),
                                     {.name = u"produto",
                                      .mask = u"00000",
                                      .maxLength = 5,
                                      .dataField = u"produto",
                                      .cancelButton = u"btnCancelar"},
                                     {.name = u"descricao", .maxLength = 60});
  FieldSettings price = amount(u"preco", u"$$$$$$$.$$", 12);
  price.kind = TipoControle::Calculadora;
  return {.table = u"itens_pedido",
          .links = {{.column = u"pedido", .parent = u"numero"}},
          .number = u"item",
          .columns = {{.field = product.code, .caption = u"Produto", .width = 1400},
                      {.field = product.description, .caption = u"Descrição", .width = 4000},
                      {.field = amount(u"quantidade", u"$$$$$$.$$", 10),
                       .caption = u"Quantidade",
                       .width = 1500,
                       .isTotalled = true},
                      {.field = price, .caption = u"Preço", .width = 1900},
                      {.field = {.name = u"total"},
                       .caption = u"Total",
                       .width = 1700,
                       .isTotalled = true,
                       .compute = [](const qt::ItemRow& item) { return totalOf(item); }}}};
}

std::optional<qt::ItemGrid::Refusal> refusalOf(const qt::ItemRow& item) {
  using Refusal = qt::ItemGrid::Refusal;
  if (item.text("produto").isEmpty() || item.value("produto").isNull())
    return Refusal{QStringLiteral("produto"),
                   QStringLiteral("Falta o produto, Verifique Por Favor")};
  if (item.number("quantidade") <= 0)
    return Refusal{QStringLiteral("quantidade"),
                   QStringLiteral("Falta a quantidade, Verifique Por Favor")};
  return {};
}

/// A description that is being typed reports its code at each key.
void proposePrices(qt::ItemGrid& items) {
  qt::TsText* const product = items.field("produto");
  qt::TsText* const price = items.field("preco");
  const auto priced = std::make_shared<QString>();
  QObject::connect(&items, &qt::ItemGrid::currentRowChanged, product,
                   [=] { *priced = codeIn(product); });
  QObject::connect(product, &qt::TsText::browseReturn, price, [=](bool& changed) {
    if (!changed || codeIn(product) == *priced) return;
    *priced = codeIn(product);
    const Variant found = returned(product, u"preco");
    price->setValue(found.IsNull() || found.IsEmpty() ? 0 : CDbl(found));
  });
}

}  // namespace tessaria::demo
