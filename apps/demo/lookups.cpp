#include "apps/demo/lookups.h"

#include "apps/demo/field_helpers.h"
#include "control/tstext.h"
#include "hosts/qt/text.h"
#include "hosts/qt/tstext.h"
#include "lookup/browse_definition.h"
#include "runtime/conversion.h"

namespace tessaria::demo {
namespace {

String otherFields(const Lookup& lookup) {
  String fields;
  for (std::size_t i = 2; i < lookup.columns.size(); ++i) {
    if (!fields.empty()) fields += u", ";
    fields += lookup.columns[i].field;
  }
  return fields;
}

void addColumn(ListaColunas& columns, const ListColumn& column) {
  columns.Add(String(column.field), String(column.caption), String(column.format), column.width,
              column.width > 0);
}

/// `own` is the place of the field's own column among the first two.
void define(Browse& definition, const Lookup& lookup, std::size_t own) {
  const ListColumn& key = lookup.columns[own];
  const ListColumn& sibling = lookup.columns[1 - own];
  definition.BrwTitulo(String(lookup.title));
  definition.BrowseTable(String(lookup.table));
  definition.BrwCampo(String(key.field));
  definition.BrwCampoIrmao(String(sibling.field));
  definition.BrwCampoOutros(otherFields(lookup));
  definition.BrwLeftJoin(String(lookup.from));
  definition.BrwWhere(String(lookup.where));
  addColumn(definition.cgrColGrid(), key);
  addColumn(definition.cgrColGrid(), sibling);
  for (std::size_t i = 2; i < lookup.columns.size(); ++i)
    addColumn(definition.cgrColGrid(), lookup.columns[i]);
}

}  // namespace

const Lookup& customersLookup() {
  static const Lookup lookup{u"Clientes",
                             u"clientes",
                             u"clientes left join cidades on cidades.codigo = clientes.cidade",
                             u"",
                             {{u"clientes.codigo", u"Código", u"", 1000},
                              {u"clientes.nome", u"Nome", u"", 3900},
                              {u"cidades.nome as municipio", u"Cidade", u"", 2400},
                              {u"clientes.uf", u"UF", u"", 600},
                              {u"clientes.nascimento", u"Nascimento", u"dd/mm/yyyy", 1400},
                              {u"clientes.cidade", u"", u"", 0},
                              {u"clientes.condicao", u"", u"", 0}},
                             {u"uf", u"cidade", u"condicao"}};
  return lookup;
}

const Lookup& citiesLookup() {
  static const Lookup lookup{u"Cidades",
                             u"cidades",
                             u"",
                             u"(uf = '@uf@' or '@uf@' = '')",
                             {{u"codigo", u"Código", u"", 1000},
                              {u"nome", u"Nome", u"", 3900},
                              {u"uf", u"UF", u"", 600},
                              {u"ddd", u"DDD", u"", 700}},
                             {u"uf"}};
  return lookup;
}

const Lookup& paymentTermsLookup() {
  static const Lookup lookup{u"Condições de pagamento",
                             u"condicoes_pagamento",
                             u"",
                             u"",
                             {{u"codigo", u"Código", u"", 900},
                              {u"descricao", u"Condição", u"", 3300},
                              {u"parcelas", u"Parcelas", u"", 1100},
                              {u"acrescimo", u"Acréscimo %", u"#,##0.00", 1500}},
                             {}};
  return lookup;
}

const Lookup& productsLookup() {
  static const Lookup lookup{u"Produtos",
                             u"produtos",
                             u"",
                             u"",
                             {{u"codigo", u"Código", u"", 1000},
                              {u"descricao", u"Produto", u"", 4800},
                              {u"unidade", u"Un.", u"", 600},
                              {u"preco", u"Preço", u"#,##0.00", 1200},
                              {u"estoque", u"Estoque", u"#,##0.###", 1200}},
                             {u"preco"}};
  return lookup;
}

const Lookup& statesLookup() {
  static const Lookup lookup{u"Estados",
                             u"estados",
                             u"",
                             u"",
                             {{u"uf", u"UF", u"", 700},
                              {u"nome", u"Estado", u"", 2700},
                              {u"capital", u"Capital", u"", 2700}},
                             {}};
  return lookup;
}

void useLookup(const Lookup& lookup, qt::TsText* code, qt::TsText* description) {
  auto& ofCode = *code->control().Browse();
  define(ofCode, lookup, 0);
  for (const StringView name : lookup.returned) ofCode.Outros().Add(String(name));
  define(*description->control().Browse(), lookup, 1);
}

void keepCityInState(qt::TsText* state, qt::TsText* city) {
  const auto isElsewhere = [state, city] {
    const Variant home = returned(city, u"uf");
    return !codeIn(city).isEmpty() && !home.IsNull() && !home.IsEmpty() &&
           qt::toQt(CStr(home)) != codeIn(state);
  };
  QObject::connect(state, &qt::TsText::browseReturn, city, [=](bool& changed) {
    if (changed && isElsewhere()) giveCode(city, Variant::Null());
  });
  QObject::connect(city, &qt::TsText::browseReturn, state, [=](bool& changed) {
    if (changed && codeIn(state).isEmpty()) giveCode(state, returned(city, u"uf"));
  });
}

}  // namespace tessaria::demo
